/* SPDX-License-Identifier: Apache-2.0 */
/**
 * \file zuxml.h
 * \brief The one public interface of ZuXml.
 *
 * ZuXml gives programs that speak plain C access to XML documents through
 * Xerces-C++ 3.2: a DOM interface over document and node handles, and SAX2
 * streaming through tables of caller callbacks. The interface is a fixed
 * table of 65 functions; their names and ordinals never change.
 *
 * Conventions, stated once for every function below:
 *
 * \par Handles
 *   ZuXmlDocument and ZuXmlSax2Parser are opaque pointers made by
 *   ZuXmlCreateDocument() / ZuXmlCreateWriteDocumentW() and
 *   ZuXmlCreateSax2Parser() and owned by the caller until released with
 *   ZuXmlReleaseDocument() (which is the same function as
 *   ZuXmlReleaseSax2Parser() and releases either kind). ZuXmlNode is a node
 *   of the document's DOM tree, handed out as it is: it lives until the node
 *   is removed, the document is replaced by another load or create, or the
 *   document handle is released. Node handles are never released by the
 *   caller.
 *
 * \par Results
 *   Functions that succeed or fail answer 1 or 0. Exceptions are named at
 *   the function: ZuXmlGetNodeAttributeCount() answers -1 on failure, the
 *   SAX2 loads answer -1 for a parse exception. Functions that create or
 *   navigate answer a handle, or NULL.
 *
 * \par Null handles
 *   A NULL document or parser handle is rejected with the function's
 *   failure value; ZuXmlReleaseDocument() answers 1 for NULL. NULL node
 *   handles are checked wherever a node is taken; a few functions read a
 *   NULL node as the root element and say so.
 *
 * \anchor caller_buffers
 * \par Caller buffers
 *   Every getter of text takes a buffer and a pointer to its length in
 *   characters (`int32_t`). With text of L characters:
 *   - if `*pnLength <= L` (zero and negative lengths included), the buffer
 *     is not written, `*pnLength` is set to L + 1 and the getter answers 0:
 *     call again with a buffer of that many characters;
 *   - otherwise the text, its terminator and zeros up to `*pnLength`
 *     characters are written, `*pnLength` is left unchanged and the getter
 *     answers 1.
 * \par
 *   If the operation itself fails (no document, no such node...), neither
 *   buffer nor length is touched by the wide form. With a length of 0 or
 *   less the buffer may be NULL: the getter only reports the length it
 *   needs.
 *
 * \anchor wide_and_narrow
 * \par Wide and narrow text
 *   Functions ending in W take and return zero-terminated strings of 16-bit
 *   UTF-16 code units (ZuXmlWChar: `wchar_t` on Windows, `char16_t`
 *   elsewhere), handed to and from Xerces unchanged. Functions ending in A
 *   take and return multibyte text of the C runtime's current locale (set it
 *   with `setlocale`; the "C" locale is ASCII only). A narrow argument that
 *   is NULL stays NULL; one that is not valid in the locale becomes the
 *   empty string.
 * \par
 *   A narrow getter behaves as if its wide twin filled a wide buffer of
 *   `*pnLength + 1` characters that is then converted into the caller's
 *   buffer, writing at most `*pnLength` bytes. That explains its
 *   asymmetries: the length, also the one reported on a too-small answer,
 *   counts wide characters, not bytes, and text whose multibyte form is
 *   longer than its wide form is cut at `*pnLength` bytes, then without a
 *   terminator. A caller that wants all of it allocates
 *   `length * MB_CUR_MAX` bytes and passes that size as the length. Its
 *   first byte is always written: on any answer other than 1 the buffer
 *   holds the empty string.
 *
 * \par Ownership
 *   Text returned to the caller is always copied into the caller's buffers;
 *   the library never hands out memory to be freed.
 *
 * \par Threads
 *   ZuXmlInit() and ZuXmlCleanup() must not overlap any other call. A handle
 *   is used by one thread at a time; different handles may be used from
 *   different threads. ZuXmlSax2StopLoadFromFile() may be called from any
 *   thread while a load runs.
 */
#ifndef ZUXML_H
#define ZUXML_H

#include <stddef.h>
#include <stdint.h>
#if !defined(_WIN32) && !defined(__cplusplus)
#include <uchar.h>
#endif

/** Major version: changes only when a name, ordinal or contract changes. */
#define ZUXML_VERSION_MAJOR 1
/** Minor version: changes when behaviour is added compatibly. */
#define ZUXML_VERSION_MINOR 0
/** Patch version: changes with fixes alone. */
#define ZUXML_VERSION_PATCH 0

/**
 * \def ZUXML_API
 * Marks a function of the interface: default visibility with GCC and Clang.
 * On Windows, where exports/ZUXML.def binds the names to ordinals, callers
 * import the functions from ZUXML.dll, so that a function's address is the
 * DLL's own and the shared second names compare equal; the library itself
 * is built with ZUXML_BUILDING defined.
 */
#if defined(_WIN32) && defined(ZUXML_BUILDING)
#define ZUXML_API
#elif defined(_WIN32)
#define ZUXML_API __declspec(dllimport)
#elif defined(__GNUC__)
#define ZUXML_API __attribute__((visibility("default")))
#else
#define ZUXML_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** One UTF-16 code unit: the platform's wide character where it is 16 bits. */
#if defined(_WIN32)
typedef wchar_t ZuXmlWChar;
#else
typedef char16_t ZuXmlWChar;
#endif

