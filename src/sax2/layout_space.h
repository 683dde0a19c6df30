/* SPDX-License-Identifier: Apache-2.0 */
// Which character data is layout: the short runs of white space (line
// breaks and indentation) that recur as often as a document's names do, so
// that their narrow form is kept with the names' (CZUXMLNarrowCache::Stable).
#pragma once

#include <xercesc/util/XercesDefs.hpp>

namespace zuxml {

// Whether the zero-terminated text is at most 64 units of space, tab, line
// feed and carriage return. Reads no further than its 65th unit.
inline bool IsLayoutSpace(const XMLCh *text) {
    constexpr int kLongest = 64;
    for (int i = 0; i <= kLongest; ++i) {
        switch (text[i]) {
        case 0:
            return true;
        case u' ':
        case u'\t':
        case u'\n':
        case u'\r':
            continue;
        default:
            return false;
        }
    }
    return false;
}

} // namespace zuxml
