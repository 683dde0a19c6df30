/* SPDX-License-Identifier: Apache-2.0 */
// Narrow (locale multibyte) text at the interface: the one conversion of
// narrow arguments to UTF-16 and the one conversion of UTF-16 results into
// a caller's narrow buffer. Both go through the C runtime's current locale.
#pragma once

#include <cstddef>
#include <string>

#include <xercesc/util/XercesDefs.hpp>

namespace zuxml {

// A narrow text argument as the UTF-16 text the wide operations take.
// NULL stays NULL; text that is not valid in the current locale becomes the
// empty string, never an error.
class NarrowArg {
public:
    explicit NarrowArg(const char *text);

    const XMLCh *get() const { return m_bNull ? nullptr : m_Text.c_str(); }
    operator const XMLCh *() const { return get(); }

private:
    std::u16string m_Text;
    bool m_bNull;
};

// Converts text (length UTF-16 units, zero-terminated) with the locale's
// wide-to-multibyte conversion into buffer, writing at most capacity bytes.
// The conversion's own result is not examined: text the locale cannot
// represent ends where the conversion stopped, and text longer than
// capacity bytes is cut there without a terminator.
void ConvertToNarrow(const XMLCh *text, size_t length, char *buffer, size_t capacity);

} // namespace zuxml
