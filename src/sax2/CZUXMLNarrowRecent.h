// The narrow forms of recently seen short texts: attribute values, comments
// and character data, which repeat often (enumerations, numbers, flags) but
// not always.
//
// A fixed number of slots, each chosen by the text's hash, keeps the last
// text that fell to it with its narrow form; a text found there is not
// transcoded again. The kept bytes are those XMLString::transcode gives for
// that text, for the reason CZUXMLNarrowNames states. A text handed out is
// good until the next call of Get: each callback receives at most one such
// text, and character data is copied at once.
#pragma once

#include <cstddef>
#include <string>

#include <xercesc/util/XercesDefs.hpp>

namespace zuxml {

class CZUXMLNarrowRecent {
public:
    // The narrow form of text (NULL reads as empty); the empty string for
    // text the code page cannot represent.
    const char *Get(const XMLCh *text);

private:
    static constexpr size_t kSlots = 256;
    // Longer texts seldom repeat and are not kept.
    static constexpr size_t kLongest = 64;

    struct Slot {
        std::basic_string<XMLCh> text;
        std::string narrow;
        bool used = false;
    };

    Slot m_aSlots[kSlots];
    // The narrow form of the last text too long to keep.
    std::string m_Long;
};

} // namespace zuxml
