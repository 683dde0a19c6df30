// The narrow forms of the short texts a document repeats: element and
// attribute names, namespace URIs, attribute types, and the runs of white
// space that lay it out.
//
// Each distinct text is transcoded once per load with XMLString::transcode,
// as every narrow text is, and its bytes are kept for the next time it
// occurs. Xerces' local code page transcoder converts each call afresh from
// its initial state (Debian's Xerces uses ICU's ucnv_fromUChars, which
// resets the converter first), so a text's narrow form does not depend on
// where it occurs and the kept bytes are the bytes a new transcode gives.
// Such texts are few where elements are many, so the store stays small; it
// grows with the distinct texts it is given and never drops one, so every
// text it handed out lives as long as the handler.
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

class CZUXMLNarrowNames {
public:
    // The narrow form of name; the empty string for NULL or for text the
    // code page cannot represent.
    const char *Get(const XMLCh *name);

private:
    struct Entry {
        std::basic_string<XMLCh> name;
        std::string narrow;
    };

    // Of its own type, so that the table always looks up by hash: with the
    // standard hasher of a string view, libstdc++ compares a small table's
    // keys one by one instead.
    struct Hash {
        size_t operator()(std::basic_string_view<XMLCh> key) const {
            return std::hash<std::basic_string_view<XMLCh>>()(key);
        }
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

    const Entry &Find(const XMLCh *name);

    ByAddress m_aByAddress[kAddresses];
    // Keys view the names held by the entries; a deque never moves them.
    std::deque<Entry> m_Entries;
    std::unordered_map<std::basic_string_view<XMLCh>, const Entry *, Hash> m_Index;
};

} // namespace zuxml
