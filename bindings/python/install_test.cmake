# SPDX-License-Identifier: Apache-2.0
# Installs the package the way a user does, offline and with the build tools
# already on the machine, into a directory of its own, then runs the tests
# against the installed copy rather than the source tree.
#   cmake -DPYTHON=... -DSOURCE=... -DWORK=... -P install_test.cmake
foreach(_var PYTHON SOURCE WORK)
  if(NOT DEFINED ${_var})
    message(FATAL_ERROR "install_test.cmake needs -D${_var}=")
  endif()
endforeach()

# pip builds in the directory it is given: a copy keeps the source tree clean.
file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}")
file(COPY "${SOURCE}/" DESTINATION "${WORK}/source" PATTERN "__pycache__" EXCLUDE)

execute_process(
  COMMAND "${PYTHON}" -m pip install --no-build-isolation --no-index --no-deps --disable-pip-version-check
          --no-cache-dir --target "${WORK}/site" "${WORK}/source"
  RESULT_VARIABLE _installed)
if(NOT _installed EQUAL 0)
  message(FATAL_ERROR "pip install failed (${_installed})")
endif()
if(NOT EXISTS "${WORK}/site/zuxml/py.typed")
  message(FATAL_ERROR "the installed package has no py.typed")
endif()

set(ENV{PYTHONPATH} "${WORK}/site")
execute_process(
  COMMAND "${PYTHON}" -m unittest discover -v -s "${WORK}/source/tests" -t "${WORK}/source/tests"
  RESULT_VARIABLE _tested)
if(NOT _tested EQUAL 0)
  message(FATAL_ERROR "the tests of the installed package failed (${_tested})")
endif()
