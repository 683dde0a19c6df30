/*
 * zuxml.h - the one public interface of ZuXml.
 *
 * ZuXml gives programs that speak plain C access to XML documents through
 * Xerces-C++ 3.2: a DOM interface over document and node handles, and SAX2
 * streaming through tables of caller callbacks. The interface is a fixed
 * table of 65 functions; their names and ordinals never change.
 *
 * Conventions, stated once for every function below:
 *
 * Handles.  ZuXmlDocument and ZuXmlSax2Parser are opaque pointers made by
 *   ZuXmlCreateDocument / ZuXmlCreateWriteDocument* and ZuXmlCreateSax2Parser
 *   and owned by the caller until released with ZuXmlReleaseDocument (which
 *   is the same function as ZuXmlReleaseSax2Parser and releases either kind).
 *   ZuXmlNode is a node of the document's DOM tree, handed out as it is: it
 *   lives until the node is removed, the document is replaced by another
 *   load or create, or the document handle is released. Node handles are
 *   never released by the caller.
 *
 * Results.  Functions that succeed or fail answer 1 or 0. Exceptions are
 *   named at the function: ZuXmlGetNodeAttributeCount answers -1 on failure,
 *   the SAX2 loads answer -1 for a parse exception. Functions that create or
 *   navigate answer a handle, or NULL.
 *
 * Null handles.  A NULL document or parser handle is rejected with the
 *   function's failure value; ZuXmlReleaseDocument answers 1 for NULL.
 *   NULL node handles are checked wherever a node is taken; a few functions
 *   read a NULL node as the root element and say so.
 *
 * Caller buffers.  Every getter of text takes a buffer and a pointer to its
 *   length in characters (int32_t). With text of L characters:
 *     - if *length <= L (zero and negative lengths included), the buffer is
 *       not written, *length is set to L + 1 and the getter answers 0: call
 *       again with a buffer of that many characters;
 *     - otherwise the text, its terminator and zeros up to *length characters
 *       are written, *length is left unchanged and the getter answers 1.
 *   If the operation itself fails (no document, no such node...), neither
 *   buffer nor length is touched by the wide form.
 *
 * Wide and narrow text.  Functions ending in W take and return zero-
 *   terminated strings of 16-bit UTF-16 code units (ZuXmlWChar: wchar_t on
 *   Windows, char16_t elsewhere), handed to and from Xerces unchanged.
 *   Functions ending in A take and return multibyte text of the C runtime's
 *   current locale (set it with setlocale; the "C" locale is ASCII only).
 *   A narrow argument that is NULL stays NULL; one that is not valid in the
 *   locale becomes the empty string. A narrow getter fills a temporary wide
 *   buffer of *length + 1 characters and converts it into the caller's
 *   buffer, writing at most *length bytes; so the length, also the one
 *   reported on a too-small answer, counts wide characters, not bytes, and
 *   text whose multibyte form is longer than its wide form is cut at
 *   *length bytes, then without a terminator. Its first byte is always
 *   written: on any answer other than 1 the buffer holds the empty string.
 *
 * Ownership.  Text returned to the caller is always copied into the
 *   caller's buffers; the library never hands out memory to be freed.
 *
 * Threads.  ZuXmlInit and ZuXmlCleanup must not overlap any other call.
 *   A handle is used by one thread at a time; different handles may be used
 *   from different threads. ZuXmlSax2StopLoadFromFile may be called from
 *   any thread while a load runs.
 */
#ifndef ZUXML_H
#define ZUXML_H

#include <stddef.h>
#include <stdint.h>
#if !defined(_WIN32) && !defined(__cplusplus)
#include <uchar.h>
#endif

#define ZUXML_VERSION_MAJOR 1
#define ZUXML_VERSION_MINOR 0
#define ZUXML_VERSION_PATCH 0

#if defined(_WIN32)
#define ZUXML_API
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
 * Initialises Xerces. Call once before anything else (each call
 * initialises again; Xerces counts them). Answers 1, or 0 when Xerces
 * reports an XMLException. ZuXmlSax2Init is the same function.
 */
ZUXML_API int32_t ZuXmlInit(void);
ZUXML_API int32_t ZuXmlSax2Init(void);

/**
 * Terminates Xerces and answers 1. Handles still alive are not released:
 * release them first. ZuXmlSax2Cleanup is the same function.
 */
ZUXML_API int32_t ZuXmlCleanup(void);
ZUXML_API int32_t ZuXmlSax2Cleanup(void);

/* ------------------------------------------------------------------------
 * Documents
 * --------------------------------------------------------------------- */

