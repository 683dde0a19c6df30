# SPDX-License-Identifier: Apache-2.0
"""Documents and their nodes over the library's DOM functions."""

import ctypes
from typing import Any, Callable, Dict, Iterator, List, Optional, Tuple, Union

from ._handle import Handle
from ._library import ZuXmlError, library
from ._text import FIRST_CAPACITY, Text, buffer_to_str, read_text, wide

ELEMENT_NODE = 1
ATTRIBUTE_NODE = 2
TEXT_NODE = 3
CDATA_SECTION_NODE = 4
PROCESSING_INSTRUCTION_NODE = 7
COMMENT_NODE = 8
DOCUMENT_NODE = 9
DOCUMENT_TYPE_NODE = 10


def _navigation(export: str, doc: str) -> Any:
    """A Node property answered by one of the library's navigation functions."""
    def get(node: "Node") -> Optional["Node"]:
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

    def __init__(self, document: "Document", handle: int) -> None:
        self._document = document
        self._handle = handle
        self._generation: Optional[int] = document._generation

    def _args(self) -> Tuple[int, int]:
        if self._generation != self._document._generation:
            raise ZuXmlError("the node is no longer valid: removed, or its document replaced or closed")
        return self._document._checked(), self._handle

    def _node(self, handle: Optional[int]) -> Optional["Node"]:
        return Node(self._document, handle) if handle else None

    def _made(self, handle: Optional[int], what: str) -> "Node":
        if not handle:
            raise ZuXmlError("cannot add " + what)
        return Node(self._document, handle)

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Node) and other._handle == self._handle

    def __hash__(self) -> int:
        return hash(self._handle)

    def __repr__(self) -> str:
        return "<zuxml.Node %s>" % (self.name,)

    @property
    def document(self) -> "Document":
        return self._document

    @property
    def handle(self) -> int:
        """The node handle as an int, for calls into the library itself."""
        return self._handle

    @property
    def type(self) -> int:
        """The DOM node type (ELEMENT_NODE, TEXT_NODE, COMMENT_NODE...)."""
        return int(library().ZuXmlGetNodeType(*self._args()))

    @property
    def name(self) -> Optional[str]:
        """The DOM node name: the qualified name of an element, "#text"..."""
        return read_text(library().ZuXmlGetNodeNameW, *self._args())

    @property
    def local_name(self) -> str:
        """The local name; "" for nodes without a namespace-aware name."""
        return self._local_and_prefix()[0]

    @property
    def prefix(self) -> str:
        """The namespace prefix; "" when there is none."""
        return self._local_and_prefix()[1]

    def _local_and_prefix(self) -> Tuple[str, str]:
        # Two buffers under the protocol at once: each reports its own need.
        lib = library()
        capacity = [FIRST_CAPACITY, FIRST_CAPACITY]
        while True:
            buffers = [(ctypes.c_uint16 * n)() for n in capacity]
            lengths = [ctypes.c_int32(n) for n in capacity]
            answer = lib.ZuXmlGetLocalNodeNameW(
                *self._args(), buffers[0], ctypes.byref(lengths[0]), buffers[1], ctypes.byref(lengths[1]))
            if answer == 1:
                return buffer_to_str(buffers[0]), buffer_to_str(buffers[1])
            grown = [max(n, length.value) for n, length in zip(capacity, lengths)]
            if grown == capacity:
                raise ZuXmlError("cannot read the local name")
            capacity = grown

    @property
    def namespace(self) -> Optional[str]:
        """The namespace URI, or None when the node has none."""
        return read_text(library().ZuXmlGetNodeNamespaceW, *self._args())

    @property
    def text(self) -> Optional[str]:
        """The text of the node and its descendants; setting it replaces the content."""
        return read_text(library().ZuXmlGetNodeTextContentW, *self._args())

    @text.setter
    def text(self, value: Optional[str]) -> None:
        if not library().ZuXmlSetNodeTextContentW(*self._args(), wide(value)):
            raise ZuXmlError("cannot set the text content")

    # Navigation: each answers a Node or None.
    parent = _navigation("ZuXmlGetParentNode", "The parent (the document node above the root element).")
    previous_sibling = _navigation("ZuXmlGetPriviousSibling", "The previous sibling.")
    next_sibling = _navigation("ZuXmlGetNextSibling", "The next sibling.")
    first_child = _navigation("ZuXmlGetFirstChild", "The first child.")
    last_child = _navigation("ZuXmlGetLastChild", "The last child.")

    def __iter__(self) -> Iterator["Node"]:
        """The direct children, in document order."""
        child = self.first_child
        while child is not None:
            following = child.next_sibling
            yield child
            child = following

    @property
    def children(self) -> List["Node"]:
        return list(self)

    def find(self, name: str) -> Optional["Node"]:
        """The first direct child whose node name is exactly name, or None."""
        return self._node(library().ZuXmlFindChildW(*self._args(), wide(name)))

    # Editing
    def append(self, name: str, text: Optional[str] = None, namespace: Optional[str] = None) -> "Node":
        """Appends a new element (name may carry a prefix with a namespace)."""
        handle = library().ZuXmlAddNodeW(*self._args(), wide(name), ELEMENT_NODE, wide(text), wide(namespace))
        return self._made(handle, "element %r" % (name,))

    def append_comment(self, text: str) -> "Node":
        return self._made(library().ZuXmlAddCommentW(*self._args(), wide(text)), "a comment")

    def append_copy(self, source: "Node", deep: bool = True) -> "Node":
        """Appends a copy of source, a Node of this or another document."""
        document, parent = self._args()
        source._args()
        handle = library().ZuXmlAddNodeExisting(document, parent, source._handle, 1 if deep else 0)
        return self._made(handle, "a copy of the node")

    def remove(self) -> None:
        """Removes the node and its subtree from the document; the node is invalid afterwards."""
        if not library().ZuXmlRemoveNode(*self._args()):
            raise ZuXmlError("cannot remove the node")
        self._generation = None

    # Attributes
    @property
    def attributes(self) -> Dict[Optional[str], Optional[str]]:
        """The attributes of an element as a dict, in the order of its attribute map."""
        lib = library()
        document, node = self._args()
        count = lib.ZuXmlGetNodeAttributeCount(document, node)
        if count < 0:
            raise ZuXmlError("not an element")
        return {
            read_text(lib.ZuXmlGetNodeAttributeNameW, document, node, index):
            read_text(lib.ZuXmlGetNodeAttributeValueIndexW, document, node, index)
            for index in range(count)
        }

    def get(self, name: str, default: Optional[str] = None) -> Optional[str]:
        value = read_text(library().ZuXmlGetNodeAttributeValueNameW, *self._args(), wide(name))
        return default if value is None else value

    def __getitem__(self, name: str) -> str:
        value = self.get(name)
        if value is None:
            raise KeyError(name)
        return value

    def __setitem__(self, name: str, value: str) -> None:
        if not library().ZuXmlAddNodeAttributeW(*self._args(), wide(name), wide(value)):
            raise ZuXmlError("cannot set attribute %r" % (name,))

    def __delitem__(self, name: str) -> None:
        if self.get(name) is None:
            raise KeyError(name)
        if not library().ZuXmlRemoveAttributeNameW(*self._args(), wide(name)):
            raise ZuXmlError("cannot remove attribute %r" % (name,))

    def __contains__(self, name: object) -> bool:
        return isinstance(name, str) and self.get(name) is not None


