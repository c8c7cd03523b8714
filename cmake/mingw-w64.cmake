# Cross-building for 64-bit Windows with mingw-w64 (Debian's g++-mingw-w64-x86-64-posix):
#   cmake -S . -B build-windows -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake -DCINDREL_PYTHON=OFF
# The programs link their runtime statically, so that they run under wine64 or on Windows with no
# DLL beside them; ctest runs the unit tests through wine64 where it is installed.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
find_program(CINDREL_WINE64 NAMES wine64 PATHS /usr/lib/wine NO_DEFAULT_PATH)
find_program(CINDREL_WINE64 NAMES wine64)
if(CINDREL_WINE64)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CINDREL_WINE64})
endif()
