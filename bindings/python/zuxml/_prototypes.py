# SPDX-License-Identifier: Apache-2.0
"""The C declarations of include/zuxml.h as ctypes types: every exported
function with its result and argument types, and the callback types of the
SAX2 tables.

Text arguments keep the header's types: wide text is a pointer to 16-bit
units (the binding passes arrays of c_uint16, which are UTF-16 on every
platform, where c_wchar is 32 bits on Linux), narrow text is c_char_p.
"""

import ctypes
from typing import Any, Dict, List, Optional, Tuple

HANDLE = ctypes.c_void_p
I32 = ctypes.c_int32
U32 = ctypes.c_uint32
U16 = ctypes.c_uint16
WSTR = ctypes.POINTER(ctypes.c_uint16)
ASTR = ctypes.c_char_p
LENGTH = ctypes.POINTER(ctypes.c_int32)
POSITION = ctypes.POINTER(ctypes.c_uint64)
VOIDP = ctypes.c_void_p

# Callbacks: hParser and pContext first, then the event's own arguments.
START_DOCUMENT = ctypes.CFUNCTYPE(None, HANDLE, VOIDP)
END_DOCUMENT = ctypes.CFUNCTYPE(None, HANDLE, VOIDP)
ATTRIBUTES_DONE = ctypes.CFUNCTYPE(None, HANDLE, VOIDP, I32)
START_ELEMENT_W = ctypes.CFUNCTYPE(None, HANDLE, VOIDP, I32, I32, WSTR, WSTR, WSTR)
START_ELEMENT_A = ctypes.CFUNCTYPE(None, HANDLE, VOIDP, I32, I32, ASTR, ASTR, ASTR)
ATTRIBUTE_W = ctypes.CFUNCTYPE(None, HANDLE, VOIDP, I32, I32, WSTR, WSTR, WSTR, WSTR, WSTR)
ATTRIBUTE_A = ctypes.CFUNCTYPE(None, HANDLE, VOIDP, I32, I32, ASTR, ASTR, ASTR, ASTR, ASTR)
END_ELEMENT_W = ctypes.CFUNCTYPE(None, HANDLE, VOIDP, I32, WSTR, WSTR, WSTR, WSTR)
END_ELEMENT_A = ctypes.CFUNCTYPE(None, HANDLE, VOIDP, I32, ASTR, ASTR, ASTR, ASTR)
COMMENT_W = ctypes.CFUNCTYPE(None, HANDLE, VOIDP, I32, WSTR)
COMMENT_A = ctypes.CFUNCTYPE(None, HANDLE, VOIDP, I32, ASTR)
DIAGNOSTIC_W = ctypes.CFUNCTYPE(None, HANDLE, VOIDP, I32, WSTR)
DIAGNOSTIC_A = ctypes.CFUNCTYPE(None, HANDLE, VOIDP, I32, ASTR)

# The callback types by the header's typedef names.
CALLBACK_TYPES: Dict[str, Any] = {
    "ZuXmlSax2StartDocumentCallback": START_DOCUMENT,
    "ZuXmlSax2EndDocumentCallback": END_DOCUMENT,
    "ZuXmlSax2StartElementCallbackW": START_ELEMENT_W,
    "ZuXmlSax2StartElementCallbackA": START_ELEMENT_A,
    "ZuXmlSax2AttributeCallbackW": ATTRIBUTE_W,
    "ZuXmlSax2AttributeCallbackA": ATTRIBUTE_A,
    "ZuXmlSax2AttributesDoneCallback": ATTRIBUTES_DONE,
    "ZuXmlSax2EndElementCallbackW": END_ELEMENT_W,
    "ZuXmlSax2EndElementCallbackA": END_ELEMENT_A,
    "ZuXmlSax2CommentCallbackW": COMMENT_W,
    "ZuXmlSax2CommentCallbackA": COMMENT_A,
    "ZuXmlSax2DiagnosticCallbackW": DIAGNOSTIC_W,
    "ZuXmlSax2DiagnosticCallbackA": DIAGNOSTIC_A,
}

