// The narrow forms of the texts a SAX2 load hands to narrow callbacks, made
// with XMLString::transcode (Xerces' local code page transcoder, not the C
// runtime's locale) and kept, so that a text that recurs is transcoded once.
//
// Kept bytes are the bytes a new transcode would give: the transcoder
// converts each text on its own, from its initial state, into a code page
// that does not change while a load runs (Debian's Xerces uses ICU's
// ucnv_fromUChars, which resets the process's default converter first; our
// Windows build uses Xerces' Windows transcoder, WideCharToMultiByte into
// the process's ANSI code page). So a text's narrow form does not depend on
// where in the document it occurs.
//
// Two forms, by how long the text handed out lives:
//   Stable     texts a document repeats throughout: element and attribute
//              names, namespace URIs, attribute types, and the runs of
//              white space that lay it out. Each distinct text is
//              transcoded once and kept; what is handed out lives as long
//              as the cache (one load). Such texts are few where elements
//              are many, so the store stays small.
//   Transient  attribute values, comments, messages and character data,
//              which repeat often (enumerations, numbers, flags) but not
//              always. A fixed number of slots each keep the last text that
//              fell to them; what is handed out is good until the next
//              Transient call, which suffices because each callback gets at
//              most one such text and character data is copied at once.
// Both answer the empty string for NULL and for text the code page cannot
// represent.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include <xercesc/util/XercesDefs.hpp>

namespace zuxml {

class CZUXMLNarrowCache {
public:
    const char *Stable(const XMLCh *text);
    const char *Transient(const XMLCh *text);

private:
    using Key = std::basic_string_view<XMLCh>;

    // The stable store: every distinct text with its narrow form.
    struct Entry {
        std::basic_string<XMLCh> text;
        std::string narrow;
    };

    // Of its own type, so that the table always looks up by hash: with the
    // standard hasher of a string view, libstdc++ compares a small table's
    // keys one by one instead.
    struct Hash {
        size_t operator()(Key key) const { return std::hash<Key>()(key); }
    };

    // Xerces hands most names over from the same few addresses (its pools
    // of names and URIs, and the attribute buffers it reuses from element
    // to element), so the last few entries found for an address are tried
    // first. Their text is compared: a reused buffer holds other names.
    struct ByAddress {
        static constexpr size_t kWays = 4;
        const XMLCh *address[kWays] = {};
        const Entry *entry[kWays] = {};
        size_t next = 0;
    };
    static constexpr size_t kAddresses = 64;

    // The transient slots.
    struct Slot {
        std::basic_string<XMLCh> text;
        std::string narrow;
        bool used = false;
    };
    static constexpr size_t kSlots = 256;
    // Longer texts seldom repeat and are not kept.
    static constexpr size_t kLongest = 64;

    const Entry &Find(const XMLCh *text);

    ByAddress m_aByAddress[kAddresses];
    // Keys view the texts held by the entries; a deque never moves them.
    std::deque<Entry> m_Entries;
    std::unordered_map<Key, const Entry *, Hash> m_Index;

    Slot m_aSlots[kSlots];
    // The narrow form of the last transient text too long to keep.
    std::string m_Long;
};

} // namespace zuxml
