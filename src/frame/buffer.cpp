// SPDX-License-Identifier: Apache-2.0
#include "frame/buffer.h"

#include <algorithm>

#include <xercesc/util/XMLString.hpp>

#include "frame/narrow.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

// Too small when n <= L, compared as signed numbers; L + 1 is reported.
bool Fits(const TextResult &text, int32_t *length) {
    if (static_cast<int64_t>(*length) <= static_cast<int64_t>(text.Length())) {
        *length = static_cast<int32_t>(text.Length() + 1);
        return false;
    }
    return true;
}

// Bounded wide copy: the text, then zeros up to capacity units.
void CopyPadded(const TextResult &text, XMLCh *buffer, int32_t capacity) {
    text.CopyTo(buffer);
    std::fill(buffer + text.Length(), buffer + capacity, XMLCh(0));
}

// What the narrow buffer receives: the locale form of what the wide form
// would have written into a wide buffer of n + 1 units that starts out
// empty, so the empty string when the text did not fit. Its first byte is
// written even for n <= 0.
void WriteNarrow(bool wrote, const TextResult &text, char *buffer, int32_t capacity) {
    if (!buffer)
        return;
    buffer[0] = 0;
    if (wrote)
        ConvertToNarrow(text.Data(), text.Length(), buffer, static_cast<size_t>(capacity));
}

} // namespace

void TextResult::View(const XMLCh *text) {
    m_pText = text ? text : u"";
    m_nLength = XMLString::stringLen(m_pText);
}

void TextResult::View(const XMLCh *text, size_t length) {
    m_pText = text;
    m_nLength = length;
}

void TextResult::Defer(size_t length, Writer writer, const void *source) {
    m_nLength = length;
    m_pWriter = writer;
    m_pSource = source;
}

void TextResult::CopyTo(XMLCh *out) const {
    if (m_pWriter)
        m_pWriter(m_pSource, out);
    else
        std::copy_n(m_pText, m_nLength, out);
}

const XMLCh *TextResult::Data() const {
    if (m_pWriter && m_Built.size() != m_nLength) {
        m_Built.resize(m_nLength);
        m_pWriter(m_pSource, m_Built.data());
        m_pText = m_Built.c_str();
    }
    return m_pText;
}

int32_t DeliverW(int32_t result, const TextResult &text, XMLCh *buffer, int32_t *length) {
    if (result != 1)
        return result;
    if (!Fits(text, length))
        return 0;
    CopyPadded(text, buffer, *length);
    return result;
}

int32_t DeliverA(int32_t result, const TextResult &text, char *buffer, int32_t *length) {
    const int32_t capacity = *length;
    const bool wrote = result == 1 && Fits(text, length);
    WriteNarrow(wrote, text, buffer, capacity);
    return result == 1 && !wrote ? 0 : result;
}

int32_t DeliverW(int32_t result, const TextResult &first, XMLCh *firstBuffer, int32_t *firstLength,
                 const TextResult &second, XMLCh *secondBuffer, int32_t *secondLength) {
    if (result != 1)
        return result;
    const bool firstFits = Fits(first, firstLength);
    if (firstFits)
        CopyPadded(first, firstBuffer, *firstLength);
    const bool secondFits = Fits(second, secondLength);
    if (secondFits)
        CopyPadded(second, secondBuffer, *secondLength);
    return firstFits && secondFits ? result : 0;
}

int32_t DeliverA(int32_t result, const TextResult &first, char *firstBuffer, int32_t *firstLength,
                 const TextResult &second, char *secondBuffer, int32_t *secondLength) {
    // Both lengths are read before the wide protocol may change them.
    const int32_t firstCapacity = *firstLength;
    const int32_t secondCapacity = *secondLength;
    const bool firstFits = result == 1 && Fits(first, firstLength);
    const bool secondFits = result == 1 && Fits(second, secondLength);
    WriteNarrow(firstFits, first, firstBuffer, firstCapacity);
    WriteNarrow(secondFits, second, secondBuffer, secondCapacity);
    return result == 1 && !(firstFits && secondFits) ? 0 : result;
}

} // namespace zuxml
