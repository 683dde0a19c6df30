/* SPDX-License-Identifier: Apache-2.0 */
// The caller-buffer protocol, written once for every getter of text.
//
// A getter's operation produces a TextResult; the wide entry point hands it
// out with DeliverW and the narrow one with DeliverA:
//   - an operation that did not answer 1 passes its answer on; DeliverW then
//     writes nothing, DeliverA leaves the empty string in the buffer;
//   - a length n <= L (the text's length) is too small, zero and negative
//     ones included: the length becomes L + 1 and the answer is 0;
//   - otherwise the text, its terminator and zeros up to n characters are
//     written (narrow: at most n bytes of the locale's form) and the
//     length is left as it was.
// The narrow form behaves as if the wide form wrote into a wide buffer of
// n + 1 units that is then converted into the caller's bytes: so its length
// counts wide characters, not bytes, and text longer in bytes than in wide
// characters is cut at n bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <xercesc/util/XercesDefs.hpp>

namespace zuxml {

// Text an operation hands back: a view of a zero-terminated Xerces string
// that outlives the call, a string Xerces made for this call and that is
// released with Xerces' default memory manager when the result dies, or
// text of a known length that is written out only when it is delivered.
class TextResult {
public:
    // Writes the deferred text's units, without a terminator, to out.
    using Writer = void (*)(const void *source, XMLCh *out);

    TextResult() = default;
    TextResult(const TextResult &) = delete;
    TextResult &operator=(const TextResult &) = delete;

    // Views text; NULL reads as the empty string.
    void View(const XMLCh *text);
    // Views text of a known length, zero-terminated there.
    void View(const XMLCh *text, size_t length);
    // Text of length units that writer makes from source on demand: a
    // getter whose text does not fit then never builds it, and one whose
    // text fits builds it straight into the caller's buffer.
    void Defer(size_t length, Writer writer, const void *source);

    size_t Length() const { return m_nLength; }
    // The Length() units of the text, without a terminator, into out.
    void CopyTo(XMLCh *out) const;
    // The text, zero-terminated (deferred text is built on first use).
    const XMLCh *Data() const;

private:
    mutable const XMLCh *m_pText = u"";
    size_t m_nLength = 0;
    Writer m_pWriter = nullptr;
    const void *m_pSource = nullptr;
    mutable std::basic_string<XMLCh> m_Built;
};

int32_t DeliverW(int32_t result, const TextResult &text, XMLCh *buffer, int32_t *length);
int32_t DeliverA(int32_t result, const TextResult &text, char *buffer, int32_t *length);

// The two-output getters: each output under the protocol on its own, the
// answer 0 when either was too small.
int32_t DeliverW(int32_t result, const TextResult &first, XMLCh *firstBuffer, int32_t *firstLength,
                 const TextResult &second, XMLCh *secondBuffer, int32_t *secondLength);
int32_t DeliverA(int32_t result, const TextResult &first, char *firstBuffer, int32_t *firstLength,
                 const TextResult &second, char *secondBuffer, int32_t *secondLength);

} // namespace zuxml