/** A new document handle holding no document; NULL if it cannot be allocated. */
ZUXML_API ZuXmlDocument ZuXmlCreateDocument(void);

/**
 * A new document handle holding a new document whose only element is the
 * root szRoot, in namespace szNamespace (may be NULL). When szSystemId is
 * not NULL a document type named like the root, with that system identifier
 * and no public identifier, comes first. NULL when szRoot is not a valid
 * XML name or the document cannot be built.
 */
ZUXML_API ZuXmlDocument ZuXmlCreateWriteDocumentW(const ZuXmlWChar *szRoot, const ZuXmlWChar *szNamespace,
                                                  const ZuXmlWChar *szSystemId);
ZUXML_API ZuXmlDocument ZuXmlCreateWriteDocumentA(const char *szRoot, const char *szNamespace,
                                                  const char *szSystemId);

/**
 * Releases a document or a SAX2 parser handle and everything it owns; the
 * handle and its node handles are invalid afterwards. Answers 1, also for
 * NULL. ZuXmlReleaseSax2Parser is the same function.
 */
ZUXML_API int32_t ZuXmlReleaseDocument(ZuXmlDocument hDocument);

/**
 * Loads a document from a file name or URI into the handle, replacing (and
 * invalidating) what it held. Answers 1, or 0 when the file cannot be read
 * or is not well-formed, in which case the handle holds no document. A NULL
 * handle or path answers 0.
 */
ZUXML_API int32_t ZuXmlLoadFromFileW(ZuXmlDocument hDocument, const ZuXmlWChar *szPath);
ZUXML_API int32_t ZuXmlLoadFromFileA(ZuXmlDocument hDocument, const char *szPath);

/**
 * Loads a document from nLength bytes at pBytes; the encoding is detected
 * from the bytes. The buffer is only read during the call. Results as
 * ZuXmlLoadFromFileW.
 */
ZUXML_API int32_t ZuXmlLoadFromBufA(ZuXmlDocument hDocument, const void *pBytes, uint32_t nLength);

/**
 * Loads a document from nLength UTF-16 units at szText, read as UTF-16 in
 * the machine's byte order whatever encoding its XML declaration names.
 * Results as ZuXmlLoadFromFileW.
 */
ZUXML_API int32_t ZuXmlLoadFromBufW(ZuXmlDocument hDocument, const ZuXmlWChar *szText, uint32_t nLength);

/* ------------------------------------------------------------------------
 * Writing
 * --------------------------------------------------------------------- */

/**
 * Writes the document to a file, indented (ZuXmlWrite*) or as Xerces'
 * serializer gives it by default (ZuXmlWriteNoPretty*). Answers 1, or 0 when
 * the handle holds no document or the file cannot be created or written
 * (a file that was opened may be left partly written).
 */
ZUXML_API int32_t ZuXmlWriteW(ZuXmlDocument hDocument, const ZuXmlWChar *szPath);
ZUXML_API int32_t ZuXmlWriteA(ZuXmlDocument hDocument, const char *szPath);
ZUXML_API int32_t ZuXmlWriteNoPrettyW(ZuXmlDocument hDocument, const ZuXmlWChar *szPath);
ZUXML_API int32_t ZuXmlWriteNoPrettyA(ZuXmlDocument hDocument, const char *szPath);

/**
 * The document as XML text, never indented, under the caller-buffer
 * protocol. Answers 0 when the handle holds no document.
 */
ZUXML_API int32_t ZuXmlWriteToStringW(ZuXmlDocument hDocument, ZuXmlWChar *szBuffer, int32_t *pnLength);
ZUXML_API int32_t ZuXmlWriteToStringA(ZuXmlDocument hDocument, char *szBuffer, int32_t *pnLength);

/* ------------------------------------------------------------------------
 * Node reading
 * --------------------------------------------------------------------- */

/** The document element, or NULL. */
ZUXML_API ZuXmlNode ZuXmlGetRootNode(ZuXmlDocument hDocument);

/**
 * The parent, previous sibling, next sibling, first child or last child of
 * hNode, or NULL when there is none, hNode is NULL or the handle holds no
 * document. The parent of the root element is the document node (type 9).
 * ZuXmlGetFirstChild alone reads a NULL node as the root element.
 */
