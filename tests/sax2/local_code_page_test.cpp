// SPDX-License-Identifier: Apache-2.0
// The narrow form of SAX2 text is what Xerces' own transcoder gives: the
// direct route (ASCII copied, the rest through ICU), for texts measured by
// their length and by their terminator, is held against
// XMLString::transcode over every code unit and code point of Unicode, in
// every position of the eight-unit blocks the ASCII copy works in, and
// next to the unpaired surrogates that only broken UTF-16 can carry. The
// suite runs again under "C.UTF-8" and a Latin-1 locale (tests/CMakeLists).
#include <gtest/gtest.h>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

#include <string>

#include "sax2/CZUXMLLocalCodePage.h"

XERCES_CPP_NAMESPACE_USE

namespace {

using Units = std::basic_string<XMLCh>;

std::string Transcoded(const Units &text) {
    char *bytes = XMLString::transcode(text.c_str(), XMLPlatformUtils::fgMemoryManager);
    std::string narrow = bytes ? bytes : "";
    XMLString::release(&bytes, XMLPlatformUtils::fgMemoryManager);
    return narrow;
}

// Appended after a text already held, which must stay as it was: by the
// text's length, or up to its terminator.
enum class Measure { ByLength, ByTerminator };

std::string Appended(const zuxml::CZUXMLLocalCodePage &codePage, const Units &text,
                     Measure measure = Measure::ByLength) {
    zuxml::CZUXMLNarrowText narrow;
    codePage.Append(u"kept:", 5, narrow);
    if (measure == Measure::ByLength)
        codePage.Append(text.c_str(), text.size(), narrow);
    else
        codePage.AppendTerminated(text.c_str(), narrow);
    const std::string all(narrow.c_str(), narrow.size());
    EXPECT_EQ(all.compare(0, 5, "kept:"), 0) << "what the text held stays";
    EXPECT_EQ(std::char_traits<char>::length(narrow.c_str()), narrow.size()) << "terminated where it ends";
    return all.substr(5);
}

Units Pair(char32_t codePoint) {
    const char32_t offset = codePoint - 0x10000;
    return {static_cast<XMLCh>(0xD800 + (offset >> 10)), static_cast<XMLCh>(0xDC00 + (offset & 0x3FF))};
}

// Hex of the units, for a failure message.
std::string Shown(const Units &text) {
    std::string shown;
    char unit[8];
    for (XMLCh c : text) {
        std::snprintf(unit, sizeof unit, " %04X", static_cast<unsigned>(c));
        shown += unit;
    }
    return shown;
}

class LocalCodePage : public ::testing::Test {
protected:
    // Fails the test once with the text, not once per unit.
    void ExpectSame(const Units &text) {
        const std::string expected = Transcoded(text);
        for (Measure measure : {Measure::ByLength, Measure::ByTerminator}) {
            const std::string got = Appended(m_CodePage, text, measure);
            if (got != expected && m_nFailures++ < 5)
                ADD_FAILURE() << (measure == Measure::ByLength ? "by length," : "by terminator,") << " text"
                              << Shown(text.substr(0, 40));
        }
    }

