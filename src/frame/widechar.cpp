// SPDX-License-Identifier: Apache-2.0
#include "frame/widechar.h"

namespace zuxml {

bool AppendUtf16(const wchar_t *text, std::u16string &out) {
    for (; *text; ++text) {
        const auto c = static_cast<unsigned long>(*text);
        if (kWideCharIsUtf16 || c < 0x10000) {
            if (!kWideCharIsUtf16 && c >= 0xD800 && c < 0xE000)
                return false;
            out.push_back(static_cast<char16_t>(c));
        } else if (c <= 0x10FFFF) {
            out.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
            out.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
        } else {
            return false;
        }
    }
    return true;
}

void ToWideChar(const XMLCh *text, size_t length, wchar_t *out) {
    size_t i = 0;
    while (i < length) {
        const char16_t u = text[i++];
        if (!kWideCharIsUtf16 && u >= 0xD800 && u < 0xDC00 && i < length && text[i] >= 0xDC00 &&
            text[i] < 0xE000) {
            const char16_t low = text[i++];
            *out++ = static_cast<wchar_t>(0x10000 + ((u - 0xD800) << 10) + (low - 0xDC00));
        } else {
            *out++ = static_cast<wchar_t>(u);
        }
    }
    *out = 0;
}

} // namespace zuxml
