// SPDX-License-Identifier: Apache-2.0
// The document object: its contents, creating a document for writing, and
// loading one from a file, bytes or UTF-16 text.
#include "dom/CZUXMLDocument.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>
#include <xercesc/parsers/DOMLSParserImpl.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

// The name of the encoding a UTF-16 text load forces: a fresh Xerces copy
// for every such load, never released. The input source takes its own copy
// of the name, and the interface states this small allocation as memory a
// wide buffer load keeps, so it is not freed here.
XMLCh *ForcedUtf16EncodingName() { return XMLString::transcode("UTF-16", XMLPlatformUtils::fgMemoryManager); }

} // namespace

DOMImplementation *CoreImplementation() { return DOMImplementationRegistry::getDOMImplementation(u"Core"); }

CZUXMLDocument::~CZUXMLDocument() { ReleaseContents(); }

// A document built here belongs to this object; a loaded one belongs to
// the parser, which frees every document it produced when released.
void CZUXMLDocument::ReleaseContents() {
    DropKept();
    if (m_pDocument && !m_pParser) {
        m_pDocument->release();
    } else if (m_pParser) {
        m_pParser->release();
        m_pParser = nullptr;
    }
    m_pDocument = nullptr;
}

int32_t CZUXMLDocument::CreateForWriting(const XMLCh *root, const XMLCh *nameSpace, const XMLCh *systemId) {
    // A NULL root name is no name: Xerces would dereference it.
    if (!root)
        return 0;
    DOMImplementation *implementation = CoreImplementation();
    if (!implementation)
        return 0;
    try {
        return BuildDocument(implementation, root, nameSpace, systemId);
    } catch (const DOMException &) {
        // An invalid root name, for one. The caller destroys this object,
        // and with it the partly built document.
        return 0;
    }
}

int32_t CZUXMLDocument::BuildDocument(DOMImplementation *implementation, const XMLCh *root,
                                      const XMLCh *nameSpace, const XMLCh *systemId) {
    ReleaseContents();
    m_pDocument = implementation->createDocument(XMLPlatformUtils::fgMemoryManager);
    if (!m_pDocument)
        return 0;
    HoldsCallersText();
    if (systemId)
        m_pDocument->appendChild(m_pDocument->createDocumentType(root, nullptr, systemId));
    m_pDocument->appendChild(m_pDocument->createElementNS(nameSpace, root));
    return m_pDocument ? 1 : 0;
}

// Makes the parser on first use, or empties the one a previous load made
// (which releases every document it produced, node handles included).
bool CZUXMLDocument::PrepareParser() {
    if (m_pParser) {
        m_pParser->resetDocumentPool();
        m_pDocument = nullptr;
        return true;
    }
    if (m_pDocument) {
        m_pDocument->release();
        m_pDocument = nullptr;
    }
    auto *implementation = static_cast<DOMImplementationLS *>(CoreImplementation());
    m_pParser = implementation->createLSParser(DOMImplementationLS::MODE_SYNCHRONOUS, nullptr,
                                               XMLPlatformUtils::fgMemoryManager, nullptr);
    // Namespaces on; everything else (validation, entities, whitespace) as
    // Xerces has it by default.
    if (m_pParser)
        m_pParser->getDomConfig()->setParameter(XMLUni::fgDOMNamespaces, true);
    return m_pParser != nullptr;
}

// Parses from the input (or, without one, from path). Without an error
// handler Xerces does not stop at a well-formedness error: it hands back
// what it built so far. The scanner still counts errors and fatal errors,
// so a load that saw any answers 0 and keeps no document.
int32_t CZUXMLDocument::Load(DOMLSInput *input, const XMLCh *path) {
    if (!CoreImplementation())
        return 0;
    try {
        if (!PrepareParser())
            return 0;
        if (input)
            m_pDocument = m_pParser->parse(input);
        else if (path)
            m_pDocument = m_pParser->parseURI(path);
        if (m_pDocument && static_cast<DOMLSParserImpl *>(m_pParser)->getErrorCount() > 0)
            m_pDocument = nullptr;
    } catch (const XMLException &) {
        return 0;
    } catch (const DOMException &) {
        return 0;
    } catch (const OutOfMemoryException &) {
        // Xerces leaves a parser that ran out of memory marked as parsing,
        // and it refuses every later parse: it goes, so that the next load
        // makes a new one.
        try {
            ReleaseContents();
        } catch (...) {
            m_pParser = nullptr;
        }
        return 0;
    } catch (...) {
        return 0;
    }
    if (!m_pDocument)
        return 0;
    // The parser refuses a lone surrogate wherever the document itself has
    // one, but not in the attribute defaults of a DTD, whose namespace
    // declarations then name elements: only a document with a document type
    // may hold, as loaded, text that the file serializer could never finish.
    m_bUncheckedText = m_pDocument->getDoctype() != nullptr;
    return 1;
}

int32_t CZUXMLDocument::LoadFromFile(const XMLCh *path) { return Load(nullptr, path); }

int32_t CZUXMLDocument::LoadFromBytes(const void *bytes, uint32_t count) {
    MemBufInputSource source(static_cast<const XMLByte *>(bytes), count, "XMLBuffer", false,
                             XMLPlatformUtils::fgMemoryManager);
    Wrapper4InputSource input(&source, false, XMLPlatformUtils::fgMemoryManager);
    return Load(&input, nullptr);
}

int32_t CZUXMLDocument::LoadFromWideText(const XMLCh *text, uint32_t units) {
    MemBufInputSource source(reinterpret_cast<const XMLByte *>(text), static_cast<XMLSize_t>(units) * 2,
                             u"XMLBuffer", false, XMLPlatformUtils::fgMemoryManager);
    Wrapper4InputSource input(&source, false, XMLPlatformUtils::fgMemoryManager);
    // Read as UTF-16 in the machine's byte order, whatever the text's own
    // XML declaration says.
    input.setEncoding(ForcedUtf16EncodingName());
    return Load(&input, nullptr);
}

} // namespace zuxml