ZUXML_API ZuXmlNode ZuXmlGetParentNode(ZuXmlDocument hDocument, ZuXmlNode hNode);
ZUXML_API ZuXmlNode ZuXmlGetPriviousSibling(ZuXmlDocument hDocument, ZuXmlNode hNode);
ZUXML_API ZuXmlNode ZuXmlGetNextSibling(ZuXmlDocument hDocument, ZuXmlNode hNode);
ZUXML_API ZuXmlNode ZuXmlGetFirstChild(ZuXmlDocument hDocument, ZuXmlNode hNode);
ZUXML_API ZuXmlNode ZuXmlGetLastChild(ZuXmlDocument hDocument, ZuXmlNode hNode);

/**
 * The first direct child of hParent (NULL: the root element) whose DOM node
 * name equals szName exactly (qualified name with prefix; "#text",
 * "#comment" for such children), or NULL.
 */
ZUXML_API ZuXmlNode ZuXmlFindChildW(ZuXmlDocument hDocument, ZuXmlNode hParent, const ZuXmlWChar *szName);
ZUXML_API ZuXmlNode ZuXmlFindChildA(ZuXmlDocument hDocument, ZuXmlNode hParent, const char *szName);

/** The W3C DOM node type (1 element, 3 text, 8 comment, 9 document...), or 0. */
ZUXML_API uint16_t ZuXmlGetNodeType(ZuXmlDocument hDocument, ZuXmlNode hNode);

/** The DOM node name ("p:item", "#text"...). 0 for a NULL node or no document. */
ZUXML_API int32_t ZuXmlGetNodeNameW(ZuXmlDocument hDocument, ZuXmlNode hNode, ZuXmlWChar *szBuffer,
                                    int32_t *pnLength);
ZUXML_API int32_t ZuXmlGetNodeNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, char *szBuffer, int32_t *pnLength);

/**
 * The local name into the first buffer and the prefix into the second, each
 * under the caller-buffer protocol on its own; both are empty for nodes
 * without a namespace-aware name. Answers 0 if either buffer is too small
 * (the other one is still filled) or for a NULL node or no document.
 */
ZUXML_API int32_t ZuXmlGetLocalNodeNameW(ZuXmlDocument hDocument, ZuXmlNode hNode, ZuXmlWChar *szLocalName,
                                         int32_t *pnLocalNameLength, ZuXmlWChar *szPrefix,
                                         int32_t *pnPrefixLength);
ZUXML_API int32_t ZuXmlGetLocalNodeNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, char *szLocalName,
                                         int32_t *pnLocalNameLength, char *szPrefix, int32_t *pnPrefixLength);

/** The text of the node and all its descendants (empty for the document node). */
ZUXML_API int32_t ZuXmlGetNodeTextContentW(ZuXmlDocument hDocument, ZuXmlNode hNode, ZuXmlWChar *szBuffer,
                                           int32_t *pnLength);
ZUXML_API int32_t ZuXmlGetNodeTextContentA(ZuXmlDocument hDocument, ZuXmlNode hNode, char *szBuffer,
                                           int32_t *pnLength);

/** The namespace URI of the node; 0 with nothing written when it has none. */
ZUXML_API int32_t ZuXmlGetNodeNamespaceW(ZuXmlDocument hDocument, ZuXmlNode hNode, ZuXmlWChar *szBuffer,
                                         int32_t *pnLength);
ZUXML_API int32_t ZuXmlGetNodeNamespaceA(ZuXmlDocument hDocument, ZuXmlNode hNode, char *szBuffer,
                                         int32_t *pnLength);

/* ------------------------------------------------------------------------
 * Node editing
 * --------------------------------------------------------------------- */

/**
 * Appends a new element szName as the last child of hParent (NULL: the
 * root element), in namespace szNamespace when not NULL (szName may then
 * carry a prefix), with text content szText when not NULL. nType must be 1
 * (element). Answers the new element, or NULL on any failure, leaving no
 * new node behind.
 */
ZUXML_API ZuXmlNode ZuXmlAddNodeW(ZuXmlDocument hDocument, ZuXmlNode hParent, const ZuXmlWChar *szName,
                                  uint16_t nType, const ZuXmlWChar *szText, const ZuXmlWChar *szNamespace);
ZUXML_API ZuXmlNode ZuXmlAddNodeA(ZuXmlDocument hDocument, ZuXmlNode hParent, const char *szName, uint16_t nType,
                                  const char *szText, const char *szNamespace);

/**
 * Appends a comment as the last child of hParent (NULL: the root element).
 * Answers the comment, or NULL (also when hParent is NULL and the document
 * has no root element).
 */
