# Installs zrkCore from BUILD_DIR into a scratch prefix (or, with -DZIP=ON,
# makes the ZIP package, checks its listing and unzips it), builds the
# consumer program in SOURCE_DIR against that prefix (outside the main build
# tree) and runs it under Wine. Fails unless the program reports success.
file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}")
  endif()
  set(output "${out}" PARENT_SCOPE)
endfunction()

if(NOT ZIP)
  run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")
else()
  # The package a Windows user unzips: made by cpack, listed, and unzipped
  # into the folder the application then names as its prefix.
  run(${CPACK} --config "${BUILD_DIR}/CPackConfig.cmake" -G ZIP -B "${WORK_DIR}/package")
  file(GLOB archive "${WORK_DIR}/package/zrkCore-*-win64.zip")
  get_filename_component(stem "${archive}" NAME)
  string(REGEX REPLACE "[.]zip$" "" stem "${stem}")
  run(${CMAKE_COMMAND} -E tar tf "${archive}")
  foreach(entry bin/zrkCore.dll bin/zrk.exe bin/libstdc++-6.dll bin/libgcc_s_seh-1.dll
                bin/libwinpthread-1.dll lib/zrkCore.dll.a include/zrkCore.h
                include/sync/Mutex.h lib/cmake/zrkCore/zrkCoreConfig.cmake)
    string(FIND "\n${output}" "\n${stem}/${entry}\n" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "${archive} lacks ${stem}/${entry}; it holds:\n${output}")
    endif()
  endforeach()
  file(MAKE_DIRECTORY "${WORK_DIR}/unzipped")
  run(${CMAKE_COMMAND} -E chdir "${WORK_DIR}/unzipped" ${CMAKE_COMMAND} -E tar xf "${archive}")
  set(prefix "${WORK_DIR}/unzipped/${stem}")
endif()
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
