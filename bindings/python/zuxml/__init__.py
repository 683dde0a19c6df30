# SPDX-License-Identifier: Apache-2.0
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
zuxml.library() answers the library itself with every function typed as the
header declares it.
"""

from ._library import ZuXmlError, library
from .dom import (ATTRIBUTE_NODE, CDATA_SECTION_NODE, COMMENT_NODE, DOCUMENT_NODE, DOCUMENT_TYPE_NODE,
                  ELEMENT_NODE, PROCESSING_INSTRUCTION_NODE, TEXT_NODE, Document, Node)
from .sax2 import SAX2_ERROR, SAX2_FATAL_ERROR, SAX2_WARNING, Sax2Parser

__all__ = [
    "Document",
    "Node",
    "Sax2Parser",
    "ZuXmlError",
    "SAX2_ERROR",
    "SAX2_FATAL_ERROR",
    "SAX2_WARNING",
    "ELEMENT_NODE",
    "ATTRIBUTE_NODE",
    "TEXT_NODE",
    "CDATA_SECTION_NODE",
    "PROCESSING_INSTRUCTION_NODE",
    "COMMENT_NODE",
    "DOCUMENT_NODE",
    "DOCUMENT_TYPE_NODE",
    "library",
]