/** A document handle (a CZUXMLDocument). */
typedef void *ZuXmlDocument;
/** A node of a document's DOM tree; NULL means no node. */
typedef void *ZuXmlNode;
/** A SAX2 streaming parser handle (a CZUXMLSax2). */
typedef void *ZuXmlSax2Parser;

/* ------------------------------------------------------------------------
 * Lifecycle
 * --------------------------------------------------------------------- */

/**
 * \defgroup lifecycle Lifecycle
 * \brief Starting and stopping Xerces around all other calls.
 * \{
 */

/** \name Initialisation
 * \{ */
/**
 * Initialises Xerces. Call once before anything else (each call
 * initialises again; Xerces counts them). ZuXmlSax2Init() is the same
 * function under a second name.
 * \retval 1 Xerces is ready.
 * \retval 0 Xerces reported an XMLException while initialising.
 */
ZUXML_API int32_t ZuXmlInit(void);
ZUXML_API int32_t ZuXmlSax2Init(void);
/** \} */

/** \name Termination
 * \{ */
/**
 * Terminates Xerces. Handles still alive are not released: release them
 * first. ZuXmlSax2Cleanup() is the same function under a second name.
 * \return 1.
 */
ZUXML_API int32_t ZuXmlCleanup(void);
ZUXML_API int32_t ZuXmlSax2Cleanup(void);
/** \} */

/** \} */

/* ------------------------------------------------------------------------
 * Documents
 * --------------------------------------------------------------------- */

/**
 * \defgroup documents Documents
 * \brief Creating, loading and releasing document handles.
 * \{
 */

/**
 * A new document handle holding no document, to be loaded with
 * ZuXmlLoadFromFileW() or a buffer load.
 * \return The handle, owned by the caller until ZuXmlReleaseDocument(); NULL
 *         if it cannot be allocated.
 */
ZUXML_API ZuXmlDocument ZuXmlCreateDocument(void);

/** \name Creating a document to write
 * \{ */
/**
 * A new document handle holding a new document whose only element is the
 * root. When \p szSystemId is not NULL a document type named like the root,
 * with that system identifier and no public identifier, comes first.
 * \param szRoot      Qualified name of the root element (may carry a prefix
 *                    when \p szNamespace is given).
 * \param szNamespace Namespace URI of the root element, or NULL for none.
 * \param szSystemId  System identifier of a document type, or NULL for no
 *                    document type.
 * \return The handle, owned by the caller until ZuXmlReleaseDocument(); NULL
 *         when \p szRoot is not a valid XML name or the document cannot be
 *         built.
 */
ZUXML_API ZuXmlDocument ZuXmlCreateWriteDocumentW(const ZuXmlWChar *szRoot, const ZuXmlWChar *szNamespace,
                                                  const ZuXmlWChar *szSystemId);
ZUXML_API ZuXmlDocument ZuXmlCreateWriteDocumentA(const char *szRoot, const char *szNamespace,
                                                  const char *szSystemId);
/** \} */

/**
 * Releases a document or a SAX2 parser handle and everything it owns; the
 * handle and its node handles are invalid afterwards.
 * ZuXmlReleaseSax2Parser() is the same function under a second name.
 * \param hDocument A document or parser handle, or NULL (nothing is done).
 * \return 1, also for NULL.
 */
ZUXML_API int32_t ZuXmlReleaseDocument(ZuXmlDocument hDocument);

/** \name Loading a file
 * \{ */
/**
 * Loads a document from a file name or URI into the handle, replacing (and
 * invalidating the nodes of) what it held.
 * \param hDocument The document handle.
 * \param szPath    A local file name or any URI Xerces reads.
 * \retval 1 The document is loaded.
 * \retval 0 The file cannot be read or is not well-formed (the handle then
 *           holds no document), or \p hDocument or \p szPath is NULL.
 */
ZUXML_API int32_t ZuXmlLoadFromFileW(ZuXmlDocument hDocument, const ZuXmlWChar *szPath);
ZUXML_API int32_t ZuXmlLoadFromFileA(ZuXmlDocument hDocument, const char *szPath);
/** \} */

/**
 * Loads a document from bytes in memory; the encoding is detected from the
 * bytes. The buffer is only read during the call.
 * \param hDocument The document handle.
 * \param pBytes    The XML bytes.
 * \param nLength   Number of bytes at \p pBytes to parse.
 * \return As ZuXmlLoadFromFileW().
 */
ZUXML_API int32_t ZuXmlLoadFromBufA(ZuXmlDocument hDocument, const void *pBytes, uint32_t nLength);

/**
 * Loads a document from UTF-16 text in memory, read as UTF-16 in the
 * machine's byte order whatever encoding its XML declaration names. The
 * buffer is only read during the call.
 * \param hDocument The document handle.
 * \param szText    The XML text (need not be zero-terminated).
 * \param nLength   Number of UTF-16 units at \p szText to parse.
 * \return As ZuXmlLoadFromFileW().
 */
ZUXML_API int32_t ZuXmlLoadFromBufW(ZuXmlDocument hDocument, const ZuXmlWChar *szText, uint32_t nLength);

