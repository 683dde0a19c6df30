"""Python access to ZuXml through ctypes, with nothing beyond the standard library.

    import zuxml

    with zuxml.Document.create("library", namespace="urn:example") as doc:
        book = doc.root.append("book", text="Grüße 𝄞", namespace="urn:example")
        book["id"] = "b1"
        print(doc.to_string())

    def on_end(depth, uri, local_name, qname, text):
        print(depth, qname, text)

    with zuxml.Sax2Parser(end_element=on_end) as parser:
        parser.parse("library.xml")

Text goes in and out as str through the library's wide (UTF-16) functions, so
it does not depend on the C locale. The library is found through the
environment variable ZUXML_LIBRARY when set, else by the system's loader
(libzuxml.so.1). Xerces is initialised when the library is first loaded and
terminated at interpreter exit, after every handle still open was released.
"""

import atexit
import ctypes
import ctypes.util
import os
import sys
import weakref

__all__ = [
    "Document",
    "Node",
    "Sax2Parser",
    "ZuXmlError",
    "SAX2_ERROR",
    "SAX2_FATAL_ERROR",
    "SAX2_WARNING",
    "ELEMENT_NODE",
    "TEXT_NODE",
    "COMMENT_NODE",
    "DOCUMENT_NODE",
    "library",
]

SAX2_ERROR = 20
SAX2_FATAL_ERROR = 21
SAX2_WARNING = 22

ELEMENT_NODE = 1
ATTRIBUTE_NODE = 2
TEXT_NODE = 3
CDATA_SECTION_NODE = 4
PROCESSING_INSTRUCTION_NODE = 7
COMMENT_NODE = 8
DOCUMENT_NODE = 9
DOCUMENT_TYPE_NODE = 10


class ZuXmlError(Exception):
    """An operation of the library answered failure."""


# ---------------------------------------------------------------------------
# The library and its prototypes

_HANDLE = ctypes.c_void_p
_I32 = ctypes.c_int32
_WSTR = ctypes.POINTER(ctypes.c_uint16)
_LEN = ctypes.POINTER(ctypes.c_int32)

