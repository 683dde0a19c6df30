// SPDX-License-Identifier: Apache-2.0
#include "sax2/CZUXMLNarrowCache.h"

#include <cstring>
#include <utility>

#include <xercesc/framework/XMLAttDef.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

#include "sax2/layout_space.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

void Transcode(const XMLCh *text, std::string &narrow) {
    char *bytes = XMLString::transcode(text, XMLPlatformUtils::fgMemoryManager);
    narrow.assign(bytes ? bytes : "");
    if (bytes)
        XMLString::release(&bytes, XMLPlatformUtils::fgMemoryManager);
}

// Whether text is exactly the kept one, whose length units are none of
// them zero. Each unit of text is read only once the ones before it have
// matched, so a shorter text ends the comparison at its terminator and
// nothing past that is read. Four units a step: names and URIs are mostly
// longer than that.
bool Matches(const XMLCh *text, const XMLCh *kept, size_t length) {
    size_t i = 0;
    for (; i + 4 <= length; i += 4) {
        if (text[i] != kept[i] || text[i + 1] != kept[i + 1] || text[i + 2] != kept[i + 2] ||
            text[i + 3] != kept[i + 3])
            return false;
    }
    for (; i < length; ++i)
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

CZUXMLNarrowCache::CZUXMLNarrowCache() {
    static_assert(kTypes == XMLAttDef::AttTypes_Count, "one kept name for each of Xerces' attribute types");
    for (size_t type = 0; type < kTypes; ++type)
        m_aTypeNames[type] = XMLAttDef::getAttTypeString(static_cast<XMLAttDef::AttTypes>(type));
}

const char *CZUXMLNarrowCache::Stable(const XMLCh *text) {
    // The empty text (no namespace) is common and needs no look-up.
    if (!text || !*text)
        return "";
    // The first unit joins the address in choosing the entries to try, so
    // that the names a reused buffer holds in turn are mostly found first.
    const uintptr_t address = reinterpret_cast<uintptr_t>(text);
    ByAddress &recent = m_aByAddress[(address >> 4 ^ address >> 10 ^ text[0]) % kAddresses];
    for (const Way &way : recent.way)
        if (way.address == text && Matches(text, way.kept, way.length))
            return way.narrow;
    const Entry &entry = Find(text);
    recent.way[recent.next] = Way{text, entry.text.c_str(), entry.text.size(), entry.narrow.c_str()};
    recent.next = (recent.next + 1) % ByAddress::kWays;
    return entry.narrow.c_str();
}

const char *CZUXMLNarrowCache::Type(const XMLCh *text) {
    for (size_t type = 0; type < kTypes; ++type) {
        if (text == m_aTypeNames[type]) {
            if (!m_aTypeNarrow[type])
                m_aTypeNarrow[type] = Stable(text);
            return m_aTypeNarrow[type];
        }
    }
    return Stable(text);
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
    if (m_CodePage.IsDirect()) {
        m_Direct.clear();
        m_CodePage.AppendTerminated(text, m_Direct);
        return m_Direct.c_str();
    }
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

void CZUXMLNarrowCache::Gather(CZUXMLNarrowText &elementText, const XMLCh *chars, size_t length) {
    if (m_CodePage.IsDirect()) {
        m_CodePage.Append(chars, length, elementText);
        return;
    }
    // Runs of layout space recur as often as names do.
    const char *narrow = IsLayoutSpace(chars) ? Stable(chars) : Transient(chars);
    elementText.Append(narrow, std::strlen(narrow));
}

} // namespace zuxml
