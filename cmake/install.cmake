# SPDX-License-Identifier: Apache-2.0
# Install rules: the header, the shared library with its SONAME link, a
# pkg-config file and a CMake config package exporting zuxml::zuxml. The
# build tree is a CMake package too: another build finds zuxml::zuxml there
# with -Dzuxml_DIR=<this build directory>.
include(CMakePackageConfigHelpers)

set(ZUXML_CMAKE_INSTALL_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/zuxml")

install(TARGETS zuxml EXPORT zuxmlTargets
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(FILES "${PROJECT_SOURCE_DIR}/include/zuxml.h" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(FILES "${PROJECT_SOURCE_DIR}/CHANGELOG.md" DESTINATION "${CMAKE_INSTALL_DOCDIR}")

install(EXPORT zuxmlTargets
  NAMESPACE zuxml::
  FILE zuxmlTargets.cmake
  DESTINATION "${ZUXML_CMAKE_INSTALL_DIR}")
# The build tree's own copy of the targets, beside the config files below.
export(EXPORT zuxmlTargets
  NAMESPACE zuxml::
  FILE "${PROJECT_BINARY_DIR}/zuxmlTargets.cmake")

# Only a static archive makes its callers link Xerces-C++ themselves; the
# shared library carries its own dependency.
if(ZUXML_LIBRARY_TYPE STREQUAL "STATIC")
  set(ZUXML_CONFIG_DEPENDENCIES "find_dependency(XercesC 3.2)")
  if(ICU_FOUND)
    string(APPEND ZUXML_CONFIG_DEPENDENCIES "\nfind_dependency(ICU COMPONENTS uc)")
  endif()
else()
  set(ZUXML_CONFIG_DEPENDENCIES "")
endif()
configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/zuxmlConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/zuxmlConfig.cmake"
  INSTALL_DESTINATION "${ZUXML_CMAKE_INSTALL_DIR}")
# Names and ordinals never change within a major version.
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/zuxmlConfigVersion.cmake"
  VERSION "${PROJECT_VERSION}"
  COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/zuxmlConfig.cmake"
  "${PROJECT_BINARY_DIR}/zuxmlConfigVersion.cmake"
  DESTINATION "${ZUXML_CMAKE_INSTALL_DIR}")

# The .pc file finds its prefix from its own place, so an installation can
# be moved (or made with `cmake --install --prefix`) and still be found.
set(_zuxml_pc_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(ZUXML_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
else()
  file(RELATIVE_PATH _zuxml_pc_up "/${_zuxml_pc_dir}" "/")
  string(REGEX REPLACE "/$" "" _zuxml_pc_up "${_zuxml_pc_up}")
  set(ZUXML_PC_PREFIX "\${pcfiledir}/${_zuxml_pc_up}")
endif()
foreach(_dir LIBDIR INCLUDEDIR)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${_dir}}")
    set(ZUXML_PC_${_dir} "${CMAKE_INSTALL_${_dir}}")
  else()
    set(ZUXML_PC_${_dir} "\${prefix}/${CMAKE_INSTALL_${_dir}}")
  endif()
endforeach()
configure_file("${CMAKE_CURRENT_LIST_DIR}/zuxml.pc.in" "${PROJECT_BINARY_DIR}/zuxml.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/zuxml.pc" DESTINATION "${_zuxml_pc_dir}")