ZUXML_API ZuXmlNode ZuXmlAddCommentW(ZuXmlDocument hDocument, ZuXmlNode hParent, const ZuXmlWChar *szText);
ZUXML_API ZuXmlNode ZuXmlAddCommentA(ZuXmlDocument hDocument, ZuXmlNode hParent, const char *szText);

/**
 * Appends a copy of hSource (of this or any other document; left unchanged)
 * as the last child of hParent (NULL: the root element). nDeep equal to 1
 * copies the whole subtree, any other value the node alone (with its
 * attributes). Answers the copy, or NULL. hSource must not be a document or
 * document type node.
 */
ZUXML_API ZuXmlNode ZuXmlAddNodeExisting(ZuXmlDocument hDocument, ZuXmlNode hParent, ZuXmlNode hSource,
                                         int32_t nDeep);

/**
 * Removes hNode and its subtree from the document and destroys them;
 * every handle into them is invalid afterwards. Answers 0 for a node
 * without a parent (the document node, for one).
 */
ZUXML_API int32_t ZuXmlRemoveNode(ZuXmlDocument hDocument, ZuXmlNode hNode);

/** Replaces the node's content with text szText; NULL leaves an element empty. */
ZUXML_API int32_t ZuXmlSetNodeTextContentW(ZuXmlDocument hDocument, ZuXmlNode hNode, const ZuXmlWChar *szText);
ZUXML_API int32_t ZuXmlSetNodeTextContentA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szText);

/* ------------------------------------------------------------------------
 * Attributes (hNode must be an element; other nodes answer the failure value)
 * --------------------------------------------------------------------- */

/** The number of attributes of the element, or -1 on failure. */
ZUXML_API int32_t ZuXmlGetNodeAttributeCount(ZuXmlDocument hDocument, ZuXmlNode hNode);

/** The qualified name of the attribute at nIndex (0 to count - 1). */
ZUXML_API int32_t ZuXmlGetNodeAttributeNameW(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex,
                                             ZuXmlWChar *szBuffer, int32_t *pnLength);
ZUXML_API int32_t ZuXmlGetNodeAttributeNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex,
                                             char *szBuffer, int32_t *pnLength);

/** The value of the attribute at nIndex. */
ZUXML_API int32_t ZuXmlGetNodeAttributeValueIndexW(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex,
                                                   ZuXmlWChar *szBuffer, int32_t *pnLength);
ZUXML_API int32_t ZuXmlGetNodeAttributeValueIndexA(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex,
                                                   char *szBuffer, int32_t *pnLength);

/** The value of the attribute with qualified name szName; 0 when absent. */
ZUXML_API int32_t ZuXmlGetNodeAttributeValueNameW(ZuXmlDocument hDocument, ZuXmlNode hNode,
                                                  const ZuXmlWChar *szName, ZuXmlWChar *szBuffer,
                                                  int32_t *pnLength);
ZUXML_API int32_t ZuXmlGetNodeAttributeValueNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szName,
                                                  char *szBuffer, int32_t *pnLength);

/**
 * Sets attribute szName to szValue on hNode (NULL: the root element),
 * creating it or replacing its value. Answers 0 for a name that is not a
 * legal XML name.
 */
ZUXML_API int32_t ZuXmlAddNodeAttributeW(ZuXmlDocument hDocument, ZuXmlNode hNode, const ZuXmlWChar *szName,
                                         const ZuXmlWChar *szValue);
ZUXML_API int32_t ZuXmlAddNodeAttributeA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szName,
                                         const char *szValue);

/** Changes the value of an existing attribute; answers 0 and adds nothing when it is absent. */
ZUXML_API int32_t ZuXmlSetNodeAttributeValueW(ZuXmlDocument hDocument, ZuXmlNode hNode, const ZuXmlWChar *szName,
                                              const ZuXmlWChar *szValue);
ZUXML_API int32_t ZuXmlSetNodeAttributeValueA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szName,
                                              const char *szValue);

/** Removes the attribute at nIndex. */
ZUXML_API int32_t ZuXmlRemoveAttributeIndex(ZuXmlDocument hDocument, ZuXmlNode hNode, int32_t nIndex);

/** Removes attribute szName; answers 1 also when it was absent, 0 for a NULL or empty name. */
ZUXML_API int32_t ZuXmlRemoveAttributeNameW(ZuXmlDocument hDocument, ZuXmlNode hNode, const ZuXmlWChar *szName);
ZUXML_API int32_t ZuXmlRemoveAttributeNameA(ZuXmlDocument hDocument, ZuXmlNode hNode, const char *szName);

/* ------------------------------------------------------------------------
 * SAX2 streaming
 * --------------------------------------------------------------------- */