/** \} */

/* ------------------------------------------------------------------------
 * Writing
 * --------------------------------------------------------------------- */

/**
 * \defgroup writing Writing
 * \brief Writing a document to a file or into a caller buffer.
 * \{
 */

/** \name Writing to a file
 * \{ */
/**
 * Writes the document to a file (created or truncated), indented
 * (ZuXmlWriteW(), ZuXmlWriteA()) or as Xerces' serializer gives it by
 * default (ZuXmlWriteNoPrettyW(), ZuXmlWriteNoPrettyA()), in the encoding
 * the serializer chooses.
 * \param hDocument The document handle.
 * \param szPath    Name of the file to write.
 * \retval 1 Xerces' serializer reported the document written. It does not
 *           see every failure: the last block of output is written when the
 *           file is closed, after the serializer has answered, and an error
 *           there is not reported, so a document of up to a few kilobytes
 *           written to a full disk still answers 1.
 * \retval 0 The handle is NULL or holds no document, the file cannot be
 *           created, or the serializer reported a failure (a file that was
 *           opened may be left partly written). Also, without creating the
 *           file, for a document the serializer could never finish writing:
 *           one whose output encoding is UTF-8 or UCS-4 (a document built
 *           here, or read in one of those) and which holds a lone leading
 *           surrogate (U+D800 to U+DBFF) at the end of a namespace URI, of
 *           the document type's public or system identifier or of a CDATA
 *           section, before `]]>` in a CDATA section, or in a namespace URI
 *           before `&`, `<`, `"`, a tab, a line feed or a carriage return.
 *           Such text reaches a document only through this interface's
 *           edits or, in a loaded document, through its DTD's attribute
 *           defaults: the parser refuses a lone surrogate everywhere else.
 */
ZUXML_API int32_t ZuXmlWriteW(ZuXmlDocument hDocument, const ZuXmlWChar *szPath);
ZUXML_API int32_t ZuXmlWriteA(ZuXmlDocument hDocument, const char *szPath);
ZUXML_API int32_t ZuXmlWriteNoPrettyW(ZuXmlDocument hDocument, const ZuXmlWChar *szPath);
ZUXML_API int32_t ZuXmlWriteNoPrettyA(ZuXmlDocument hDocument, const char *szPath);
/** \} */

/** \name Writing to a string
 * \{ */
/**
 * The document as XML text, never indented, under the
 * \ref caller_buffers "caller-buffer protocol".
 *
 * Asking for the length first (a length of 0) and then filling a buffer of
 * the length reported serialises the document once: the text of a call
 * that answers 0 for a too-small buffer is kept by the document handle and
 * handed out by the next ZuXmlWriteToStringW() or ZuXmlWriteToStringA()
 * call on the same handle, provided nothing else happened in between. Any
 * other call on the handle, any change of the document (through this
 * handle, or through another handle's call with a node of this document),
 * a load and the release of the handle drop the kept text; the next call
 * then serialises the document as it is. So the text handed out is always
 * that of the document at the time of the call, and a handle holds the
 * extra copy only until its next call.
 * \param hDocument The document handle.
 * \param szBuffer  Receives the text.
 * \param pnLength  In: the buffer's length in characters. Out: the length
 *                  needed, when 0 is answered for a too-small buffer.
 * \retval 1 The text is in the buffer.
 * \retval 0 The buffer is too small (`*pnLength` tells the size to use), or
 *           the handle is NULL or holds no document (`*pnLength` unchanged).
 */
ZUXML_API int32_t ZuXmlWriteToStringW(ZuXmlDocument hDocument, ZuXmlWChar *szBuffer, int32_t *pnLength);
ZUXML_API int32_t ZuXmlWriteToStringA(ZuXmlDocument hDocument, char *szBuffer, int32_t *pnLength);
/** \} */

/** \} */

/* ------------------------------------------------------------------------
 * Node reading
 * --------------------------------------------------------------------- */

/**
 * \defgroup reading Node reading
 * \brief Walking the tree and reading node names, types, text and namespaces.
 *
 * The getters of text follow the \ref caller_buffers "caller-buffer
 * protocol": each answers 1 with the text in the buffer, or 0 either for a
 * too-small buffer (with the length needed in `*pnLength`) or for a failure
 * (NULL handle or node, no document; `*pnLength` unchanged).
 * \{
 */

/**
 * The document element.
 * \param hDocument The document handle.
 * \return The root element, or NULL when the handle is NULL or holds no
 *         document.
 */
ZUXML_API ZuXmlNode ZuXmlGetRootNode(ZuXmlDocument hDocument);

/** \name Navigation
 * \{ */
/**
 * The parent, previous sibling, next sibling, first child or last child of
 * a node. The parent of the root element is the document node (type 9).
 * ZuXmlGetFirstChild() alone reads a NULL node as the root element.
 * \param hDocument The document handle.
 * \param hNode     The node to start from.
 * \return The node found, or NULL when there is none, \p hNode is NULL or
 *         the handle holds no document.
 */
