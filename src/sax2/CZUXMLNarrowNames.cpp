#include "sax2/CZUXMLNarrowNames.h"

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

const char *CZUXMLNarrowNames::Get(const XMLCh *name) {
    if (!name)
        return "";
    const std::basic_string_view<XMLCh> key(name);
    const auto found = m_Index.find(key);
    if (found != m_Index.end())
        return found->second;

    char *narrow = XMLString::transcode(name, XMLPlatformUtils::fgMemoryManager);
    Entry &entry = m_Entries.emplace_back(Entry{std::basic_string<XMLCh>(key), narrow ? narrow : ""});
    if (narrow)
        XMLString::release(&narrow, XMLPlatformUtils::fgMemoryManager);
    m_Index.emplace(entry.name, entry.narrow.c_str());
    return entry.narrow.c_str();
}

} // namespace zuxml
