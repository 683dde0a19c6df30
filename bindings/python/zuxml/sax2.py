# SPDX-License-Identifier: Apache-2.0
"""Streaming a file through Python callables over the library's SAX2 parser."""

import ctypes
from typing import Any, Callable, Dict, Optional, Sequence, Tuple

from ._handle import Handle
from ._library import ZuXmlError, library
from ._prototypes import ATTRIBUTE_A, NARROW_TABLE, WIDE_TABLE
from ._text import Text, from_wide, wide

SAX2_ERROR = 20
SAX2_FATAL_ERROR = 21
SAX2_WARNING = 22

_EVENTS = ("start_document", "end_document", "start_element", "attribute",
           "attributes_done", "end_element", "comment", "diagnostic")


def _plain(args: Sequence[Any]) -> Tuple[Any, ...]:
    return tuple(args)


def _texts_after(count: int) -> Callable[[Sequence[Any]], Tuple[Any, ...]]:
    """The first count arguments as they are, the rest as str."""
    return lambda args: tuple(args[:count]) + tuple(from_wide(p) for p in args[count:])


# How each event's arguments after hParser and pContext reach the callable.
_CONVERTERS = {
    "start_document": _plain,
    "end_document": _plain,
    "start_element": _texts_after(2),
    "attribute": _texts_after(2),
    "attributes_done": _plain,
    "end_element": _texts_after(1),
    "comment": _texts_after(1),
    "diagnostic": _texts_after(1),
}


class Sax2Parser(Handle):
    """A streaming parser calling Python callables for the events of a file.

    Each callback is optional and receives str text:
      start_document(), end_document(),
      start_element(depth, attribute_count, uri, local_name, qname),
      attribute(depth, index, uri, local_name, qname, type, value),
      attributes_done(depth),
      end_element(depth, uri, local_name, qname, text),
      comment(depth, text),
      diagnostic(code, message)            code: SAX2_ERROR, SAX2_FATAL_ERROR, SAX2_WARNING
    Callbacks may be given as keywords, or as methods of an object passed as
    handler. A callback may call stop() and location(). An exception raised
    by a callback stops a progressive parse and is raised again by parse().
    """

    def __init__(self, handler: Any = None, **callbacks: Callable[..., Any]) -> None:
        unknown = set(callbacks) - set(_EVENTS)
        if unknown:
            raise TypeError("unknown callbacks: " + ", ".join(sorted(unknown)))
        self._callables: Dict[str, Callable[..., Any]] = {}
        for event in _EVENTS:
            function = callbacks.get(event) or getattr(handler, event, None)
            if function is not None:
                self._callables[event] = function
        self._error: Optional[BaseException] = None
        self._register(library().ZuXmlCreateSax2Parser(None), "a parser")
        self._install()

    def _guard(self, event: str) -> Callable[..., None]:
        function = self._callables[event]
        convert = _CONVERTERS[event]

        def call(_parser: Any, _context: Any, *args: Any) -> None:
            if self._error is not None:
                return
            try:
                function(*convert(args))
            except BaseException as error:  # handed back by parse()
                self._error = error
                self.stop()
        return call

    def _install(self) -> None:
        has = self._callables.__contains__
        table = [kind(self._guard(event)) if has(event) else kind() for event, kind in zip(_EVENTS, WIDE_TABLE)]
        # Attribute and AttributesDone events come only with a start-element
        # entry, so one that does nothing stands in when none was given.
        if not has("start_element") and (has("attribute") or has("attributes_done")):
            table[2] = WIDE_TABLE[2](lambda *args: None)
        # AttributesDone is called when the narrow attribute entry is set; that
        # entry itself is never called while the wide start-element entry serves.
        narrow = [kind() for kind in NARROW_TABLE]
        if has("attributes_done"):
            narrow[3] = ATTRIBUTE_A(lambda *args: None)
        lib = library()
        lib.ZuXmlSetSax2ParserCallbacksW(self._handle, *table)
        lib.ZuXmlSetSax2ParserCallbacksA(self._handle, *narrow)
        # The library keeps only the pointers: the function objects must live
        # as long as the parser.
        self._table: Optional[Tuple[Any, Any]] = (table, narrow)

    def _checked(self) -> int:
        if self._handle is None:
            raise ZuXmlError("the parser is closed")
        return self._handle

    def parse(self, path: Text, progressive: bool = True) -> None:
        """Streams the file through the callbacks.

        progressive=True parses step by step so that stop() can end the parse
        early; False parses in one call, which stop() does not interrupt.
        Raises ZuXmlError when the library reports a failure (the parse
        exception's message is printed on standard output by the library).
        """
        handle = self._checked()
        self._error = None
        answer = library().ZuXmlSax2LoadFromFileW(handle, wide(path), 1 if progressive else 0)
        error, self._error = self._error, None
        if error is not None:
            raise error
        if answer == -1:
            raise ZuXmlError("parse error in %s" % (path,))
        if answer != 1:
            raise ZuXmlError("cannot parse %s" % (path,))

    def stop(self) -> None:
        """Asks a running progressive parse to stop before its next step."""
        if self._handle is not None:
            library().ZuXmlSax2StopLoadFromFile(self._handle)

    def location(self) -> Optional[Tuple[int, int]]:
        """(line, column) of the parse while it runs, or None."""
        line, column = ctypes.c_uint64(), ctypes.c_uint64()
        if library().ZuXmlGetSax2CurrentLocation(self._checked(), ctypes.byref(line), ctypes.byref(column)):
            return line.value, column.value
        return None

    def _released(self) -> None:
        self._table = None