/** Diagnostic severities passed as nCode; the warning is deliberately last. */
#define SAX2_ERROR 20
#define SAX2_FATAL_ERROR 21
#define SAX2_WARNING 22

/*
 * Callbacks. Each receives the parser handle and the context given to
 * ZuXmlCreateSax2Parser first. The strings belong to the library and live
 * until the callback returns. Depth is 0 for the document element. For each
 * event the wide entry is called if set, else the narrow one.
 */
typedef void (*ZuXmlSax2StartDocumentCallback)(ZuXmlSax2Parser hParser, void *pContext);
typedef void (*ZuXmlSax2EndDocumentCallback)(ZuXmlSax2Parser hParser, void *pContext);
typedef void (*ZuXmlSax2StartElementCallbackW)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                               int32_t nAttributes, const ZuXmlWChar *szUri,
                                               const ZuXmlWChar *szLocalName, const ZuXmlWChar *szQName);
typedef void (*ZuXmlSax2StartElementCallbackA)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                               int32_t nAttributes, const char *szUri, const char *szLocalName,
                                               const char *szQName);
typedef void (*ZuXmlSax2AttributeCallbackW)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                            int32_t nIndex, const ZuXmlWChar *szUri, const ZuXmlWChar *szLocalName,
                                            const ZuXmlWChar *szQName, const ZuXmlWChar *szType,
                                            const ZuXmlWChar *szValue);
typedef void (*ZuXmlSax2AttributeCallbackA)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                            int32_t nIndex, const char *szUri, const char *szLocalName,
                                            const char *szQName, const char *szType, const char *szValue);
typedef void (*ZuXmlSax2AttributesDoneCallback)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth);
typedef void (*ZuXmlSax2EndElementCallbackW)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                             const ZuXmlWChar *szUri, const ZuXmlWChar *szLocalName,
                                             const ZuXmlWChar *szQName, const ZuXmlWChar *szText);
typedef void (*ZuXmlSax2EndElementCallbackA)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                             const char *szUri, const char *szLocalName, const char *szQName,
                                             const char *szText);
typedef void (*ZuXmlSax2CommentCallbackW)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                          const ZuXmlWChar *szText);
typedef void (*ZuXmlSax2CommentCallbackA)(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth,
                                          const char *szText);
typedef void (*ZuXmlSax2DiagnosticCallbackW)(ZuXmlSax2Parser hParser, void *pContext, int32_t nCode,
                                             const ZuXmlWChar *szMessage);
typedef void (*ZuXmlSax2DiagnosticCallbackA)(ZuXmlSax2Parser hParser, void *pContext, int32_t nCode,
                                             const char *szMessage);

/** A new streaming parser carrying pContext for its callbacks; NULL if it cannot be allocated. */
ZUXML_API ZuXmlSax2Parser ZuXmlCreateSax2Parser(void *pContext);

/** Releases a parser (the same function as ZuXmlReleaseDocument); answers 1. */
ZUXML_API int32_t ZuXmlReleaseSax2Parser(ZuXmlSax2Parser hParser);

/**
 * Installs the wide (W) or narrow (A) table of eight callbacks, replacing
 * the whole table of that form; NULL entries drop their event. Takes effect
 * at the next load. Answers 1 (0 for a NULL handle).
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

/**
 * Streams a file through the callbacks: in one call for any nMode but 1,
 * progressively (stoppable) for nMode 1. Answers 1 when the parse ended
 * (also after reported errors, or when stopped), 0 when a progressive
 * start failed or Xerces threw an XMLException or anything else, -1 for a
 * SAXParseException; failures print a message on standard output.
 */
ZUXML_API int32_t ZuXmlSax2LoadFromFileW(ZuXmlSax2Parser hParser, const ZuXmlWChar *szFileName, int32_t nMode);
ZUXML_API int32_t ZuXmlSax2LoadFromFileA(ZuXmlSax2Parser hParser, const char *szFileName, int32_t nMode);

/** Asks a running progressive load to stop before its next step. */
ZUXML_API void ZuXmlSax2StopLoadFromFile(ZuXmlSax2Parser hParser);

/**
 * The line and column of the parse (either pointer may be NULL). Answers 1
 * during a load and after a failed one, 0 when no position is known.
 */
ZUXML_API int32_t ZuXmlGetSax2CurrentLocation(ZuXmlSax2Parser hParser, uint64_t *pnLine, uint64_t *pnColumn);

#ifdef __cplusplus
}
#endif

#endif /* ZUXML_H */