ZUXML_API ZuXmlNode ZuXmlGetParentNode(ZuXmlDocument hDocument, ZuXmlNode hNode);
ZUXML_API ZuXmlNode ZuXmlGetPriviousSibling(ZuXmlDocument hDocument, ZuXmlNode hNode);
ZUXML_API ZuXmlNode ZuXmlGetNextSibling(ZuXmlDocument hDocument, ZuXmlNode hNode);
ZUXML_API ZuXmlNode ZuXmlGetFirstChild(ZuXmlDocument hDocument, ZuXmlNode hNode);
ZUXML_API ZuXmlNode ZuXmlGetLastChild(ZuXmlDocument hDocument, ZuXmlNode hNode);
/** \} */

/** \name Finding a child
 * \{ */
/**
 * The first direct child whose DOM node name equals a name exactly: the
 * qualified name with its prefix for elements (`p:item` is not found as
 * `item`), `#text`, `#comment` or `#cdata-section` for such children.
 * \param hDocument The document handle.
 * \param hParent   The node whose children are searched; NULL means the root
 *                  element.
 * \param szName    The node name to find.
 * \return The child, or NULL when there is none or \p szName is NULL.
 */
ZUXML_API ZuXmlNode ZuXmlFindChildW(ZuXmlDocument hDocument, ZuXmlNode hParent, const ZuXmlWChar *szName);
ZUXML_API ZuXmlNode ZuXmlFindChildA(ZuXmlDocument hDocument, ZuXmlNode hParent, const char *szName);
/** \} */

/**
 * The W3C DOM node type of a node.
 * \param hDocument The document handle.
 * \param hNode     The node.
 * \return 1 element, 2 attribute, 3 text, 4 CDATA section, 7 processing
 *         instruction, 8 comment, 9 document, 10 document type...; 0 for a
 *         NULL node or handle or no document.
 */
ZUXML_API uint16_t ZuXmlGetNodeType(ZuXmlDocument hDocument, ZuXmlNode hNode);

/** \name Node name
 * \{ */
/**
 * The DOM node name: the qualified name of an element (`p:item`), `#text`,
 * `#comment`, `#document`...
 * \param hDocument The document handle.
 * \param hNode     The node.
 * \param szBuffer  Receives the name.
 * \param pnLength  In: the buffer's length in characters. Out: the length
 *                  needed, when 0 is answered for a too-small buffer.
 * \return 1, or 0 as described for this group.
 */
ZUXML_API int32_t ZuXmlGetNodeNameW(ZuXmlDocument hDocument, ZuXmlNode hNode, ZuXmlWChar *szBuffer,
                                    int32_t *pnLength);
ZUXML_API int32_t ZuXmlGetNodeNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, char *szBuffer, int32_t *pnLength);
/** \} */

/** \name Local name and prefix
 * \{ */
/**
 * The local name and the prefix of a node, each under the caller-buffer
 * protocol on its own. Both are empty for nodes without a namespace-aware
 * name (text, comments, elements added without a namespace).
 * \param hDocument         The document handle.
 * \param hNode             The node.
 * \param szLocalName       Receives the local name.
 * \param pnLocalNameLength In/out length of \p szLocalName.
 * \param szPrefix          Receives the prefix.
 * \param pnPrefixLength    In/out length of \p szPrefix.
 * \retval 1 Both texts are in their buffers.
 * \retval 0 Either buffer is too small (its length then tells the size to
 *           use; the other buffer is still filled), or the node or handle is
 *           NULL or there is no document.
 */
ZUXML_API int32_t ZuXmlGetLocalNodeNameW(ZuXmlDocument hDocument, ZuXmlNode hNode, ZuXmlWChar *szLocalName,
                                         int32_t *pnLocalNameLength, ZuXmlWChar *szPrefix,
                                         int32_t *pnPrefixLength);
ZUXML_API int32_t ZuXmlGetLocalNodeNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, char *szLocalName,
                                         int32_t *pnLocalNameLength, char *szPrefix, int32_t *pnPrefixLength);
/** \} */

/** \name Text content
 * \{ */
/**
 * The text of a node and all its descendants, joined in document order
 * (empty for the document node). Asking with length 0 and then calling
 * again with the reported length counts an element's text once: the call
 * that answered 0 keeps the length for the next call on the same handle.
 * The answer is always the text as it is when the call is made; any other
 * call on the handle and any change of the document drop what was kept.
 * \param hDocument The document handle.
 * \param hNode     The node.
 * \param szBuffer  Receives the text.
 * \param pnLength  In: the buffer's length in characters. Out: the length
 *                  needed, when 0 is answered for a too-small buffer.
 * \return 1, or 0 as described for this group.
 */
ZUXML_API int32_t ZuXmlGetNodeTextContentW(ZuXmlDocument hDocument, ZuXmlNode hNode, ZuXmlWChar *szBuffer,
                                           int32_t *pnLength);
ZUXML_API int32_t ZuXmlGetNodeTextContentA(ZuXmlDocument hDocument, ZuXmlNode hNode, char *szBuffer,
                                           int32_t *pnLength);
/** \} */

/** \name Namespace
 * \{ */
/**
 * The namespace URI of a node.
 * \param hDocument The document handle.
 * \param hNode     The node.
 * \param szBuffer  Receives the URI.
 * \param pnLength  In: the buffer's length in characters. Out: the length
 *                  needed, when 0 is answered for a too-small buffer.
 * \return 1, or 0 as described for this group; also 0, with nothing
 *         written, when the node has no namespace.
 */
