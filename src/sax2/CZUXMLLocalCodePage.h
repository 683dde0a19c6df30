/* SPDX-License-Identifier: Apache-2.0 */
// Xerces' local code page: the form of every narrow SAX2 text.
//
// Narrow events carry what XMLString::transcode gives, Xerces' local code
// page transcoder, not the C runtime's locale. When Xerces transcodes with
// ICU and ICU's default converter is UTF-8 (always so where ICU is built
// with U_CHARSET_IS_UTF8, as on Linux, whatever the locale), that
// transcoder is ICU's UTF-8 converter: each code point becomes its UTF-8
// bytes and each unpaired surrogate the bytes of U+FFFD. The same bytes
// then come from copying runs of ASCII as they are and handing the rest to
// ICU's own UTF-16 to UTF-8 conversion, with no lock, no allocation and no
// converter set up per text. Otherwise every text goes through
// XMLString::transcode.
#pragma once

#include <cstddef>
#include <memory>

#include <xercesc/util/XercesDefs.hpp>

namespace zuxml {

// Narrow text that conversions write into directly: bytes, always
// zero-terminated, keeping the capacity they reached when cleared.
class CZUXMLNarrowText {
public:
    void clear() {
        m_nSize = 0;
        if (m_pBytes)
            m_pBytes[0] = 0;
    }
    const char *c_str() const { return m_pBytes ? m_pBytes.get() : ""; }
    size_t size() const { return m_nSize; }
    // Room for count more bytes and a terminator; answers where they go.
    char *Reserve(size_t count);
    // The count bytes written where Reserve said now belong to the text.
    void Commit(size_t count) {
        m_nSize += count;
        m_pBytes[m_nSize] = 0;
    }
    void Append(const char *bytes, size_t count);

private:
    std::unique_ptr<char[]> m_pBytes;
    size_t m_nSize = 0;
    size_t m_nCapacity = 0;
};

class CZUXMLLocalCodePage {
public:
    // Looks at Xerces' transcoding service as it is now; Xerces makes its
    // local code page transcoder once, when it is initialised.
    CZUXMLLocalCodePage();

    // Appends the narrow form of the length units of text (which end
    // there, at its terminator) to out: the bytes XMLString::transcode
    // gives for that text, none for text it cannot convert.
    void Append(const XMLCh *text, size_t length, CZUXMLNarrowText &out) const;
    // The same for a text whose length is not known: on the direct route
    // its ASCII is copied while its terminator is looked for, so that a
    // short text is read once rather than measured first.
    void AppendTerminated(const XMLCh *text, CZUXMLNarrowText &out) const;

    // Whether texts take the direct route; otherwise each text costs a call
    // of Xerces' transcoder, and what recurs is worth keeping.
    bool IsDirect() const { return m_bUtf8; }

private:
    bool m_bUtf8;
};

} // namespace zuxml
