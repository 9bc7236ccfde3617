# Runs one GoogleTest program and passes only when all three hold: it exits
# with 0, GoogleTest printed its summary for at least one test, and no test
# failed. The exit code alone is not enough under Wine, where a crashed
# program can end with 0, and the summary alone is not enough either: a
# program can crash in a DLL's unload after printing a clean summary, or run
# no test at all.
#   cmake -DPROGRAM=<program> [-DEMULATOR=<wine64>] -P RunTestProgram.cmake
execute_process(COMMAND ${EMULATOR} "${PROGRAM}"
                RESULT_VARIABLE rc
                OUTPUT_VARIABLE out ERROR_VARIABLE out
                ECHO_OUTPUT_VARIABLE ECHO_ERROR_VARIABLE)
get_filename_component(name "${PROGRAM}" NAME)
if(NOT rc STREQUAL "0")
  message(FATAL_ERROR "${name} exited with ${rc}")
endif()
if(NOT out MATCHES "\\[==========\\] ([0-9]+) tests? from [0-9]+ test suites? ran")
  message(FATAL_ERROR "${name} printed no GoogleTest summary")
endif()
if(CMAKE_MATCH_1 EQUAL 0)
  message(FATAL_ERROR "${name} ran no test")
endif()
if(out MATCHES "\\[  FAILED  \\]")
  message(FATAL_ERROR "${name} reported a failure")
endif()
