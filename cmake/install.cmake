# What `cmake --install` puts in place beside the layer libraries and their headers (src/): the
# umbrella target, the CMake package, the command and the Python module.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# Cindrel::cindrel, the whole library for a consumer that wants the conversions.
add_library(cindrel_library INTERFACE)
target_link_libraries(cindrel_library INTERFACE cindrel_module)
set_target_properties(cindrel_library PROPERTIES EXPORT_NAME cindrel)
install(TARGETS cindrel_library EXPORT CindrelTargets)

set(CINDREL_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Cindrel)
install(EXPORT CindrelTargets NAMESPACE Cindrel:: DESTINATION ${CINDREL_PACKAGE_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/CindrelConfig.cmake.in
  ${CMAKE_BINARY_DIR}/CindrelConfig.cmake INSTALL_DESTINATION ${CINDREL_PACKAGE_DIR})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/CindrelConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/CindrelConfig.cmake ${CMAKE_BINARY_DIR}/CindrelConfigVersion.cmake
  DESTINATION ${CINDREL_PACKAGE_DIR})

install(TARGETS cindrel RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# The module, and beside it under Python 3 the scale-out package, go to one folder for the
# interpreter's path.
if(CINDREL_PYTHON)
  set(CINDREL_PYTHON_INSTALL_DIR
    "${CMAKE_INSTALL_LIBDIR}/python${CINDREL_MODULE_PYTHON_VERSION}/site-packages"
    CACHE STRING "Where `cmake --install` puts the Python module, relative to the prefix")
  install(TARGETS Cindrel LIBRARY DESTINATION ${CINDREL_PYTHON_INSTALL_DIR})
  if(CINDREL_MODULE_PYTHON_VERSION VERSION_GREATER_EQUAL 3)
    install(DIRECTORY ${CMAKE_SOURCE_DIR}/python/cindrel_cluster
      DESTINATION ${CINDREL_PYTHON_INSTALL_DIR} PATTERN "__pycache__" EXCLUDE)
  endif()
endif()
