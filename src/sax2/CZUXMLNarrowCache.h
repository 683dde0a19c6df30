/* SPDX-License-Identifier: Apache-2.0 */
// The narrow forms of the texts a SAX2 load hands to narrow callbacks: the
// bytes of XMLString::transcode (Xerces' local code page transcoder, not the
// C runtime's locale), made by CZUXMLLocalCodePage and, where each text
// would cost a call of that transcoder, kept, so that a text that recurs is
// transcoded once.
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
//   Type       an attribute's type: Stable, with Xerces' own names of the
//              attribute types known by their address. Those are constant
//              arrays of Xerces (XMLAttDef::getAttTypeString), whose text
//              cannot change, so their address alone identifies them.
//   Transient  attribute values, comments, messages and character data,
//              which repeat often (enumerations, numbers, flags) but not
//              always. On the direct route (CZUXMLLocalCodePage) they are
//              converted afresh, which costs less than finding them again;
//              otherwise a fixed number of slots each keep the last text
//              that fell to them. What is handed out is good until the next
//              Transient call, which suffices because each callback gets at
//              most one such text; character data is appended to the
//              element's text at once (Gather).
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

#include "sax2/CZUXMLLocalCodePage.h"

namespace zuxml {

class CZUXMLNarrowCache {
public:
    CZUXMLNarrowCache();

    const char *Stable(const XMLCh *text);
    const char *Type(const XMLCh *text);
    const char *Transient(const XMLCh *text);
    // Appends the narrow form of a piece of character data (length units,
    // where its terminator stands) to an element's text.
    void Gather(CZUXMLNarrowText &elementText, const XMLCh *chars, size_t length);

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
    struct Way {
        const XMLCh *address = nullptr;
        // The entry's text, its length and its narrow form, held here so
        // that a hit reads nothing but the text it compares.
        const XMLCh *kept = nullptr;
        size_t length = 0;
        const char *narrow = nullptr;
    };
    struct ByAddress {
        static constexpr size_t kWays = 4;
        Way way[kWays];
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

    // Xerces' names of the attribute types, by type, and where their
    // narrow forms are kept once asked for.
    static constexpr size_t kTypes = 14;
    const XMLCh *m_aTypeNames[kTypes] = {};
    const char *m_aTypeNarrow[kTypes] = {};

    ByAddress m_aByAddress[kAddresses];
    // Keys view the texts held by the entries; a deque never moves them.
    std::deque<Entry> m_Entries;
    std::unordered_map<Key, const Entry *, Hash> m_Index;

    const CZUXMLLocalCodePage m_CodePage;
    // The last transient text of the direct route.
    CZUXMLNarrowText m_Direct;
    Slot m_aSlots[kSlots];
    // The narrow form of the last transient text too long to keep.
    std::string m_Long;
};

} // namespace zuxml
