// SPDX-License-Identifier: Apache-2.0
#include "sax2/CZUXMLLocalCodePage.h"

#include <cstdint>
#include <cstring>
#include <utility>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLString.hpp>

#if defined(ZUXML_HAVE_ICU)
#include <unicode/ucnv.h>
#include <unicode/ustring.h>
#endif

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

constexpr XMLCh kFirstNonAscii = 0x80;

#if defined(ZUXML_HAVE_ICU)

// Copies the ASCII units at the start of text (at most length) to out as
// bytes; answers how many there were.
size_t CopyAscii(const XMLCh *text, size_t length, char *out) {
    size_t units = 0;
#if defined(__SSE2__)
    const __m128i high = _mm_set1_epi16(static_cast<short>(0xFF80));
    const __m128i zero = _mm_setzero_si128();
    for (; units + 8 <= length; units += 8) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(text + units));
        if (_mm_movemask_epi8(_mm_cmpeq_epi16(_mm_and_si128(block, high), zero)) != 0xFFFF)
            break;
        _mm_storel_epi64(reinterpret_cast<__m128i *>(out + units), _mm_packus_epi16(block, block));
    }
#endif
    for (; units < length && text[units] < kFirstNonAscii; ++units)
        out[units] = static_cast<char>(text[units]);
    return units;
}

// Whether Xerces' local code page transcoder is ICU's UTF-8 converter: the
// ICU service opens it as ICU's default converter (ucnv_open(NULL)).
bool XercesTranscodesToUtf8() {
    static const XMLCh kIcu[] = u"ICU";
    XMLTransService *service = XMLPlatformUtils::fgTransService;
    if (!service || !XMLString::equals(service->getId(), kIcu))
        return false;
    const char *name = ucnv_getDefaultName();
    return name && std::strcmp(name, "UTF-8") == 0;
}

// UTF-8 of a run of non-ASCII units, unpaired surrogates as U+FFFD: what
// ICU's UTF-8 converter writes for them. At most three bytes a unit.
size_t ConvertRun(const XMLCh *text, size_t length, char *out) {
    int32_t written = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strToUTF8WithSub(out, static_cast<int32_t>(3 * length), &written, reinterpret_cast<const UChar *>(text),
                       static_cast<int32_t>(length), 0xFFFD, nullptr, &error);
    return U_FAILURE(error) ? 0 : static_cast<size_t>(written);
}
#endif

// The text through Xerces' transcoder, one call for the whole text.
void AppendTranscoded(const XMLCh *text, CZUXMLNarrowText &out) {
    char *bytes = XMLString::transcode(text, XMLPlatformUtils::fgMemoryManager);
    if (bytes) {
        out.Append(bytes, std::strlen(bytes));
        XMLString::release(&bytes, XMLPlatformUtils::fgMemoryManager);
    }
}

} // namespace

CZUXMLLocalCodePage::CZUXMLLocalCodePage()
#if defined(ZUXML_HAVE_ICU)
    : m_bUtf8(XercesTranscodesToUtf8())
#else
    : m_bUtf8(false)
#endif
{
}

char *CZUXMLNarrowText::Reserve(size_t count) {
    const size_t needed = m_nSize + count + 1;
    if (needed > m_nCapacity) {
        size_t capacity = m_nCapacity ? m_nCapacity : 64;
        while (capacity < needed)
            capacity *= 2;
        std::unique_ptr<char[]> bytes(new char[capacity]);
        if (m_nSize)
            std::memcpy(bytes.get(), m_pBytes.get(), m_nSize);
        m_pBytes = std::move(bytes);
        m_nCapacity = capacity;
    }
    return m_pBytes.get() + m_nSize;
}

void CZUXMLNarrowText::Append(const char *bytes, size_t count) {
    std::memcpy(Reserve(count), bytes, count);
    Commit(count);
}

// Without ICU (the Windows build) every text goes through Xerces' transcoder.
void CZUXMLLocalCodePage::Append(const XMLCh *text, [[maybe_unused]] size_t length, CZUXMLNarrowText &out) const {
    if (!m_bUtf8) {
        AppendTranscoded(text, out);
        return;
    }
#if defined(ZUXML_HAVE_ICU)
    // Room for the longest form, three bytes a unit. Runs split only at
    // ASCII units, so no surrogate pair is ever split.
    char *const bytes = out.Reserve(3 * length);
    size_t used = CopyAscii(text, length, bytes);
    size_t done = used;
    // Most text is ASCII alone.
    if (done == length) {
        out.Commit(used);
        return;
    }
    while (done < length) {
        const size_t ascii = CopyAscii(text + done, length - done, bytes + used);
        done += ascii;
        used += ascii;
        size_t run = 0;
        while (done + run < length && text[done + run] >= kFirstNonAscii)
            ++run;
        if (run) {
            used += ConvertRun(text + done, run, bytes + used);
            done += run;
        }
    }
    out.Commit(used);
#endif
}

void CZUXMLLocalCodePage::AppendTerminated(const XMLCh *text, CZUXMLNarrowText &out) const {
    if (!m_bUtf8) {
        AppendTranscoded(text, out);
        return;
    }
    // A block of room at a time; the copy stops at the terminator or at the
    // first unit that is not ASCII, and what follows that unit is measured
    // and converted as a whole.
    constexpr size_t kBlock = 64;
    size_t copied = kBlock;
    while (copied == kBlock) {
        char *const bytes = out.Reserve(kBlock);
        copied = 0;
        for (XMLCh unit = text[0]; copied < kBlock && unit != 0 && unit < kFirstNonAscii; unit = text[++copied])
            bytes[copied] = static_cast<char>(unit);
        out.Commit(copied);
        text += copied;
    }
    if (*text)
        Append(text, XMLString::stringLen(text), out);
}

} // namespace zuxml
