# SPDX-License-Identifier: Apache-2.0
# Writes the ELF version script of libzuxml.so from exports/ZUXML.def: every
# name of the table, ordinals dropped, a second name bound to a function
# ("X = Y") exported as its own symbol. ZUXML_VERSION_SCRIPT names the file;
# it is written on every platform so the export test can read it anywhere.
set(_zuxml_def "${PROJECT_SOURCE_DIR}/exports/ZUXML.def")
set_property(DIRECTORY "${PROJECT_SOURCE_DIR}" APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${_zuxml_def}")

file(STRINGS "${_zuxml_def}" _zuxml_def_entries REGEX "^[ \t]+ZuXml[A-Za-z0-9_]+")
set(ZUXML_VERSION_SCRIPT_NAMES "")
foreach(_entry IN LISTS _zuxml_def_entries)
  string(REGEX MATCH "ZuXml[A-Za-z0-9_]+" _name "${_entry}")
  string(APPEND ZUXML_VERSION_SCRIPT_NAMES "    ${_name};\n")
endforeach()

set(ZUXML_VERSION_SCRIPT "${PROJECT_BINARY_DIR}/zuxml.map")
file(CONFIGURE OUTPUT "${ZUXML_VERSION_SCRIPT}" @ONLY CONTENT [=[
/* Dynamic symbols of libzuxml.so, written by the build from exports/ZUXML.def.
   Everything else in the library stays local. */
{
  global:
@ZUXML_VERSION_SCRIPT_NAMES@  local:
    *;
};
]=])
