// SPDX-License-Identifier: Apache-2.0
#include "frame/CZUXMLTextRecord.h"

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

CZUXMLTextRecord::CZUXMLTextRecord(const char *text) {
    if (text)
        m_pNarrow = XMLString::replicate(text, XMLPlatformUtils::fgMemoryManager);
}

// The Xerces form first, then the narrow copy.
CZUXMLTextRecord::~CZUXMLTextRecord() {
    if (m_pParser)
        XMLString::release(&m_pParser, XMLPlatformUtils::fgMemoryManager);
    if (m_pNarrow)
        XMLString::release(&m_pNarrow, XMLPlatformUtils::fgMemoryManager);
}

const XMLCh *CZUXMLTextRecord::ParserForm() {
    if (!m_pParser && m_pNarrow)
        m_pParser = XMLString::transcode(m_pNarrow, XMLPlatformUtils::fgMemoryManager);
    return m_pParser;
}

} // namespace zuxml
