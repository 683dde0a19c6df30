# SPDX-License-Identifier: Apache-2.0
# Cross build for 64-bit Windows with Debian's MinGW-w64 toolchain
# (g++-mingw-w64-x86-64-posix: the posix thread model, so std::thread works),
# linked against the Universal C runtime (ucrtbase.dll through the
# api-ms-win-crt-* DLLs) instead of msvcrt.dll: see mingw-w64-ucrt.specs and
# README.md beside this file for why and how.
#
# Libraries built for the target (Xerces, GoogleTest) are found in the
# prefixes named by CMAKE_PREFIX_PATH, which join the target root; nothing
# of the host's own libraries or headers is ever taken. Programs run through
# CMAKE_CROSSCOMPILING_EMULATOR (wine64) when one is given.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(_mingw x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${_mingw}-gcc-posix)
set(CMAKE_CXX_COMPILER ${_mingw}-g++-posix)
set(CMAKE_RC_COMPILER ${_mingw}-windres)
set(CMAKE_AR ${_mingw}-ar CACHE FILEPATH "")
set(CMAKE_RANLIB ${_mingw}-ranlib CACHE FILEPATH "")
set(CMAKE_OBJDUMP ${_mingw}-objdump CACHE FILEPATH "")

# Every compile and every link goes through the specs file: the headers
# declare the Universal CRT, and the runtime library linked is libucrt.a.
set(_ucrt_specs "-specs=${CMAKE_CURRENT_LIST_DIR}/mingw-w64-ucrt.specs")
set(CMAKE_C_FLAGS_INIT "${_ucrt_specs}")
set(CMAKE_CXX_FLAGS_INIT "${_ucrt_specs}")

set(CMAKE_FIND_ROOT_PATH /usr/${_mingw} ${CMAKE_PREFIX_PATH})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The C++ runtime, libgcc and winpthread go into each module, so a module
# needs no MinGW runtime DLL beside it; Windows' own DLLs and Xerces' are
# still linked through their import libraries.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")
