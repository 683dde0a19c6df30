# SPDX-License-Identifier: Apache-2.0
# The version of ZuXml lives in the version macros of include/zuxml.h alone.
# Included, this sets ZUXML_VERSION_MAJOR, _MINOR, _PATCH and ZUXML_VERSION;
# run as a script (cmake -P cmake/version.cmake) it prints ZUXML_VERSION, for
# the release scripts.
file(STRINGS "${CMAKE_CURRENT_LIST_DIR}/../include/zuxml.h" _zuxml_version_lines
     REGEX "^#define ZUXML_VERSION_(MAJOR|MINOR|PATCH) [0-9]+$")
foreach(_part MAJOR MINOR PATCH)
  string(REGEX REPLACE ".*#define ZUXML_VERSION_${_part} ([0-9]+).*" "\\1" ZUXML_VERSION_${_part}
         "${_zuxml_version_lines}")
endforeach()
set(ZUXML_VERSION "${ZUXML_VERSION_MAJOR}.${ZUXML_VERSION_MINOR}.${ZUXML_VERSION_PATCH}")

if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
  execute_process(COMMAND "${CMAKE_COMMAND}" -E echo "${ZUXML_VERSION}")
endif()
