# add_cases(): registers what a test program holds.
cmake_host_system_information(RESULT HUECRAFT_PROCESSORS QUERY NUMBER_OF_LOGICAL_CORES)
set(HUECRAFT_LIST_CASES ${CMAKE_CURRENT_LIST_DIR}/list_cases.cmake)

# add_cases(<program> [OPTIMISED] [BUILD <prefix>] [PART <prefix>] [LABELS <label>...] [ENVIRONMENT <variable>=<value>...]
#           [EMULATOR <word>...])
# Registers <build><program>, which runs each case in a process of its own (tests/support/cases.h) and fills all processors.
# With HUECRAFT_EACH_CASE in its environment, ctest has every case by itself instead, as <build><part><suite>.<case>. The
# build is the one that is tested; unless given it is "arm64." there, and nothing here. What a test itself computes is little:
# it is compiled without optimisation, and from headers that are read once (tests/support/headers.h), unless OPTIMISED.
function(add_cases program)
    cmake_parse_arguments(PARSE_ARGV 1 cases "OPTIMISED" "BUILD;PART" "LABELS;ENVIRONMENT;EMULATOR")
    if(NOT DEFINED cases_BUILD)
        set(cases_BUILD ${HUECRAFT_TESTED_ON})
    endif()
    get_target_property(precompiled ${program} PRECOMPILE_HEADERS_REUSE_FROM)
    if(HUECRAFT_PRECOMPILED_HEADERS AND NOT cases_OPTIMISED AND NOT precompiled)
        target_compile_options(${program} PRIVATE ${HUECRAFT_TEST_OPTIONS})
        target_precompile_headers(${program} REUSE_FROM test_headers)
    endif()
    read_together(${program})
    if(NOT cases_EMULATOR)
        set(cases_EMULATOR ${CMAKE_CROSSCOMPILING_EMULATOR})
    endif()
    set(command ${cases_EMULATOR} $<TARGET_FILE:${program}>)
    set(registered ${CMAKE_CURRENT_BINARY_DIR}/${cases_BUILD}${program}.cmake)
    file(GENERATE OUTPUT ${registered} CONTENT
"set(entry [==[${cases_BUILD}${program}]==])
set(prefix [==[${cases_BUILD}${cases_PART}]==])
set(command [==[${command}]==])
set(emulated [==[${cases_EMULATOR}]==])
set(processors ${HUECRAFT_PROCESSORS})
set(labels [==[${cases_LABELS}]==])
set(environment [==[${cases_ENVIRONMENT}]==])
include([==[${HUECRAFT_LIST_CASES}]==])
")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${registered})
endfunction()