_PROTOTYPES = {
    "ZuXmlInit": (_I32, []),
    "ZuXmlCleanup": (_I32, []),
    "ZuXmlCreateDocument": (_HANDLE, []),
    "ZuXmlCreateWriteDocumentW": (_HANDLE, [_WSTR, _WSTR, _WSTR]),
    "ZuXmlReleaseDocument": (_I32, [_HANDLE]),
    "ZuXmlLoadFromFileW": (_I32, [_HANDLE, _WSTR]),
    "ZuXmlLoadFromBufA": (_I32, [_HANDLE, ctypes.c_void_p, ctypes.c_uint32]),
    "ZuXmlLoadFromBufW": (_I32, [_HANDLE, _WSTR, ctypes.c_uint32]),
    "ZuXmlWriteW": (_I32, [_HANDLE, _WSTR]),
    "ZuXmlWriteNoPrettyW": (_I32, [_HANDLE, _WSTR]),
    "ZuXmlWriteToStringW": (_I32, [_HANDLE, _WSTR, _LEN]),
    "ZuXmlGetRootNode": (_HANDLE, [_HANDLE]),
    "ZuXmlGetParentNode": (_HANDLE, [_HANDLE, _HANDLE]),
    "ZuXmlGetPriviousSibling": (_HANDLE, [_HANDLE, _HANDLE]),
    "ZuXmlGetNextSibling": (_HANDLE, [_HANDLE, _HANDLE]),
    "ZuXmlGetFirstChild": (_HANDLE, [_HANDLE, _HANDLE]),
    "ZuXmlGetLastChild": (_HANDLE, [_HANDLE, _HANDLE]),
    "ZuXmlFindChildW": (_HANDLE, [_HANDLE, _HANDLE, _WSTR]),
    "ZuXmlGetNodeType": (ctypes.c_uint16, [_HANDLE, _HANDLE]),
    "ZuXmlGetNodeNameW": (_I32, [_HANDLE, _HANDLE, _WSTR, _LEN]),
    "ZuXmlGetLocalNodeNameW": (_I32, [_HANDLE, _HANDLE, _WSTR, _LEN, _WSTR, _LEN]),
    "ZuXmlGetNodeTextContentW": (_I32, [_HANDLE, _HANDLE, _WSTR, _LEN]),
    "ZuXmlGetNodeNamespaceW": (_I32, [_HANDLE, _HANDLE, _WSTR, _LEN]),
    "ZuXmlAddNodeW": (_HANDLE, [_HANDLE, _HANDLE, _WSTR, ctypes.c_uint16, _WSTR, _WSTR]),
    "ZuXmlAddCommentW": (_HANDLE, [_HANDLE, _HANDLE, _WSTR]),
    "ZuXmlAddNodeExisting": (_HANDLE, [_HANDLE, _HANDLE, _HANDLE, _I32]),
    "ZuXmlRemoveNode": (_I32, [_HANDLE, _HANDLE]),
    "ZuXmlSetNodeTextContentW": (_I32, [_HANDLE, _HANDLE, _WSTR]),
    "ZuXmlGetNodeAttributeCount": (_I32, [_HANDLE, _HANDLE]),
    "ZuXmlGetNodeAttributeNameW": (_I32, [_HANDLE, _HANDLE, _I32, _WSTR, _LEN]),
    "ZuXmlGetNodeAttributeValueIndexW": (_I32, [_HANDLE, _HANDLE, _I32, _WSTR, _LEN]),
    "ZuXmlGetNodeAttributeValueNameW": (_I32, [_HANDLE, _HANDLE, _WSTR, _WSTR, _LEN]),
    "ZuXmlAddNodeAttributeW": (_I32, [_HANDLE, _HANDLE, _WSTR, _WSTR]),
    "ZuXmlSetNodeAttributeValueW": (_I32, [_HANDLE, _HANDLE, _WSTR, _WSTR]),
    "ZuXmlRemoveAttributeIndex": (_I32, [_HANDLE, _HANDLE, _I32]),
    "ZuXmlRemoveAttributeNameW": (_I32, [_HANDLE, _HANDLE, _WSTR]),
    "ZuXmlCreateSax2Parser": (_HANDLE, [ctypes.c_void_p]),
    "ZuXmlReleaseSax2Parser": (_I32, [_HANDLE]),
    "ZuXmlSax2LoadFromFileW": (_I32, [_HANDLE, _WSTR, _I32]),
    "ZuXmlSax2StopLoadFromFile": (None, [_HANDLE]),
    "ZuXmlGetSax2CurrentLocation": (
        _I32,
        [_HANDLE, ctypes.POINTER(ctypes.c_uint64), ctypes.POINTER(ctypes.c_uint64)],
    ),
}

# Callback types; text arrives as a pointer to zero-terminated UTF-16 units.
_P = ctypes.c_void_p
_START_DOCUMENT = ctypes.CFUNCTYPE(None, _P, _P)
_END_DOCUMENT = ctypes.CFUNCTYPE(None, _P, _P)
_START_ELEMENT = ctypes.CFUNCTYPE(None, _P, _P, _I32, _I32, _P, _P, _P)
_ATTRIBUTE = ctypes.CFUNCTYPE(None, _P, _P, _I32, _I32, _P, _P, _P, _P, _P)
_ATTRIBUTES_DONE = ctypes.CFUNCTYPE(None, _P, _P, _I32)
_END_ELEMENT = ctypes.CFUNCTYPE(None, _P, _P, _I32, _P, _P, _P, _P)
_COMMENT = ctypes.CFUNCTYPE(None, _P, _P, _I32, _P)
_DIAGNOSTIC = ctypes.CFUNCTYPE(None, _P, _P, _I32, _P)
_NARROW_ATTRIBUTE = ctypes.CFUNCTYPE(None, _P, _P, _I32, _I32, _P, _P, _P, _P, _P)

_PROTOTYPES["ZuXmlSetSax2ParserCallbacksW"] = (
    _I32,
    [_HANDLE, _START_DOCUMENT, _END_DOCUMENT, _START_ELEMENT, _ATTRIBUTE,
     _ATTRIBUTES_DONE, _END_ELEMENT, _COMMENT, _DIAGNOSTIC],
)
_PROTOTYPES["ZuXmlSetSax2ParserCallbacksA"] = (
    _I32,
    [_HANDLE, _START_DOCUMENT, _END_DOCUMENT, _P, _NARROW_ATTRIBUTE,
     _ATTRIBUTES_DONE, _P, _P, _P],
)

_state = {"lib": None}
# Handles still open, released before Xerces is terminated at exit.
_open = weakref.WeakSet()


