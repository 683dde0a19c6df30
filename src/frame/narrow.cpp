// SPDX-License-Identifier: Apache-2.0
#include "frame/narrow.h"

#include <cstdlib>
#include <cstring>
#include <memory>

#include "frame/widechar.h"

namespace zuxml {

namespace {

// A wchar_t scratch buffer on the stack for short text, on the heap beyond.
class WideScratch {
public:
    explicit WideScratch(size_t count)
        : m_pHeap(count > kInline ? new wchar_t[count] : nullptr), m_pData(m_pHeap ? m_pHeap.get() : m_Inline) {}
    wchar_t *data() { return m_pData; }

private:
    static constexpr size_t kInline = 256;
    wchar_t m_Inline[kInline];
    std::unique_ptr<wchar_t[]> m_pHeap;
    wchar_t *m_pData;
};

} // namespace

NarrowArg::NarrowArg(const char *text) : m_bNull(text == nullptr) {
    if (!text)
        return;
    // A multibyte string never yields more wide characters than it has
    // bytes, so byte length plus terminator always suffices.
    const size_t units = std::strlen(text) + 1;
    WideScratch wide(units);
    if (std::mbstowcs(wide.data(), text, units) == static_cast<size_t>(-1))
        return;
    if constexpr (kWideCharIsUtf16) {
        m_Text.assign(reinterpret_cast<const char16_t *>(wide.data()));
    } else if (!AppendUtf16(wide.data(), m_Text)) {
        m_Text.clear();
    }
}

void ConvertToNarrow(const XMLCh *text, size_t length, char *buffer, size_t capacity) {
    if constexpr (kWideCharIsUtf16) {
        std::wcstombs(buffer, reinterpret_cast<const wchar_t *>(text), capacity);
    } else {
        WideScratch wide(length + 1);
        ToWideChar(text, length, wide.data());
        std::wcstombs(buffer, wide.data(), capacity);
    }
}

} // namespace zuxml
