// SPDX-License-Identifier: Apache-2.0
// Serialisation with Xerces' DOM serializer, left at its defaults but for
// indentation of files.
#include "dom/CZUXMLDocument.h"
#include "dom/write_guard.h"

#include <cstring>

#include <xercesc/framework/LocalFileFormatTarget.hpp>
#include <xercesc/framework/XMLFormatter.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

// The DOM user-data key that marks a document one of whose CDATA sections
// took text through the interface, whichever handle made the edit.
const XMLCh kCdataKey[] = u"zuxml-cdata-text";

// The UTF-16 text a serializer writes, gathered in memory of Xerces' default
// memory manager so that the finished text is handed over as it stands:
// what writeToString gathers the same way and then copies once more.
class UnitsTarget final : public XMLFormatTarget {
public:
    UnitsTarget() = default;
    UnitsTarget(const UnitsTarget &) = delete;
    UnitsTarget &operator=(const UnitsTarget &) = delete;
    ~UnitsTarget() override { XMLPlatformUtils::fgMemoryManager->deallocate(m_pBytes); }

    void writeChars(const XMLByte *const bytes, const XMLSize_t count, XMLFormatter *const) override {
        Reserve(count);
        std::memcpy(m_pBytes + m_nUsed, bytes, count);
        m_nUsed += count;
    }

    // The text, zero-terminated, now the caller's to release.
    XMLCh *Release() {
        Reserve(0);
        std::memset(m_pBytes + m_nUsed, 0, kTerminator);
        XMLByte *bytes = m_pBytes;
        m_pBytes = nullptr;
        return reinterpret_cast<XMLCh *>(bytes);
    }

private:
    static constexpr XMLSize_t kTerminator = sizeof(XMLCh);

    // Room for count more bytes and a terminator, doubling as it grows.
    void Reserve(XMLSize_t count) {
        const XMLSize_t needed = m_nUsed + count + kTerminator;
        if (m_pBytes && needed <= m_nCapacity)
            return;
        XMLSize_t capacity = m_nCapacity ? m_nCapacity : 2048;
        while (capacity < needed)
            capacity *= 2;
        auto *bytes = static_cast<XMLByte *>(XMLPlatformUtils::fgMemoryManager->allocate(capacity));
        if (m_pBytes) {
            std::memcpy(bytes, m_pBytes, m_nUsed);
            XMLPlatformUtils::fgMemoryManager->deallocate(m_pBytes);
        }
        m_pBytes = bytes;
        m_nCapacity = capacity;
    }

    XMLByte *m_pBytes = nullptr;
    XMLSize_t m_nUsed = 0;
    XMLSize_t m_nCapacity = 0;
};

} // namespace

// A serializer for the document held, or NULL when there is no document,
// no DOM implementation or no serializer.
DOMLSSerializer *CZUXMLDocument::NewSerializer(DOMImplementationLS *&implementation) const {
    if (!m_pDocument)
        return nullptr;
    implementation = static_cast<DOMImplementationLS *>(CoreImplementation());
    return implementation ? implementation->createLSSerializer(XMLPlatformUtils::fgMemoryManager) : nullptr;
}

// The output descriptor is never released, and on a failed descriptor the
// target and serializer are not either: the interface states these as the
// memory a file write keeps. A file that could be opened but not written
// may be left behind, partly written.
int32_t CZUXMLDocument::WriteToFile(const XMLCh *path, bool pretty) {
    DOMImplementationLS *implementation = nullptr;
    DOMLSSerializer *serializer = NewSerializer(implementation);
    if (!serializer)
        return 0;
    XMLFormatTarget *target = nullptr;
    int32_t result = 0;
    try {
        // Refused before the file is opened or truncated.
        if (MayHoldUnwritableText() && WriteWouldNotReturn(m_pDocument)) {
            serializer->release();
            return 0;
        }
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

// Never indented: nothing is set on the serializer. What writeToString
// does, without its final copy: UTF-16 output (the serializer's byte order
// mark is off by default), and the text up to its first zero unit. NULL
// when there is nothing to write or the serializer fails.
XMLCh *CZUXMLDocument::Serialise(size_t &length) const {
    DOMImplementationLS *implementation = nullptr;
    DOMLSSerializer *serializer = NewSerializer(implementation);
    if (!serializer)
        return nullptr;
    XMLCh *text = nullptr;
    DOMLSOutput *output = nullptr;
    try {
        UnitsTarget target;
        output = implementation->createLSOutput(XMLPlatformUtils::fgMemoryManager);
        output->setByteStream(&target);
        output->setEncoding(XMLUni::fgUTF16EncodingString);
        if (serializer->write(m_pDocument, output)) {
            text = target.Release();
            length = XMLString::stringLen(text);
        }
    } catch (...) {
        text = nullptr;
    }
    if (output)
        output->release();
    serializer->release();
    return text;
}

int32_t CZUXMLDocument::WriteToString(TextResult &text) {
    if (!m_pWritten)
        m_pWritten = Serialise(m_nWritten);
    if (!m_pWritten)
        return 0;
    text.View(m_pWritten, m_nWritten);
    return 1;
}

void CZUXMLDocument::CdataGetsCallersText(DOMNode *node) {
    if (DOMDocument *document = node->getOwnerDocument())
        document->setUserData(kCdataKey, document, nullptr);
}

bool CZUXMLDocument::MayHoldUnwritableText() const {
    return m_bUncheckedText || m_pDocument->getUserData(kCdataKey) != nullptr;
}

} // namespace zuxml