class Document(Handle):
    """A document handle; release it with close() or a with block."""

    def __init__(self) -> None:
        """A handle holding no document yet (see load and parse)."""
        self._generation = 0
        self._register(library().ZuXmlCreateDocument(), "a document handle")

    @classmethod
    def create(cls, root: str, namespace: Optional[str] = None, system_id: Optional[str] = None) -> "Document":
        """A new document whose only element is root (with a document type when system_id is given)."""
        handle = library().ZuXmlCreateWriteDocumentW(wide(root), wide(namespace), wide(system_id))
        if not handle:
            raise ZuXmlError("cannot create a document with root %r" % (root,))
        document = cls.__new__(cls)
        document._generation = 0
        document._register(handle, "a document handle")
        return document

    @classmethod
    def _loaded(cls, load: Callable[["Document"], None]) -> "Document":
        document = cls()
        try:
            load(document)
        except BaseException:
            document.close()
            raise
        return document

    @classmethod
    def from_file(cls, path: Text) -> "Document":
        return cls._loaded(lambda document: document.load(path))

    @classmethod
    def from_string(cls, text: Union[str, bytes]) -> "Document":
        """A document parsed from str (bytes are parsed with their own encoding)."""
        return cls._loaded(lambda document: document.parse(text))

    def _checked(self) -> int:
        if self._handle is None:
            raise ZuXmlError("the document is closed")
        return self._handle

    def _replaced(self, answer: int, what: str) -> None:
        self._generation += 1
        if answer != 1:
            raise ZuXmlError("cannot load " + what)

    def load(self, path: Text) -> None:
        """Loads a file (or URI), replacing what the handle held."""
        self._replaced(library().ZuXmlLoadFromFileW(self._checked(), wide(path)), str(path))

    def parse(self, text: Union[str, bytes, bytearray, memoryview]) -> None:
        """Parses str as UTF-16 text, or bytes with the encoding they declare."""
        lib = library()
        if isinstance(text, (bytes, bytearray, memoryview)):
            data = bytes(text)
            answer = lib.ZuXmlLoadFromBufA(self._checked(), data, len(data))
        else:
            units = wide(text)
            assert units is not None
            answer = lib.ZuXmlLoadFromBufW(self._checked(), units, len(units) - 1)
        self._replaced(answer, "the text")

    def write(self, path: Text, pretty: bool = True) -> None:
        """Writes the document to a file, indented unless pretty is False."""
        write = library().ZuXmlWriteW if pretty else library().ZuXmlWriteNoPrettyW
        if not write(self._checked(), wide(path)):
            raise ZuXmlError("cannot write %s" % (path,))

    def to_string(self) -> str:
        """The document as XML text (never indented)."""
        text = read_text(library().ZuXmlWriteToStringW, self._checked())
        if text is None:
            raise ZuXmlError("the handle holds no document")
        return text

    def __str__(self) -> str:
        return self.to_string()

    @property
    def root(self) -> Optional[Node]:
        """The document element, or None."""
        handle = library().ZuXmlGetRootNode(self._checked())
        return Node(self, handle) if handle else None

    @property
    def handle(self) -> int:
        """The document handle as an int, for calls into the library itself."""
        return self._checked()

    def _released(self) -> None:
        # Every node handed out belonged to the released document.
        self._generation += 1