ZUXML_API int32_t ZuXmlGetNodeNamespaceW(ZuXmlDocument hDocument, ZuXmlNode hNode, ZuXmlWChar *szBuffer,
                                         int32_t *pnLength);
ZUXML_API int32_t ZuXmlGetNodeNamespaceA(ZuXmlDocument hDocument, ZuXmlNode hNode, char *szBuffer,
                                         int32_t *pnLength);
/** \} */

/** \} */

/* ------------------------------------------------------------------------
 * Node editing
 * --------------------------------------------------------------------- */

/**
 * \defgroup editing Node editing
 * \brief Adding, copying and removing nodes and setting their text.
 * \{
 */

/** \name Adding an element
 * \{ */
/**
 * Appends a new element as the last child of a node.
 * \param hDocument   The document handle.
 * \param hParent     The parent; NULL means the root element.
 * \param szName      Name of the element; with \p szNamespace it is a
 *                    qualified name that may carry a prefix.
 * \param nType       Must be 1 (element).
 * \param szText      Text content of the new element, or NULL for none.
 * \param szNamespace Namespace URI of the element, or NULL for none.
 * \return The new element, or NULL on any failure (invalid name, \p nType
 *         not 1, no parent, no document), leaving no new node behind.
 */
ZUXML_API ZuXmlNode ZuXmlAddNodeW(ZuXmlDocument hDocument, ZuXmlNode hParent, const ZuXmlWChar *szName,
                                  uint16_t nType, const ZuXmlWChar *szText, const ZuXmlWChar *szNamespace);
ZUXML_API ZuXmlNode ZuXmlAddNodeA(ZuXmlDocument hDocument, ZuXmlNode hParent, const char *szName, uint16_t nType,
                                  const char *szText, const char *szNamespace);
/** \} */

/** \name Adding a comment
 * \{ */
/**
 * Appends a comment as the last child of a node.
 * \param hDocument The document handle.
 * \param hParent   The parent; NULL means the root element.
 * \param szText    Text of the comment, between its delimiters.
 * \return The comment, or NULL (also when \p hParent is NULL and the
 *         document has no root element).
 */
ZUXML_API ZuXmlNode ZuXmlAddCommentW(ZuXmlDocument hDocument, ZuXmlNode hParent, const ZuXmlWChar *szText);
ZUXML_API ZuXmlNode ZuXmlAddCommentA(ZuXmlDocument hDocument, ZuXmlNode hParent, const char *szText);
/** \} */

/**
 * Appends a copy of a node of this or any other document as the last child
 * of a node; the source is left unchanged.
 * \param hDocument The document handle that receives the copy.
 * \param hParent   The parent; NULL means the root element.
 * \param hSource   The node to copy; not a document or document type node.
 * \param nDeep     1 copies the whole subtree, any other value the node
 *                  alone (with its attributes).
 * \return The copy, or NULL.
 */
ZUXML_API ZuXmlNode ZuXmlAddNodeExisting(ZuXmlDocument hDocument, ZuXmlNode hParent, ZuXmlNode hSource,
                                         int32_t nDeep);

/**
 * Removes a node and its subtree from the document and destroys them;
 * every handle into them is invalid afterwards.
 * \param hDocument The document handle.
 * \param hNode     The node to remove.
 * \retval 1 The node is gone.
 * \retval 0 The node is NULL or has no parent (the document node, for
 *           one), or there is no document.
 */
ZUXML_API int32_t ZuXmlRemoveNode(ZuXmlDocument hDocument, ZuXmlNode hNode);

/** \name Setting text content
 * \{ */
/**
 * Replaces the content of a node with text; the children of an element are
 * removed first. Removed, they leave the tree but are not destroyed: their
 * handles stay valid until the document is released or reloaded, and
 * ZuXmlRemoveNode on one of them answers 0, as for any node without a
 * parent.
 * \param hDocument The document handle.
 * \param hNode     The node.
 * \param szText    The new text; NULL leaves an element empty.
 * \return 1, or 0 for a NULL node or handle or no document.
 */
ZUXML_API int32_t ZuXmlSetNodeTextContentW(ZuXmlDocument hDocument, ZuXmlNode hNode, const ZuXmlWChar *szText);
ZUXML_API int32_t ZuXmlSetNodeTextContentA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szText);
/** \} */

/** \} */

/* ------------------------------------------------------------------------
 * Attributes (hNode must be an element; other nodes answer the failure value)
 * --------------------------------------------------------------------- */

/**
 * \defgroup attributes Attributes
 * \brief Counting, reading, setting and removing the attributes of elements.
 *
 * Every function here takes an element node; other nodes, a NULL node or
 * handle and a handle without a document answer the failure value.
 * Attributes are addressed by position (0 to count - 1, in the order of the
 * element's attribute map) or by qualified name (`p:a` and `a` are
 * different names). The getters of text follow the
 * \ref caller_buffers "caller-buffer protocol".
 * \{
 */

/**
 * The number of attributes of an element.
 * \param hDocument The document handle.
 * \param hNode     The element.
 * \return The count (0 or more), or -1 on failure.
 */
ZUXML_API int32_t ZuXmlGetNodeAttributeCount(ZuXmlDocument hDocument, ZuXmlNode hNode);

/** \name Attribute name by index
 * \{ */
