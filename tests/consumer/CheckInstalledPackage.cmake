# Installs zrkCore from BUILD_DIR into a scratch prefix, builds the consumer
# program in SOURCE_DIR against that prefix (outside the main build tree) and
# runs it under Wine. Fails unless the program reports success.
file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}")
  endif()
  set(output "${out}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")
run(${CMAKE_COMMAND} -G "${GENERATOR}" -S "${SOURCE_DIR}" -B "${WORK_DIR}/build"
    "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}" "-DCMAKE_PREFIX_PATH=${prefix}")
run(${CMAKE_COMMAND} --build "${WORK_DIR}/build")

# The installed bin folder holds zrkCore.dll and the C++ runtime it shares
# with its callers; nothing from the main build tree is on the path.
set(ENV{WINEPATH} "${prefix}/bin")
run("${WINE}" "${WORK_DIR}/build/consumer.exe")
message("${output}")
if(NOT output MATCHES "consumer: all checks passed")
  message(FATAL_ERROR "the consumer did not report success")
endif()
