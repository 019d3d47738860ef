# Run by ctest for each test program: registers the program, or its cases, which it is then asked for. add_cases() sets entry,
# prefix, command, emulated, processors, labels and environment. A program that is asked when tests run has the sanitizer
# settings of the tests.
macro(register name)
    add_test(${name} ${command} --prefix=${prefix} ${ARGN})
    set_tests_properties(${name} PROPERTIES LABELS "${labels}" ENVIRONMENT "${environment}")
endmacro()

if(NOT DEFINED ENV{HUECRAFT_EACH_CASE})
    # An emulator is worth being prepared for more than one case.
    if(emulated)
        register(${entry} --rehearse)
    else()
        register(${entry})
    endif()
    # A case has a limit of its own (tests/support/cases.h).
    set_tests_properties(${entry} PROPERTIES PROCESSORS ${processors} TIMEOUT 3600)
    return()
endif()

list(GET command -1 program)
if(NOT EXISTS ${program})
    register(${entry}_is_not_built)
    return()
endif()
execute_process(COMMAND ${command} --gtest_list_tests OUTPUT_VARIABLE listed RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${entry} does not say what its cases are: ${result}")
endif()
# A case has its limits, and with every fault at every call, as HUECRAFT_FAULTS asks for, others.
set(limits "")
set(timeout 1500)
if(DEFINED ENV{HUECRAFT_FAULTS})
    set(limits --limit=3600 --patience=10000)
    set(timeout 10000)
endif()
# "Suite." or "Prefix/Suite.", then "  Case" lines, some with a comment about the parameter.
string(REGEX REPLACE "[;[]|\\]" "_" listed "${listed}")
string(REGEX MATCHALL "[^\n]+" listed "${listed}")
foreach(line IN LISTS listed)
    if(line MATCHES "^([^ ]+)\\.( |$)")
        set(suite ${CMAKE_MATCH_1})
    elseif(line MATCHES "^  ([^ ]+)")
        set(name ${suite}.${CMAKE_MATCH_1})
        register(${prefix}${name} --gtest_filter=${name} ${limits})
        set_tests_properties(${prefix}${name} PROPERTIES TIMEOUT ${timeout})
    endif()
endforeach()
