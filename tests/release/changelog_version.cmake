# SPDX-License-Identifier: Apache-2.0
# Fails unless the newest entry of debian/changelog is version
# ZUXML_VERSION, Debian revision 1 or later.
file(STRINGS "${ZUXML_CHANGELOG}" _first LIMIT_COUNT 1)
if(NOT _first MATCHES "^zuxml \\(([^)-]+)-[0-9]+\\) ")
  message(FATAL_ERROR "${ZUXML_CHANGELOG} does not open with a zuxml entry: ${_first}")
endif()
if(NOT CMAKE_MATCH_1 STREQUAL ZUXML_VERSION)
  message(FATAL_ERROR "debian/changelog is at ${CMAKE_MATCH_1}, zuxml.h at ${ZUXML_VERSION}")
endif()
message(STATUS "debian/changelog and zuxml.h agree on ${ZUXML_VERSION}")
