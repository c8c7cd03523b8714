# The Python extension module Cindrel, built for one interpreter: CINDREL_PYTHON_EXECUTABLE, or the
# machine's python3 when that is empty. For Python 3 the module keeps to the stable ABI of 3.6, and
# its one file, Cindrel.abi3.so, imports in every Python 3 from 3.6 on; for Python 2.7 it is Cindrel.so.
# Sets CINDREL_MODULE_PYTHON to the interpreter the module is for, and CINDREL_MODULE_PYTHON_VERSION
# to its version, major.minor.

set(CINDREL_PYTHON_EXECUTABLE "" CACHE STRING
  "Python interpreter to build the module for, a path or a name on PATH (default: python3)")

set(_cindrel_module_sources
  ${CMAKE_SOURCE_DIR}/src/module/python_module.cpp)

set(_cindrel_python_name "${CINDREL_PYTHON_EXECUTABLE}")
if(NOT _cindrel_python_name)
  set(_cindrel_python_name python3)
endif()
find_program(_cindrel_python NAMES "${_cindrel_python_name}" NO_CACHE)
if(NOT _cindrel_python)
  message(FATAL_ERROR "CINDREL_PYTHON_EXECUTABLE: there is no interpreter '${_cindrel_python_name}'. "
    "Name a Python 2.7 or 3.6 or later, by its path or a name on PATH, or leave it empty for python3.")
endif()
execute_process(
  COMMAND "${_cindrel_python}" -c "import sys; sys.stdout.write('%d;%d' % sys.version_info[:2])"
  OUTPUT_VARIABLE _cindrel_python_version RESULT_VARIABLE _cindrel_python_status ERROR_QUIET)
if(NOT _cindrel_python_status EQUAL 0 OR NOT _cindrel_python_version MATCHES "^[0-9]+;[0-9]+$")
  message(FATAL_ERROR "CINDREL_PYTHON_EXECUTABLE: '${_cindrel_python}' does not run as a Python interpreter.")
endif()
list(GET _cindrel_python_version 0 _cindrel_python_major)
list(GET _cindrel_python_version 1 _cindrel_python_minor)
set(CINDREL_MODULE_PYTHON_VERSION ${_cindrel_python_major}.${_cindrel_python_minor})
if(NOT (_cindrel_python_major EQUAL 2 AND _cindrel_python_minor EQUAL 7)
   AND NOT (_cindrel_python_major EQUAL 3 AND _cindrel_python_minor GREATER_EQUAL 6))
  message(FATAL_ERROR "CINDREL_PYTHON_EXECUTABLE: '${_cindrel_python}' is Python "
    "${_cindrel_python_major}.${_cindrel_python_minor}; the module is for Python 2.7 or 3.6 and later.")
endif()
set(Python${_cindrel_python_major}_EXECUTABLE "${_cindrel_python}")
find_package(Python${_cindrel_python_major} ${_cindrel_python_major}.${_cindrel_python_minor} EXACT
  REQUIRED COMPONENTS Interpreter Development.Module)

if(_cindrel_python_major EQUAL 2)
  Python2_add_library(Cindrel MODULE ${_cindrel_module_sources} ${CMAKE_SOURCE_DIR}/src/module/python2_glue.cpp)
  set(CINDREL_MODULE_PYTHON ${Python2_EXECUTABLE})
else()
  Python3_add_library(Cindrel MODULE ${_cindrel_module_sources} ${CMAKE_SOURCE_DIR}/src/module/python3_glue.cpp)
  target_compile_definitions(Cindrel PRIVATE Py_LIMITED_API=0x03060000)
  if(NOT WIN32)
    set_target_properties(Cindrel PROPERTIES SUFFIX ".abi3${CMAKE_SHARED_MODULE_SUFFIX}")
  endif()
  set(CINDREL_MODULE_PYTHON ${Python3_EXECUTABLE})
endif()
target_link_libraries(Cindrel PRIVATE cindrel_module)
target_compile_definitions(Cindrel PRIVATE CINDREL_VERSION="${PROJECT_VERSION}")
set_target_properties(Cindrel PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
message(STATUS "Python module Cindrel for ${CINDREL_MODULE_PYTHON}")

# A module left in the build tree by an earlier configure for another interpreter would shadow this one.
get_target_property(_cindrel_module_suffix Cindrel SUFFIX)
if(NOT _cindrel_module_suffix)
  set(_cindrel_module_suffix ${CMAKE_SHARED_MODULE_SUFFIX})
endif()
file(GLOB _cindrel_stale_modules ${CMAKE_BINARY_DIR}/Cindrel.*)
list(REMOVE_ITEM _cindrel_stale_modules ${CMAKE_BINARY_DIR}/Cindrel${_cindrel_module_suffix})
if(_cindrel_stale_modules)
  file(REMOVE ${_cindrel_stale_modules})
endif()
