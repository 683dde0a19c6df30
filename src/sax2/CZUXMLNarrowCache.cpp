#include "sax2/CZUXMLNarrowCache.h"

#include <utility>

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

void Transcode(const XMLCh *text, std::string &narrow) {
    char *bytes = XMLString::transcode(text, XMLPlatformUtils::fgMemoryManager);
    narrow.assign(bytes ? bytes : "");
    if (bytes)
        XMLString::release(&bytes, XMLPlatformUtils::fgMemoryManager);
}

// Whether text is exactly kept. Stops at the first unit that differs, so
// it reads no further into text than its terminator.
bool Matches(const XMLCh *text, const std::basic_string<XMLCh> &kept) {
    const size_t length = kept.size();
    for (size_t i = 0; i < length; ++i)
        if (text[i] != kept[i])
            return false;
    return text[length] == 0;
}

// Only picks a slot, whose text is then compared in full: the length and
// the units at both ends tell most short texts apart, at a fraction of the
// cost of hashing every unit.
size_t SlotHash(std::basic_string_view<XMLCh> text) {
    size_t hash = text.size();
    const size_t ends = text.size() < 4 ? text.size() : 4;
    for (size_t i = 0; i < ends; ++i)
        hash = hash * 131 + text[i] * 31 + text[text.size() - 1 - i];
    return hash ^ hash >> 7;
}

} // namespace

const char *CZUXMLNarrowCache::Stable(const XMLCh *text) {
    if (!text)
        return "";
    const uintptr_t address = reinterpret_cast<uintptr_t>(text);
    ByAddress &recent = m_aByAddress[(address >> 4 ^ address >> 10) % kAddresses];
    for (size_t way = 0; way < ByAddress::kWays; ++way)
        if (recent.address[way] == text && Matches(text, recent.entry[way]->text))
            return recent.entry[way]->narrow.c_str();
    const Entry &entry = Find(text);
    recent.address[recent.next] = text;
    recent.entry[recent.next] = &entry;
    recent.next = (recent.next + 1) % ByAddress::kWays;
    return entry.narrow.c_str();
}

const CZUXMLNarrowCache::Entry &CZUXMLNarrowCache::Find(const XMLCh *text) {
    const Key key(text);
    const auto found = m_Index.find(key);
    if (found != m_Index.end())
        return *found->second;
    std::string narrow;
    Transcode(text, narrow);
    Entry &entry = m_Entries.emplace_back(Entry{std::basic_string<XMLCh>(key), std::move(narrow)});
    m_Index.emplace(entry.text, &entry);
    return entry;
}

const char *CZUXMLNarrowCache::Transient(const XMLCh *text) {
    if (!text)
        return "";
    const Key key(text);
    if (key.size() > kLongest) {
        Transcode(text, m_Long);
        return m_Long.c_str();
    }
    Slot &slot = m_aSlots[SlotHash(key) % kSlots];
    if (!slot.used || slot.text != key) {
        Transcode(text, slot.narrow);
        slot.text.assign(key);
        slot.used = true;
    }
    return slot.narrow.c_str();
}

} // namespace zuxml
