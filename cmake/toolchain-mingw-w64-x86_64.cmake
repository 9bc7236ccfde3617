# Cross-compiles for 64-bit Windows with Debian's mingw-w64 GCC (posix thread
# model, so std::thread and std::mutex work) and runs target programs under
# Wine, which is how CTest executes the test suite on Linux.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(ZRK_MINGW_TRIPLE x86_64-w64-mingw32)
set(CMAKE_C_COMPILER   ${ZRK_MINGW_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ZRK_MINGW_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER  ${ZRK_MINGW_TRIPLE}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${ZRK_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

# Debian's bookworm puts no wine64 on the PATH; the loader lives here.
set(CMAKE_CROSSCOMPILING_EMULATOR /usr/lib/wine/wine64)
