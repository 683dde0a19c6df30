#include "sax2/CZUXMLNarrowRecent.h"

#include <string_view>

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

const char *CZUXMLNarrowRecent::Get(const XMLCh *text) {
    if (!text)
        return "";
    const std::basic_string_view<XMLCh> key(text);
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