def _candidates():
    configured = os.environ.get("ZUXML_LIBRARY")
    if configured:
        return [configured]
    found = ctypes.util.find_library("zuxml") or ctypes.util.find_library("ZUXML")
    default = "ZUXML.dll" if sys.platform == "win32" else "libzuxml.so.1"
    return [name for name in (found, default) if name]


def library():
    """The loaded library (a ctypes.CDLL), loading and initialising it once."""
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
    for name, (restype, argtypes) in _PROTOTYPES.items():
        function = getattr(lib, name)
        function.restype = restype
        function.argtypes = argtypes
    if lib.ZuXmlInit() != 1:
        raise ZuXmlError("ZuXmlInit failed")
    _state["lib"] = lib
    atexit.register(_shutdown)
    return lib


def _shutdown():
    lib = _state["lib"]
    if lib is None:
        return
    for owner in list(_open):
        owner.close()
    lib.ZuXmlCleanup()
    _state["lib"] = None


# ---------------------------------------------------------------------------
# Text

def _wide(text):
    """str -> zero-terminated array of UTF-16 units (None stays None)."""
    if text is None:
        return None
    if not isinstance(text, str):
        text = os.fspath(text)
        if isinstance(text, bytes):
            text = os.fsdecode(text)
    data = text.encode("utf-16-le", "surrogatepass")
    units = (ctypes.c_uint16 * (len(data) // 2 + 1))()
    ctypes.memmove(units, data, len(data))
    return units


def _units_to_str(pointer, count):
    return ctypes.string_at(pointer, 2 * count).decode("utf-16-le", "surrogatepass")


def _from_wide(pointer):
    """Zero-terminated UTF-16 text at an address -> str (NULL -> None)."""
    if not pointer:
        return None
    units = ctypes.cast(pointer, _WSTR)
    count = 0
    while units[count]:
        count += 1
    return _units_to_str(pointer, count)


def _buffer_to_str(buffer):
    """The zero-terminated text of a filled buffer of UTF-16 units."""
    return _units_to_str(buffer, buffer[:].index(0))


# A first buffer that holds most names and values; longer text is fetched again.
_FIRST_CAPACITY = 256


def _read_text(getter, *args):
    """Text from a wide getter under the caller-buffer protocol, or None.

    The getter answers 0 and reports the length it needs (text plus
    terminator) when the buffer is too small, and leaves the length alone
    when it fails; so a length that grew means "retry with that many".
    """
    capacity = _FIRST_CAPACITY
    while True:
        buffer = (ctypes.c_uint16 * capacity)()
        length = ctypes.c_int32(capacity)
        if getter(*args, buffer, ctypes.byref(length)) == 1:
            return _buffer_to_str(buffer)
        if length.value <= capacity:
            return None
        capacity = length.value


# ---------------------------------------------------------------------------
# DOM

def _navigation(export, doc):
    """A Node property answered by one of the library's navigation functions."""
    def get(node):
        return node._node(getattr(library(), export)(*node._args()))
    return property(get, doc=doc)


class Node:
    """A node of a Document's tree: a handle valid while the node is in the tree.

    Nodes compare equal when they are the same node. A node becomes invalid
    when it (or an ancestor) is removed, when its document loads another
    document, and when the document is closed; using it then raises
    ZuXmlError where that can be told, and is undefined where it cannot.
    """

    __slots__ = ("_document", "_handle", "_generation", "__weakref__")

    def __init__(self, document, handle):
        self._document = document
        self._handle = handle
        self._generation = document._generation

    def _args(self):
        if self._generation != self._document._generation:
            raise ZuXmlError("the node is no longer valid: removed, or its document replaced or closed")
        return self._document._checked(), self._handle

    def _node(self, handle):
        return Node(self._document, handle) if handle else None

    def __eq__(self, other):
        return isinstance(other, Node) and other._handle == self._handle

    def __hash__(self):
        return hash(self._handle)

    def __repr__(self):
        return "<zuxml.Node %s>" % (self.name,)

    @property
    def document(self):
        return self._document

    @property
    def handle(self):
        """The node handle as an int, for calls into the library itself."""
        return self._handle

    @property
    def type(self):
        """The DOM node type (ELEMENT_NODE, TEXT_NODE, COMMENT_NODE...)."""
        return library().ZuXmlGetNodeType(*self._args())

    @property
    def name(self):
        """The DOM node name: the qualified name of an element, "#text"..."""
        return _read_text(library().ZuXmlGetNodeNameW, *self._args())

    @property
    def local_name(self):
        """The local name; "" for nodes without a namespace-aware name."""
        return self._local_and_prefix()[0]

    @property
    def prefix(self):
        """The namespace prefix; "" when there is none."""
        return self._local_and_prefix()[1]

    def _local_and_prefix(self):
        lib = library()
        capacity = [_FIRST_CAPACITY, _FIRST_CAPACITY]
        while True:
            buffers = [(ctypes.c_uint16 * n)() for n in capacity]
            lengths = [ctypes.c_int32(n) for n in capacity]
            answer = lib.ZuXmlGetLocalNodeNameW(
                *self._args(), buffers[0], ctypes.byref(lengths[0]), buffers[1], ctypes.byref(lengths[1]))
            if answer == 1:
                return tuple(_buffer_to_str(b) for b in buffers)
            grown = [max(n, length.value) for n, length in zip(capacity, lengths)]
            if grown == capacity:
                raise ZuXmlError("cannot read the local name")
            capacity = grown

    @property
    def namespace(self):
        """The namespace URI, or None when the node has none."""
        return _read_text(library().ZuXmlGetNodeNamespaceW, *self._args())

    @property
    def text(self):
        """The text of the node and its descendants; setting it replaces the content."""
        return _read_text(library().ZuXmlGetNodeTextContentW, *self._args())

    @text.setter
    def text(self, value):
        if not library().ZuXmlSetNodeTextContentW(*self._args(), _wide(value)):
            raise ZuXmlError("cannot set the text content")

    # Navigation: each answers a Node or None.
    parent = _navigation("ZuXmlGetParentNode", "The parent (the document node above the root element).")
    previous_sibling = _navigation("ZuXmlGetPriviousSibling", "The previous sibling.")
    next_sibling = _navigation("ZuXmlGetNextSibling", "The next sibling.")
    first_child = _navigation("ZuXmlGetFirstChild", "The first child.")
    last_child = _navigation("ZuXmlGetLastChild", "The last child.")

    def __iter__(self):
        """The direct children, in document order."""
        child = self.first_child
        while child is not None:
            following = child.next_sibling
            yield child
            child = following

    @property
    def children(self):
        return list(self)

    def find(self, name):
        """The first direct child whose node name is exactly name, or None."""
        return self._node(library().ZuXmlFindChildW(*self._args(), _wide(name)))

    # Editing
    def append(self, name, text=None, namespace=None):
        """Appends a new element (name may carry a prefix with a namespace)."""
        handle = library().ZuXmlAddNodeW(*self._args(), _wide(name), ELEMENT_NODE, _wide(text), _wide(namespace))
        if not handle:
            raise ZuXmlError("cannot add element %r" % (name,))
        return Node(self._document, handle)

    def append_comment(self, text):
        handle = library().ZuXmlAddCommentW(*self._args(), _wide(text))
        if not handle:
            raise ZuXmlError("cannot add a comment")
        return Node(self._document, handle)

    def append_copy(self, source, deep=True):
        """Appends a copy of source, a Node of this or another document."""
        document, parent = self._args()
        source._args()
        handle = library().ZuXmlAddNodeExisting(document, parent, source._handle, 1 if deep else 0)
        if not handle:
            raise ZuXmlError("cannot copy the node")
        return Node(self._document, handle)

    def remove(self):
        """Removes the node and its subtree from the document; the node is invalid afterwards."""
        if not library().ZuXmlRemoveNode(*self._args()):
            raise ZuXmlError("cannot remove the node")
        self._generation = None

    # Attributes
    @property
    def attributes(self):
        """The attributes of an element as a dict, in the order of its attribute map."""
        lib = library()
        document, node = self._args()
        count = lib.ZuXmlGetNodeAttributeCount(document, node)
        if count < 0:
            raise ZuXmlError("not an element")
        return {
            _read_text(lib.ZuXmlGetNodeAttributeNameW, document, node, index):
            _read_text(lib.ZuXmlGetNodeAttributeValueIndexW, document, node, index)
            for index in range(count)
        }

    def get(self, name, default=None):
        value = _read_text(library().ZuXmlGetNodeAttributeValueNameW, *self._args(), _wide(name))
        return default if value is None else value

    def __getitem__(self, name):
        value = self.get(name)
        if value is None:
            raise KeyError(name)
        return value

    def __setitem__(self, name, value):
        if not library().ZuXmlAddNodeAttributeW(*self._args(), _wide(name), _wide(value)):
            raise ZuXmlError("cannot set attribute %r" % (name,))

    def __delitem__(self, name):
        if self.get(name) is None:
            raise KeyError(name)
        if not library().ZuXmlRemoveAttributeNameW(*self._args(), _wide(name)):
            raise ZuXmlError("cannot remove attribute %r" % (name,))

    def __contains__(self, name):
        return self.get(name) is not None


class _Handle:
    """What documents and parsers share: one release entry for both kinds,
    close() that may be called again, with blocks, and release at
    collection while the library is still loaded."""

    _handle = None

    @property
    def closed(self):
        return self._handle is None

    def close(self):
        """Releases the handle; calling it again does nothing."""
        if self._handle is not None:
            handle, self._handle = self._handle, None
            _open.discard(self)
            library().ZuXmlReleaseDocument(handle)
            self._released()

    def _released(self):
        pass

    def __enter__(self):
        return self

    def __exit__(self, *exc):
        self.close()

    def __del__(self):
        if self._handle is not None and _state["lib"] is not None:
            self.close()


class Document(_Handle):
    """A document handle; release it with close() or a with block."""

    def __init__(self):
        """A handle holding no document yet (see load and parse)."""
        self._generation = 0
        self._handle = library().ZuXmlCreateDocument()
        if not self._handle:
            raise MemoryError("cannot create a document handle")
        _open.add(self)

    @classmethod
    def _adopt(cls, handle):
        document = cls.__new__(cls)
        document._generation = 0
        document._handle = handle
        _open.add(document)
        return document

    @classmethod
    def create(cls, root, namespace=None, system_id=None):
        """A new document whose only element is root (with a document type when system_id is given)."""
        handle = library().ZuXmlCreateWriteDocumentW(_wide(root), _wide(namespace), _wide(system_id))
        if not handle:
            raise ZuXmlError("cannot create a document with root %r" % (root,))
        return cls._adopt(handle)

    @classmethod
    def from_file(cls, path):
        document = cls()
        try:
            document.load(path)
        except BaseException:
            document.close()
            raise
        return document

    @classmethod
    def from_string(cls, text):
        """A document parsed from str (bytes are parsed with their own encoding)."""
        document = cls()
        try:
            document.parse(text)
        except BaseException:
            document.close()
            raise
        return document

    def _checked(self):
        if self._handle is None:
            raise ZuXmlError("the document is closed")
        return self._handle

    def _replaced(self, answer, what):
        self._generation += 1
        if answer != 1:
            raise ZuXmlError("cannot load " + what)

    def load(self, path):
        """Loads a file (or URI), replacing what the handle held."""
        self._replaced(library().ZuXmlLoadFromFileW(self._checked(), _wide(path)), str(path))

    def parse(self, text):
        """Parses str as UTF-16 text, or bytes with the encoding they declare."""
        lib = library()
        if isinstance(text, (bytes, bytearray, memoryview)):
            data = bytes(text)
            answer = lib.ZuXmlLoadFromBufA(self._checked(), data, len(data))
        else:
            units = _wide(text)
            answer = lib.ZuXmlLoadFromBufW(self._checked(), units, len(units) - 1)
        self._replaced(answer, "the text")

    def write(self, path, pretty=True):
        """Writes the document to a file, indented unless pretty is False."""
        write = library().ZuXmlWriteW if pretty else library().ZuXmlWriteNoPrettyW
        if not write(self._checked(), _wide(os.fspath(path))):
            raise ZuXmlError("cannot write %s" % (path,))

    def to_string(self):
        """The document as XML text (never indented)."""
        text = _read_text(library().ZuXmlWriteToStringW, self._checked())
        if text is None:
            raise ZuXmlError("the handle holds no document")
        return text

    def __str__(self):
        return self.to_string()

    @property
    def root(self):
        """The document element, or None."""
        handle = library().ZuXmlGetRootNode(self._checked())
        return Node(self, handle) if handle else None

    @property
    def handle(self):
        """The document handle as an int, for calls into the library itself."""
        return self._checked()

    def _released(self):
        # Every node handed out belonged to the released document.
        self._generation += 1


# ---------------------------------------------------------------------------
# SAX2

class Sax2Parser(_Handle):
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

    _EVENTS = ("start_document", "end_document", "start_element", "attribute",
               "attributes_done", "end_element", "comment", "diagnostic")

    def __init__(self, handler=None, **callbacks):
        unknown = set(callbacks) - set(self._EVENTS)
        if unknown:
            raise TypeError("unknown callbacks: " + ", ".join(sorted(unknown)))
        self._callables = {}
        for event in self._EVENTS:
            function = callbacks.get(event) or getattr(handler, event, None)
            if function is not None:
                self._callables[event] = function
        self._error = None
        self._handle = library().ZuXmlCreateSax2Parser(None)
        if not self._handle:
            raise MemoryError("cannot create a parser")
        _open.add(self)
        self._install()

    def _guard(self, event, convert):
        function = self._callables.get(event)

        def call(_parser, _context, *args):
            if self._error is not None:
                return
            try:
                function(*convert(args))
            except BaseException as error:  # handed back by parse()
                self._error = error
                self.stop()
        return call

    def _install(self):
        text = _from_wide
        has = self._callables.__contains__
        plain = lambda args: args  # noqa: E731
        converters = {
            "start_document": plain,
            "end_document": plain,
            "start_element": lambda a: (a[0], a[1], text(a[2]), text(a[3]), text(a[4])),
            "attribute": lambda a: (a[0], a[1]) + tuple(text(p) for p in a[2:]),
            "attributes_done": plain,
            "end_element": lambda a: (a[0],) + tuple(text(p) for p in a[1:]),
            "comment": lambda a: (a[0], text(a[1])),
            "diagnostic": lambda a: (a[0], text(a[1])),
        }
        types = (_START_DOCUMENT, _END_DOCUMENT, _START_ELEMENT, _ATTRIBUTE,
                 _ATTRIBUTES_DONE, _END_ELEMENT, _COMMENT, _DIAGNOSTIC)
        table = [
            kind(self._guard(event, converters[event])) if has(event) else kind()
            for event, kind in zip(self._EVENTS, types)
        ]
        # Attribute and AttributesDone events come only with a start-element
        # entry, so one that does nothing stands in when none was given.
        if not has("start_element") and (has("attribute") or has("attributes_done")):
            table[2] = _START_ELEMENT(lambda *args: None)
        # AttributesDone is called when the narrow attribute entry is set; that
        # entry itself is never called while the wide start-element entry serves.
        narrow_attribute = _NARROW_ATTRIBUTE(lambda *args: None) if has("attributes_done") else _NARROW_ATTRIBUTE()
        lib = library()
        lib.ZuXmlSetSax2ParserCallbacksW(self._handle, *table)
        lib.ZuXmlSetSax2ParserCallbacksA(self._handle, _START_DOCUMENT(), _END_DOCUMENT(), None,
                                         narrow_attribute, _ATTRIBUTES_DONE(), None, None, None)
        # The library keeps only the pointers: the function objects must live
        # as long as the parser.
        self._table = (table, narrow_attribute)

    def _checked(self):
        if self._handle is None:
            raise ZuXmlError("the parser is closed")
        return self._handle

    def parse(self, path, progressive=True):
        """Streams the file through the callbacks.

        progressive=True parses step by step so that stop() can end the parse
        early; False parses in one call, which stop() does not interrupt.
        Raises ZuXmlError when the library reports a failure (the parse
        exception's message is printed on standard output by the library).
        """
        handle = self._checked()
        self._error = None
        answer = library().ZuXmlSax2LoadFromFileW(handle, _wide(os.fspath(path)), 1 if progressive else 0)
        error, self._error = self._error, None
        if error is not None:
            raise error
        if answer == -1:
            raise ZuXmlError("parse error in %s" % (path,))
        if answer != 1:
            raise ZuXmlError("cannot parse %s" % (path,))

    def stop(self):
        """Asks a running progressive parse to stop before its next step."""
        if self._handle is not None:
            library().ZuXmlSax2StopLoadFromFile(self._handle)

    def location(self):
        """(line, column) of the parse while it runs, or None."""
        line, column = ctypes.c_uint64(), ctypes.c_uint64()
        if library().ZuXmlGetSax2CurrentLocation(self._checked(), ctypes.byref(line), ctypes.byref(column)):
            return line.value, column.value
        return None

    def _released(self):
        self._table = None
