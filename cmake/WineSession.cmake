# Starts or stops the Wine session that the test suite runs in.
#   cmake -DACTION=start|stop -DPREFIX=<folder> -DWINE=<wine64> -DWINESERVER=<wineserver>
#         -P WineSession.cmake
# start: throws away any prefix an earlier run left, creates a fresh one and
# keeps its server alive, so that each test process starts in well under a
# second instead of paying the server's start-up every time.
# stop: ends the server and every Wine process of the prefix.
set(ENV{WINEPREFIX} "${PREFIX}")
set(ENV{WINEDEBUG} "-all")

if(ACTION STREQUAL "start")
  execute_process(COMMAND "${WINESERVER}" -k OUTPUT_QUIET ERROR_QUIET)
  file(REMOVE_RECURSE "${PREFIX}")
  file(MAKE_DIRECTORY "${PREFIX}")
  # The server forks into the background; it must not hold our pipes open.
  execute_process(COMMAND sh -c "exec \"$1\" -p </dev/null >/dev/null 2>&1" sh "${WINESERVER}"
                  RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "wineserver -p failed: ${rc}")
  endif()
  execute_process(COMMAND sh -c "exec \"$1\" wineboot --init </dev/null >\"$2\" 2>&1"
                          sh "${WINE}" "${PREFIX}/../wineboot.log"
                  RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "wineboot --init failed: ${rc} (see ${PREFIX}/../wineboot.log)")
  endif()
elseif(ACTION STREQUAL "stop")
  execute_process(COMMAND "${WINESERVER}" -k OUTPUT_QUIET ERROR_QUIET)
else()
  message(FATAL_ERROR "ACTION must be start or stop")
endif()