/**
 * The qualified name of the attribute at an index.
 * \param hDocument The document handle.
 * \param hNode     The element.
 * \param nIndex    Position of the attribute, 0 to count - 1.
 * \param szBuffer  Receives the name.
 * \param pnLength  In: the buffer's length in characters. Out: the length
 *                  needed, when 0 is answered for a too-small buffer.
 * \return 1, or 0 for a too-small buffer, an index out of range or a
 *         failure.
 */
ZUXML_API int32_t ZuXmlGetNodeAttributeNameW(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex,
                                             ZuXmlWChar *szBuffer, int32_t *pnLength);
ZUXML_API int32_t ZuXmlGetNodeAttributeNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex,
                                             char *szBuffer, int32_t *pnLength);
/** \} */

/** \name Attribute value by index
 * \{ */
/**
 * The value of the attribute at an index.
 * \param hDocument The document handle.
 * \param hNode     The element.
 * \param nIndex    Position of the attribute, 0 to count - 1.
 * \param szBuffer  Receives the value.
 * \param pnLength  In: the buffer's length in characters. Out: the length
 *                  needed, when 0 is answered for a too-small buffer.
 * \return 1, or 0 for a too-small buffer, an index out of range or a
 *         failure.
 */
ZUXML_API int32_t ZuXmlGetNodeAttributeValueIndexW(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex,
                                                   ZuXmlWChar *szBuffer, int32_t *pnLength);
ZUXML_API int32_t ZuXmlGetNodeAttributeValueIndexA(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex,
                                                   char *szBuffer, int32_t *pnLength);
/** \} */

/** \name Attribute value by name
 * \{ */
/**
 * The value of the attribute with a qualified name.
 * \param hDocument The document handle.
 * \param hNode     The element.
 * \param szName    Qualified name of the attribute.
 * \param szBuffer  Receives the value.
 * \param pnLength  In: the buffer's length in characters. Out: the length
 *                  needed, when 0 is answered for a too-small buffer.
 * \return 1, or 0 for a too-small buffer, an absent attribute or a
 *         failure.
 */
ZUXML_API int32_t ZuXmlGetNodeAttributeValueNameW(ZuXmlDocument hDocument, ZuXmlNode hNode,
                                                  const ZuXmlWChar *szName, ZuXmlWChar *szBuffer,
                                                  int32_t *pnLength);
ZUXML_API int32_t ZuXmlGetNodeAttributeValueNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szName,
                                                  char *szBuffer, int32_t *pnLength);
/** \} */

/** \name Adding or setting an attribute
 * \{ */
/**
 * Sets an attribute, creating it or replacing its value.
 * \param hDocument The document handle.
 * \param hNode     The element; NULL means the root element.
 * \param szName    Qualified name of the attribute.
 * \param szValue   Its value.
 * \return 1, or 0 for a name that is not a legal XML name or a failure.
 */
ZUXML_API int32_t ZuXmlAddNodeAttributeW(ZuXmlDocument hDocument, ZuXmlNode hNode, const ZuXmlWChar *szName,
                                         const ZuXmlWChar *szValue);
ZUXML_API int32_t ZuXmlAddNodeAttributeA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szName,
                                         const char *szValue);
/** \} */

/** \name Changing an attribute
 * \{ */
/**
 * Changes the value of an existing attribute.
 * \param hDocument The document handle.
 * \param hNode     The element.
 * \param szName    Qualified name of the attribute.
 * \param szValue   Its new value.
 * \return 1, or 0 (adding nothing) when the attribute is absent, or for a
 *         failure.
 *
 * Unlike the other editing functions this one catches nothing: an
 * attribute Xerces holds read-only makes it throw Xerces' DOMException
 * (NO_MODIFICATION_ALLOWED_ERR) out of the function. Such attributes are
 * those of elements inside the content of an entity reference; in
 * \code{.xml}
 * <!DOCTYPE a [<!ENTITY e "<b x='1'/>">]><a>&e;</a>
 * \endcode
 * `b` is a child of the entity reference node (type 5) under `a`. A C caller cannot catch
 * the exception (the process ends, see the README's "Exceptions that pass
 * out of the interface"): it avoids the case by walking up from the element
 * with ZuXmlGetParentNode() and not calling this function when an ancestor
 * has type 5 (ZuXmlGetNodeType()).
 */
ZUXML_API int32_t ZuXmlSetNodeAttributeValueW(ZuXmlDocument hDocument, ZuXmlNode hNode, const ZuXmlWChar *szName,
                                              const ZuXmlWChar *szValue);
ZUXML_API int32_t ZuXmlSetNodeAttributeValueA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szName,
                                              const char *szValue);
/** \} */

/**
 * Removes the attribute at an index.
 * \param hDocument The document handle.
 * \param hNode     The element.
 * \param nIndex    Position of the attribute, 0 to count - 1.
 * \return 1, or 0 for an index out of range or a failure.
 */
ZUXML_API int32_t ZuXmlRemoveAttributeIndex(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex);

/** \name Removing an attribute by name
 * \{ */
/**
 * Removes the attribute with a qualified name.
 * \param hDocument The document handle.
 * \param hNode     The element.
 * \param szName    Qualified name of the attribute.
 * \return 1, also when the attribute was absent; 0 for a NULL or empty
 *         name or a failure.
 */
