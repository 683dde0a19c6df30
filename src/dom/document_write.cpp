// Serialisation with Xerces' DOM serializer, left at its defaults but for
// indentation of files.
#include "dom/CZUXMLDocument.h"

#include <xercesc/framework/LocalFileFormatTarget.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

// A serializer for the document held, or NULL when there is no document,
// no DOM implementation or no serializer.
DOMLSSerializer *CZUXMLDocument::NewSerializer(DOMImplementationLS *&implementation) const {
    if (!m_pDocument)
        return nullptr;
    implementation = static_cast<DOMImplementationLS *>(CoreImplementation());
    return implementation ? implementation->createLSSerializer(XMLPlatformUtils::fgMemoryManager) : nullptr;
}

// The output descriptor is never released, and on a failed descriptor the
// target and serializer are not either: callers have always seen these
// small leaks and they are kept. A file that could be opened but not
// written may be left behind, partly written.
int32_t CZUXMLDocument::WriteToFile(const XMLCh *path, bool pretty) {
    DOMImplementationLS *implementation = nullptr;
    DOMLSSerializer *serializer = NewSerializer(implementation);
    if (!serializer)
        return 0;
    XMLFormatTarget *target = nullptr;
    int32_t result = 0;
    try {
        // Opens (creates or truncates) the file; throws when it cannot.
        target = new (XMLPlatformUtils::fgMemoryManager) LocalFileFormatTarget(path, XMLPlatformUtils::fgMemoryManager);
        DOMLSOutput *output = implementation->createLSOutput(XMLPlatformUtils::fgMemoryManager);
        if (!output)
            return 0;
        output->setByteStream(target);
        if (pretty)
            serializer->getDomConfig()->setParameter(XMLUni::fgDOMWRTFormatPrettyPrint, true);
        result = serializer->write(m_pDocument, output) ? 1 : 0;
    } catch (...) {
        result = 0;
    }
    delete target; // flushes and closes the file
    serializer->release();
    return result;
}

// Never indented: nothing is set on the serializer.
int32_t CZUXMLDocument::WriteToString(TextResult &text) {
    DOMImplementationLS *implementation = nullptr;
    DOMLSSerializer *serializer = NewSerializer(implementation);
    if (!serializer)
        return 0;
    int32_t result = 0;
    try {
        if (XMLCh *written = serializer->writeToString(m_pDocument)) {
            text.Adopt(written);
            result = 1;
        }
    } catch (...) {
        result = 0;
    }
    serializer->release();
    return result;
}

} // namespace zuxml