    zuxml::CZUXMLLocalCodePage m_CodePage;
    int m_nFailures = 0;
};

TEST_F(LocalCodePage, OnDebianXercesTranscodesWithIcusUtf8ConverterAndTheDirectRouteIsTaken) {
#if defined(__linux__) && defined(ZUXML_HAVE_ICU)
    EXPECT_TRUE(m_CodePage.IsDirect());
    EXPECT_EQ(Transcoded(u"\u00e9\u20ac"), "\xc3\xa9\xe2\x82\xac");
#else
    GTEST_SKIP() << "the route depends on how Xerces was built";
#endif
}

TEST_F(LocalCodePage, EveryCodeUnitAloneAndBetweenAscii) {
    for (char32_t unit = 1; unit <= 0xFFFF; ++unit) {
        const XMLCh c = static_cast<XMLCh>(unit);
        ExpectSame(Units(1, c));
        ExpectSame(Units(u"a") + c + u"b");
        ExpectSame(Units(u"\u00e9") + c + u"\u00e9");
    }
    EXPECT_EQ(m_nFailures, 0);
}

TEST_F(LocalCodePage, EverySupplementaryCodePointAloneAndInRuns) {
    for (char32_t plane = 1; plane <= 16; ++plane) {
        Units run;
        for (char32_t codePoint = plane << 16; codePoint < ((plane + 1) << 16); ++codePoint) {
            run += Pair(codePoint);
            // Now and then an ASCII unit, so that runs end and start again.
            if (codePoint % 97 == 0)
                run += u'x';
        }
        ExpectSame(run);
        for (char32_t codePoint = plane << 16; codePoint < ((plane + 1) << 16); codePoint += 251)
            ExpectSame(u"ab" + Pair(codePoint) + u"c");
    }
    EXPECT_EQ(m_nFailures, 0);
}

TEST_F(LocalCodePage, UnpairedSurrogatesNextToAsciiAndToOtherText) {
    const Units lone[] = {u"\xD800", u"\xDBFF", u"\xDC00", u"\xDFFF"};
    const Units neighbours[] = {u"", u"a", u"abcdefgh", u"\u00e9", u"\u20ac", Pair(0x1D11E), u"\xD800", u"\xDC00"};
    for (const Units &surrogate : lone)
        for (const Units &before : neighbours)
            for (const Units &after : neighbours)
                ExpectSame(before + surrogate + after);
    // A pair the wrong way round, and a pair split by ASCII.
    ExpectSame(u"a\xDC00\xD800z");
    ExpectSame(u"\xD800z\xDC00");
    EXPECT_EQ(m_nFailures, 0);
}

// The ASCII copy works eight units at a time, and a text measured by its
// terminator is copied into room made 64 bytes at a time: non-ASCII text at
// every offset of a block and at every length around both block sizes.
TEST_F(LocalCodePage, NonAsciiAtEveryPositionOfTheAsciiBlocks) {
    const Units others[] = {u"\u0080", u"\u00ff", u"\u0100", u"\u07ff", u"\u0800", u"\uffff", Pair(0x10FFFF),
                            u"\xDC00"};
    for (size_t length = 0; length <= 40; ++length) {
        Units ascii;
        for (size_t i = 0; i < length; ++i)
            ascii += static_cast<XMLCh>(u' ' + (i * 7) % 95);
        ExpectSame(ascii);
        for (const Units &other : others)
            for (size_t at = 0; at <= length; ++at)
                ExpectSame(ascii.substr(0, at) + other + ascii.substr(at));
    }
    for (size_t length = 56; length <= 200; ++length) {
        const Units ascii(length, u'k');
        ExpectSame(ascii);
        for (const Units &other : others)
            for (size_t at : {length - 1, length, size_t{63}, size_t{64}, size_t{65}, size_t{127}, size_t{128}})
                if (at <= length)
                    ExpectSame(ascii.substr(0, at) + other + ascii.substr(at));
    }
    // Every ASCII unit, control characters included.
    Units all;
    for (XMLCh c = 1; c < 0x80; ++c)
        all += c;
    ExpectSame(all);
    EXPECT_EQ(m_nFailures, 0);
}

TEST_F(LocalCodePage, AppendsAfterWhatTheTextHoldsAndGrowsPastItsFirstCapacity) {
    zuxml::CZUXMLNarrowText narrow;
    EXPECT_STREQ(narrow.c_str(), "");
    m_CodePage.Append(u"ab\u00e9", 3, narrow);
    m_CodePage.Append(u"", 0, narrow);
    m_CodePage.Append(u"c", 1, narrow);
    EXPECT_EQ(std::string(narrow.c_str()), Transcoded(u"ab\u00e9") + "c");
    const Units long_(1000, u'\u20ac');
    m_CodePage.Append(long_.c_str(), long_.size(), narrow);
    EXPECT_EQ(std::string(narrow.c_str()), Transcoded(u"ab\u00e9") + "c" + Transcoded(long_));
    narrow.clear();
    EXPECT_STREQ(narrow.c_str(), "");
    EXPECT_EQ(narrow.size(), 0u);
}

} // namespace
