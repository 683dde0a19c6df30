# SPDX-License-Identifier: Apache-2.0
"""Loading the shared library once, giving every export its prototype, and
starting and stopping Xerces around the handles the binding hands out."""

import atexit
import ctypes
import ctypes.util
import os
import sys
import weakref
from typing import Any, Dict, List, Optional

from ._prototypes import PROTOTYPES


class ZuXmlError(Exception):
    """An operation of the library answered failure."""


_state: Dict[str, Optional[ctypes.CDLL]] = {"lib": None}
# Handles still open, released before Xerces is terminated at exit.
open_handles: "weakref.WeakSet[Any]" = weakref.WeakSet()


def _candidates() -> List[str]:
    configured = os.environ.get("ZUXML_LIBRARY")
    if configured:
        return [configured]
    found = ctypes.util.find_library("zuxml") or ctypes.util.find_library("ZUXML")
    default = "ZUXML.dll" if sys.platform == "win32" else "libzuxml.so.1"
    return [name for name in (found, default) if name]


def library() -> ctypes.CDLL:
    """The loaded library (a ctypes.CDLL), loading and initialising it once.

    Every one of its 65 functions carries the argument and result types of
    the header, so it can be called directly as well.
    """
    lib = _state["lib"]
    if lib is not None:
        return lib
    errors = []
    for name in _candidates():
        try:
            lib = ctypes.CDLL(name)
            break
        except OSError as error:
            errors.append(str(error))
    else:
        raise OSError("cannot load the ZuXml library: " + "; ".join(errors))
    for name, (restype, argtypes) in PROTOTYPES.items():
        function = getattr(lib, name)
        function.restype = restype
        function.argtypes = argtypes
    if lib.ZuXmlInit() != 1:
        raise ZuXmlError("ZuXmlInit failed")
    _state["lib"] = lib
    atexit.register(_shutdown)
    return lib


def is_loaded() -> bool:
    return _state["lib"] is not None


def _shutdown() -> None:
    lib = _state["lib"]
    if lib is None:
        return
    for owner in list(open_handles):
        owner.close()
    lib.ZuXmlCleanup()
    _state["lib"] = None