ZUXML_API int32_t ZuXmlRemoveAttributeNameW(ZuXmlDocument hDocument, ZuXmlNode hNode, const ZuXmlWChar *szName);
ZUXML_API int32_t ZuXmlRemoveAttributeNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szName);
/** \} */

/** \} */

/* ------------------------------------------------------------------------
 * SAX2 streaming
 * --------------------------------------------------------------------- */

/**
 * \defgroup sax2 SAX2 streaming
 * \brief Streaming a file through tables of caller callbacks.
 *
 * Create a parser with a context value, install a wide and/or a narrow
 * table of eight callbacks, then load any number of files. Each callback
 * receives the parser handle and the context given to
 * ZuXmlCreateSax2Parser() first. Callbacks run on the loading thread,
 * inside the load call; their strings belong to the library and live until
 * the callback returns. For each event the wide entry is called if set, else
 * the narrow one. Depth is 0 for the document element.
 *
 * Start tags reach the caller only through a start-element entry: without
 * one there are no attribute and attributes-done calls either. The
 * attributes-done entry of the table that serves start tags is called after
 * the attributes only when the narrow attribute entry is set, and then
 * without a test of its own: a caller that sets the narrow attribute entry
 * also sets attributes-done. Element text is gathered only while an
 * end-element entry is set, and comments are reported only while a comment
 * entry is set.
 * \{
 */

/** \name Diagnostic severities
 * Passed as nCode to the diagnostic callbacks; the warning is deliberately
 * last.
 * \{ */
#define SAX2_ERROR 20       /**< A recoverable error, such as a validity error. */
#define SAX2_FATAL_ERROR 21 /**< A fatal (well-formedness) error. */
#define SAX2_WARNING 22     /**< A warning. */
/** \} */

/** Called once at the start of the document. */
typedef void (*ZuXmlSax2StartDocumentCallback)(ZuXmlSax2Parser hParser, void *pContext);
/** Called once at the end of the document. */
typedef void (*ZuXmlSax2EndDocumentCallback)(ZuXmlSax2Parser hParser, void *pContext);

/** \name Start-element callbacks
 * \{ */
/**
 * Called at each start tag (and empty-element tag) with the element's
 * depth, its number of attributes, and its namespace URI, local name and
 * qualified name (an empty string where there is none).
 */
typedef void (*ZuXmlSax2StartElementCallbackW)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                               int32_t nAttributes, const ZuXmlWChar *szUri,
                                               const ZuXmlWChar *szLocalName, const ZuXmlWChar *szQName);
typedef void (*ZuXmlSax2StartElementCallbackA)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                               int32_t nAttributes, const char *szUri, const char *szLocalName,
                                               const char *szQName);
/** \} */

/** \name Attribute callbacks
 * \{ */
/**
 * Called for each attribute right after its start-element callback, index
 * 0 first, with the element's depth, the index, the attribute's namespace
 * URI, local name, qualified name, type (`CDATA`, `ID`...) and normalised
 * value.
 */
typedef void (*ZuXmlSax2AttributeCallbackW)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                            int32_t nIndex, const ZuXmlWChar *szUri, const ZuXmlWChar *szLocalName,
                                            const ZuXmlWChar *szQName, const ZuXmlWChar *szType,
                                            const ZuXmlWChar *szValue);
typedef void (*ZuXmlSax2AttributeCallbackA)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                            int32_t nIndex, const char *szUri, const char *szLocalName,
                                            const char *szQName, const char *szType, const char *szValue);
/** \} */

/** Called after the last attribute of a start tag (see the group's note on when). */
typedef void (*ZuXmlSax2AttributesDoneCallback)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth);

/** \name End-element callbacks
 * \{ */
/**
 * Called at each end tag (and after an empty-element tag) with the depth,
 * the names, and all character data that stood directly inside the element,
 * joined in document order without the text of child elements (an empty
 * string, never NULL, when there is none).
 */
typedef void (*ZuXmlSax2EndElementCallbackW)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                             const ZuXmlWChar *szUri, const ZuXmlWChar *szLocalName,
                                             const ZuXmlWChar *szQName, const ZuXmlWChar *szText);
typedef void (*ZuXmlSax2EndElementCallbackA)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                             const char *szUri, const char *szLocalName, const char *szQName,
                                             const char *szText);
/** \} */

/** \name Comment callbacks
 * \{ */
/**
 * Called at each comment with the number of elements open around it (0
 * outside the document element) and its text between the delimiters.
 */
typedef void (*ZuXmlSax2CommentCallbackW)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                          const ZuXmlWChar *szText);
typedef void (*ZuXmlSax2CommentCallbackA)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                          const char *szText);
/** \} */

/** \name Diagnostic callbacks
 * \{ */
/**
 * Called at each warning, error and fatal error the parser reports, with
 * its severity (#SAX2_ERROR, #SAX2_FATAL_ERROR, #SAX2_WARNING) and message.
 * ZuXmlGetSax2CurrentLocation() tells where it happened.
 */
typedef void (*ZuXmlSax2DiagnosticCallbackW)(ZuXmlSax2Parser hParser, void *pContext, int32_t nCode,
                                             const ZuXmlWChar *szMessage);
