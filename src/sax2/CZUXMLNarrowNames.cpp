#include "sax2/CZUXMLNarrowNames.h"

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

// Whether text is exactly name. Stops at the first unit that differs, so
// it reads no further into text than its terminator.
bool Matches(const XMLCh *text, const std::basic_string<XMLCh> &name) {
    const size_t length = name.size();
    for (size_t i = 0; i < length; ++i)
        if (text[i] != name[i])
            return false;
    return text[length] == 0;
}

} // namespace

const char *CZUXMLNarrowNames::Get(const XMLCh *name) {
    if (!name)
        return "";
    const uintptr_t address = reinterpret_cast<uintptr_t>(name);
    ByAddress &recent = m_aByAddress[(address >> 4 ^ address >> 10) % kAddresses];
    for (size_t way = 0; way < ByAddress::kWays; ++way)
        if (recent.address[way] == name && Matches(name, recent.entry[way]->name))
            return recent.entry[way]->narrow.c_str();
    const Entry &entry = Find(name);
    recent.address[recent.next] = name;
    recent.entry[recent.next] = &entry;
    recent.next = (recent.next + 1) % ByAddress::kWays;
    return entry.narrow.c_str();
}

const CZUXMLNarrowNames::Entry &CZUXMLNarrowNames::Find(const XMLCh *name) {
    const std::basic_string_view<XMLCh> key(name);
    const auto found = m_Index.find(key);
    if (found != m_Index.end())
        return *found->second;

    char *narrow = XMLString::transcode(name, XMLPlatformUtils::fgMemoryManager);
    Entry &entry = m_Entries.emplace_back(Entry{std::basic_string<XMLCh>(key), narrow ? narrow : ""});
    if (narrow)
        XMLString::release(&narrow, XMLPlatformUtils::fgMemoryManager);
    m_Index.emplace(entry.name, &entry);
    return entry;
}

} // namespace zuxml
