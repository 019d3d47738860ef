# Has the contract written again, and holds the page against it.
execute_process(COMMAND ${PROGRAM} ${WRITTEN} RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "the contract could not be written")
endif()
execute_process(COMMAND diff -u ${PAGE} ${WRITTEN} RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "docs/contract.md is not what the dylib says; \"./dev pages\" writes it again")
endif()