typedef void (*ZuXmlSax2DiagnosticCallbackA)(ZuXmlSax2Parser hParser, void *pContext, int32_t nCode,
                                             const char *szMessage);
/** \} */

/**
 * A new streaming parser.
 * \param pContext Any value; it is passed back to every callback.
 * \return The parser handle, owned by the caller until
 *         ZuXmlReleaseSax2Parser(); NULL if it cannot be allocated.
 */
ZUXML_API ZuXmlSax2Parser ZuXmlCreateSax2Parser(void *pContext);

/**
 * Releases a parser; the same function as ZuXmlReleaseDocument().
 * \param hParser The parser handle, or NULL (nothing is done).
 * \return 1.
 */
ZUXML_API int32_t ZuXmlReleaseSax2Parser(ZuXmlSax2Parser hParser);

/** \name Installing callbacks
 * \{ */
/**
 * Installs the wide (W) or the narrow (A) table of eight callbacks,
 * replacing the whole table of that form and leaving the other form's
 * table as it is. Only the pointers are kept; the table takes effect at
 * the next load.
 * \param hParser         The parser handle.
 * \param pStartDocument  Start of the document, or NULL.
 * \param pEndDocument    End of the document, or NULL.
 * \param pStartElement   Start tags, or NULL.
 * \param pAttribute      Attributes of a start tag, or NULL.
 * \param pAttributesDone After the attributes of a start tag, or NULL.
 * \param pEndElement     End tags with the element's text, or NULL.
 * \param pComment        Comments, or NULL.
 * \param pDiagnostic     Warnings and errors, or NULL.
 * \return 1, or 0 for a NULL handle.
 */
ZUXML_API int32_t ZuXmlSetSax2ParserCallbacksW(
    ZuXmlSax2Parser hParser, ZuXmlSax2StartDocumentCallback pStartDocument,
    ZuXmlSax2EndDocumentCallback pEndDocument, ZuXmlSax2StartElementCallbackW pStartElement,
    ZuXmlSax2AttributeCallbackW pAttribute, ZuXmlSax2AttributesDoneCallback pAttributesDone,
    ZuXmlSax2EndElementCallbackW pEndElement, ZuXmlSax2CommentCallbackW pComment,
    ZuXmlSax2DiagnosticCallbackW pDiagnostic);
ZUXML_API int32_t ZuXmlSetSax2ParserCallbacksA(
    ZuXmlSax2Parser hParser, ZuXmlSax2StartDocumentCallback pStartDocument,
    ZuXmlSax2EndDocumentCallback pEndDocument, ZuXmlSax2StartElementCallbackA pStartElement,
    ZuXmlSax2AttributeCallbackA pAttribute, ZuXmlSax2AttributesDoneCallback pAttributesDone,
    ZuXmlSax2EndElementCallbackA pEndElement, ZuXmlSax2CommentCallbackA pComment,
    ZuXmlSax2DiagnosticCallbackA pDiagnostic);
/** \} */

/** \name Streaming a file
 * \{ */
/**
 * Streams a file through the callbacks, with namespaces on and validation
 * off. Failures print a message on standard output. A load must not be
 * started from inside a callback of the same parser. The narrow file name
 * is read with Xerces' local code page transcoder.
 * \param hParser    The parser handle.
 * \param szFileName Name of the file to read. NULL answers 0 at once: no
 *                   message, no callback, and the parser keeps what it held.
 * \param nMode      1 parses progressively, so that
 *                   ZuXmlSax2StopLoadFromFile() can end the load between
 *                   steps; any other value parses in one call.
 * \retval 1  The parse ended: read to its end, ended after errors reported
 *            to the diagnostic callback, or stopped on request.
 * \retval 0  A progressive start failed, Xerces threw an XMLException or
 *            anything else, or the handle or the file name is NULL.
 * \retval -1 Xerces threw a SAXParseException.
 */
ZUXML_API int32_t ZuXmlSax2LoadFromFileW(ZuXmlSax2Parser hParser, const ZuXmlWChar *szFileName, int32_t nMode);
ZUXML_API int32_t ZuXmlSax2LoadFromFileA(ZuXmlSax2Parser hParser, const char *szFileName, int32_t nMode);
/** \} */

/**
 * Asks a running progressive load to stop before its next step; the events
 * of the step under way are still delivered. No effect on a one-shot load;
 * a request made while no progressive load runs is forgotten by the next
 * one. May be called from a callback or from another thread.
 * \param hParser The parser handle; NULL does nothing.
 */
ZUXML_API void ZuXmlSax2StopLoadFromFile(ZuXmlSax2Parser hParser);

/**
 * The line and column the parse has reached, typically asked from inside a
 * callback.
 * \param hParser  The parser handle.
 * \param pnLine   Receives the line, or NULL.
 * \param pnColumn Receives the column, or NULL.
 * \retval 1 During a load, and after a failed one that had begun reading
 *           (the position where it stopped).
 * \retval 0 No position is known (before the first load, after a load that
 *           answered 1, after a load whose file could not even be opened,
 *           or for a NULL handle); nothing is written.
 */
ZUXML_API int32_t ZuXmlGetSax2CurrentLocation(ZuXmlSax2Parser hParser, uint64_t *pnLine, uint64_t *pnColumn);

/** \} */

#ifdef __cplusplus
}
#endif

#endif /* ZUXML_H */
