// SPDX-License-Identifier: Apache-2.0
// Entry points: creating, loading and (through the shared release entry)
// destroying documents.
#include <memory>
#include <new>

#include "dom/entry.h"
#include "frame/narrow.h"

using namespace zuxml;

namespace {

// A new object holding a new document, or NULL; an object whose document
// could not be built is destroyed again, with what was built of it.
ZuXmlDocument CreateWriteDocument(const XMLCh *root, const XMLCh *nameSpace, const XMLCh *systemId) {
    std::unique_ptr<CZUXMLDocument> document(new (std::nothrow) CZUXMLDocument);
    if (!document || document->CreateForWriting(root, nameSpace, systemId) != 1)
        return nullptr;
    return ToHandle(document.release());
}

} // namespace

extern "C" {

ZUXML_API ZuXmlDocument ZuXmlCreateDocument(void) { return ToHandle(new (std::nothrow) CZUXMLDocument); }

ZUXML_API ZuXmlDocument ZuXmlCreateWriteDocumentW(const ZuXmlWChar *szRoot, const ZuXmlWChar *szNamespace,
                                                  const ZuXmlWChar *szSystemId) {
    return CreateWriteDocument(AsXml(szRoot), AsXml(szNamespace), AsXml(szSystemId));
}

ZUXML_API ZuXmlDocument ZuXmlCreateWriteDocumentA(const char *szRoot, const char *szNamespace,
                                                  const char *szSystemId) {
    return CreateWriteDocument(NarrowArg(szRoot), NarrowArg(szNamespace), NarrowArg(szSystemId));
}

ZUXML_API int32_t ZuXmlLoadFromFileW(ZuXmlDocument hDocument, const ZuXmlWChar *szPath) {
    return Call(hDocument, 0, &CZUXMLDocument::LoadFromFile, AsXml(szPath));
}

ZUXML_API int32_t ZuXmlLoadFromFileA(ZuXmlDocument hDocument, const char *szPath) {
    return Call(hDocument, 0, &CZUXMLDocument::LoadFromFile, NarrowArg(szPath).get());
}

ZUXML_API int32_t ZuXmlLoadFromBufA(ZuXmlDocument hDocument, const void *pBytes, uint32_t nLength) {
    return Call(hDocument, 0, &CZUXMLDocument::LoadFromBytes, pBytes, nLength);
}

ZUXML_API int32_t ZuXmlLoadFromBufW(ZuXmlDocument hDocument, const ZuXmlWChar *szText, uint32_t nLength) {
    return Call(hDocument, 0, &CZUXMLDocument::LoadFromWideText, AsXml(szText), nLength);
}

} // extern "C"