# The eight entries of a table, in the order the setters take them.
WIDE_TABLE = (START_DOCUMENT, END_DOCUMENT, START_ELEMENT_W, ATTRIBUTE_W,
              ATTRIBUTES_DONE, END_ELEMENT_W, COMMENT_W, DIAGNOSTIC_W)
NARROW_TABLE = (START_DOCUMENT, END_DOCUMENT, START_ELEMENT_A, ATTRIBUTE_A,
                ATTRIBUTES_DONE, END_ELEMENT_A, COMMENT_A, DIAGNOSTIC_A)

Prototype = Tuple[Optional[Any], List[Any]]


# Every exported function: (restype, argtypes), in the order of the header.
PROTOTYPES: Dict[str, Prototype] = {
    "ZuXmlInit": (I32, []),
    "ZuXmlSax2Init": (I32, []),
    "ZuXmlCleanup": (I32, []),
    "ZuXmlSax2Cleanup": (I32, []),
    "ZuXmlCreateDocument": (HANDLE, []),
    "ZuXmlCreateWriteDocumentW": (HANDLE, [WSTR, WSTR, WSTR]),
    "ZuXmlCreateWriteDocumentA": (HANDLE, [ASTR, ASTR, ASTR]),
    "ZuXmlReleaseDocument": (I32, [HANDLE]),
    "ZuXmlLoadFromFileW": (I32, [HANDLE, WSTR]),
    "ZuXmlLoadFromFileA": (I32, [HANDLE, ASTR]),
    "ZuXmlLoadFromBufA": (I32, [HANDLE, VOIDP, U32]),
    "ZuXmlLoadFromBufW": (I32, [HANDLE, WSTR, U32]),
    "ZuXmlWriteW": (I32, [HANDLE, WSTR]),
    "ZuXmlWriteA": (I32, [HANDLE, ASTR]),
    "ZuXmlWriteNoPrettyW": (I32, [HANDLE, WSTR]),
    "ZuXmlWriteNoPrettyA": (I32, [HANDLE, ASTR]),
    "ZuXmlWriteToStringW": (I32, [HANDLE, WSTR, LENGTH]),
    "ZuXmlWriteToStringA": (I32, [HANDLE, ASTR, LENGTH]),
    "ZuXmlGetRootNode": (HANDLE, [HANDLE]),
    "ZuXmlGetParentNode": (HANDLE, [HANDLE, HANDLE]),
    "ZuXmlGetPriviousSibling": (HANDLE, [HANDLE, HANDLE]),
    "ZuXmlGetNextSibling": (HANDLE, [HANDLE, HANDLE]),
    "ZuXmlGetFirstChild": (HANDLE, [HANDLE, HANDLE]),
    "ZuXmlGetLastChild": (HANDLE, [HANDLE, HANDLE]),
    "ZuXmlFindChildW": (HANDLE, [HANDLE, HANDLE, WSTR]),
    "ZuXmlFindChildA": (HANDLE, [HANDLE, HANDLE, ASTR]),
    "ZuXmlGetNodeType": (U16, [HANDLE, HANDLE]),
    "ZuXmlGetNodeNameW": (I32, [HANDLE, HANDLE, WSTR, LENGTH]),
    "ZuXmlGetNodeNameA": (I32, [HANDLE, HANDLE, ASTR, LENGTH]),
    "ZuXmlGetLocalNodeNameW": (I32, [HANDLE, HANDLE, WSTR, LENGTH, WSTR, LENGTH]),
    "ZuXmlGetLocalNodeNameA": (I32, [HANDLE, HANDLE, ASTR, LENGTH, ASTR, LENGTH]),
    "ZuXmlGetNodeTextContentW": (I32, [HANDLE, HANDLE, WSTR, LENGTH]),
    "ZuXmlGetNodeTextContentA": (I32, [HANDLE, HANDLE, ASTR, LENGTH]),
    "ZuXmlGetNodeNamespaceW": (I32, [HANDLE, HANDLE, WSTR, LENGTH]),
    "ZuXmlGetNodeNamespaceA": (I32, [HANDLE, HANDLE, ASTR, LENGTH]),
    "ZuXmlAddNodeW": (HANDLE, [HANDLE, HANDLE, WSTR, U16, WSTR, WSTR]),
    "ZuXmlAddNodeA": (HANDLE, [HANDLE, HANDLE, ASTR, U16, ASTR, ASTR]),
    "ZuXmlAddCommentW": (HANDLE, [HANDLE, HANDLE, WSTR]),
    "ZuXmlAddCommentA": (HANDLE, [HANDLE, HANDLE, ASTR]),
    "ZuXmlAddNodeExisting": (HANDLE, [HANDLE, HANDLE, HANDLE, I32]),
    "ZuXmlRemoveNode": (I32, [HANDLE, HANDLE]),
    "ZuXmlSetNodeTextContentW": (I32, [HANDLE, HANDLE, WSTR]),
    "ZuXmlSetNodeTextContentA": (I32, [HANDLE, HANDLE, ASTR]),
    "ZuXmlGetNodeAttributeCount": (I32, [HANDLE, HANDLE]),
    "ZuXmlGetNodeAttributeNameW": (I32, [HANDLE, HANDLE, I32, WSTR, LENGTH]),
    "ZuXmlGetNodeAttributeNameA": (I32, [HANDLE, HANDLE, I32, ASTR, LENGTH]),
    "ZuXmlGetNodeAttributeValueIndexW": (I32, [HANDLE, HANDLE, I32, WSTR, LENGTH]),
    "ZuXmlGetNodeAttributeValueIndexA": (I32, [HANDLE, HANDLE, I32, ASTR, LENGTH]),
    "ZuXmlGetNodeAttributeValueNameW": (I32, [HANDLE, HANDLE, WSTR, WSTR, LENGTH]),
    "ZuXmlGetNodeAttributeValueNameA": (I32, [HANDLE, HANDLE, ASTR, ASTR, LENGTH]),
    "ZuXmlAddNodeAttributeW": (I32, [HANDLE, HANDLE, WSTR, WSTR]),
    "ZuXmlAddNodeAttributeA": (I32, [HANDLE, HANDLE, ASTR, ASTR]),
    "ZuXmlSetNodeAttributeValueW": (I32, [HANDLE, HANDLE, WSTR, WSTR]),
    "ZuXmlSetNodeAttributeValueA": (I32, [HANDLE, HANDLE, ASTR, ASTR]),
    "ZuXmlRemoveAttributeIndex": (I32, [HANDLE, HANDLE, I32]),
    "ZuXmlRemoveAttributeNameW": (I32, [HANDLE, HANDLE, WSTR]),
    "ZuXmlRemoveAttributeNameA": (I32, [HANDLE, HANDLE, ASTR]),
    "ZuXmlCreateSax2Parser": (HANDLE, [VOIDP]),
    "ZuXmlReleaseSax2Parser": (I32, [HANDLE]),
    "ZuXmlSetSax2ParserCallbacksW": (I32, [HANDLE, *WIDE_TABLE]),
    "ZuXmlSetSax2ParserCallbacksA": (I32, [HANDLE, *NARROW_TABLE]),
    "ZuXmlSax2LoadFromFileW": (I32, [HANDLE, WSTR, I32]),
    "ZuXmlSax2LoadFromFileA": (I32, [HANDLE, ASTR, I32]),
    "ZuXmlSax2StopLoadFromFile": (None, [HANDLE]),
    "ZuXmlGetSax2CurrentLocation": (I32, [HANDLE, POSITION, POSITION]),
}
