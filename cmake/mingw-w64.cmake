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

# The header-only libraries of the build machine (CLI11, nlohmann's JSON) serve every target alike.
# They are seen through a folder that holds them alone, with package files of their own for
# find_package: the rest of /usr/include is the build machine's C library, which must never meet
# the target's.
set(CINDREL_HEADER_ONLY_ROOT ${CMAKE_BINARY_DIR}/header-only)
function(cindrel_header_only_library folder package target)
  set(root ${CINDREL_HEADER_ONLY_ROOT})
  if(NOT EXISTS /usr/include/${folder})
    return()
  endif()
  if(NOT EXISTS ${root}/include/${folder})
    file(MAKE_DIRECTORY ${root}/include)
    file(CREATE_LINK /usr/include/${folder} ${root}/include/${folder} SYMBOLIC)
  endif()
  set(config ${root}/lib/cmake/${package})
  if(NOT EXISTS ${config}/${package}Config.cmake)
    file(WRITE ${config}/${package}Config.cmake
      "if(NOT TARGET ${target})\n"
      "  add_library(${target} INTERFACE IMPORTED)\n"
      "  set_target_properties(${target} PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${root}/include)\n"
      "endif()\n")
    if(EXISTS /usr/share/cmake/${package}/${package}ConfigVersion.cmake)
      file(COPY /usr/share/cmake/${package}/${package}ConfigVersion.cmake DESTINATION ${config})
    endif()
  endif()
endfunction()
cindrel_header_only_library(CLI CLI11 CLI11::CLI11)
cindrel_header_only_library(nlohmann nlohmann_json nlohmann_json::nlohmann_json)
if(EXISTS ${CINDREL_HEADER_ONLY_ROOT}/include)
  set(CMAKE_CXX_FLAGS_INIT "-isystem ${CINDREL_HEADER_ONLY_ROOT}/include")
  list(APPEND CMAKE_FIND_ROOT_PATH ${CINDREL_HEADER_ONLY_ROOT})
  list(APPEND CMAKE_PREFIX_PATH ${CINDREL_HEADER_ONLY_ROOT})
endif()

find_program(CINDREL_WINE64 NAMES wine64 PATHS /usr/lib/wine NO_DEFAULT_PATH)
find_program(CINDREL_WINE64 NAMES wine64)
if(CINDREL_WINE64)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CINDREL_WINE64})
endif()
