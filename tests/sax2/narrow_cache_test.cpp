// SPDX-License-Identifier: Apache-2.0
// The narrow cache hands out what XMLString::transcode gives for the text
// as it is at the moment of the call: a buffer that Xerces reuses for other
// names, at the same address, gets the narrow form of what it now holds,
// whatever unit of it changed and wherever it now ends; Xerces' own names
// of the attribute types, known by their address, get theirs. The suite
// runs again under "C.UTF-8" and a Latin-1 locale (tests/CMakeLists).
#include <gtest/gtest.h>
#include <xercesc/framework/XMLAttDef.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

#include <string>

#include "sax2/CZUXMLNarrowCache.h"

XERCES_CPP_NAMESPACE_USE

namespace {

using Units = std::basic_string<XMLCh>;

std::string Transcoded(const XMLCh *text) {
    char *bytes = XMLString::transcode(text, XMLPlatformUtils::fgMemoryManager);
    std::string narrow = bytes ? bytes : "";
    XMLString::release(&bytes, XMLPlatformUtils::fgMemoryManager);
    return narrow;
}

// A buffer that holds one text after another at the same address, as
// Xerces' attribute and name buffers do.
class ReusedBuffer {
public:
    const XMLCh *Hold(const Units &text) {
        EXPECT_LT(text.size(), sizeof m_aUnits / sizeof m_aUnits[0]);
        text.copy(m_aUnits, text.size());
        m_aUnits[text.size()] = 0;
        return m_aUnits;
    }

private:
    XMLCh m_aUnits[128];
};

TEST(NarrowCache, StableFollowsWhatAReusedBufferNowHolds) {
    zuxml::CZUXMLNarrowCache cache;
    ReusedBuffer buffer;
    const Units names[] = {u"urn:zuxml:bench:record", u"r:record", u"id", u"caf\u00e9", u"\u6587\u5b57",
                           u"http://www.w3.org/XML/1998/namespace", u"x", u""};
    // Each twice, so that the second call is answered from what was kept.
    for (int round = 0; round < 2; ++round)
        for (const Units &name : names) {
            const XMLCh *text = buffer.Hold(name);
            EXPECT_EQ(cache.Stable(text), Transcoded(text));
        }
}

// A kept text of every length up to three blocks of four units, then the
// same buffer changed at each unit, cut short at each unit and made one
// unit longer: each answer is the buffer's text at that moment.
TEST(NarrowCache, StableSeesAChangeAtEveryUnitAndEveryEnd) {
    zuxml::CZUXMLNarrowCache cache;
    ReusedBuffer buffer;
    for (size_t length = 1; length <= 13; ++length) {
        Units kept;
        for (size_t i = 0; i < length; ++i)
            kept += static_cast<XMLCh>(u'a' + i);
        ASSERT_EQ(cache.Stable(buffer.Hold(kept)), Transcoded(kept.c_str()));
        for (size_t at = 0; at < length; ++at) {
            Units changed = kept;
            changed[at] = u'\u00e9';
            EXPECT_EQ(cache.Stable(buffer.Hold(changed)), Transcoded(changed.c_str())) << length << " " << at;
            const Units shorter = kept.substr(0, at);
            EXPECT_EQ(cache.Stable(buffer.Hold(shorter)), Transcoded(shorter.c_str())) << length << " " << at;
            EXPECT_EQ(cache.Stable(buffer.Hold(kept)), Transcoded(kept.c_str()));
        }
        const Units longer = kept + u'z';
        EXPECT_EQ(cache.Stable(buffer.Hold(longer)), Transcoded(longer.c_str())) << length;
    }
}

TEST(NarrowCache, NullIsTheEmptyText) {
    zuxml::CZUXMLNarrowCache cache;
    EXPECT_STREQ(cache.Stable(nullptr), "");
    EXPECT_STREQ(cache.Type(nullptr), "");
    EXPECT_STREQ(cache.Transient(nullptr), "");
}

TEST(NarrowCache, TypeGivesXercesNamesOfTheAttributeTypes) {
    zuxml::CZUXMLNarrowCache cache;
    for (int round = 0; round < 2; ++round)
        for (int type = XMLAttDef::AttTypes_Min; type <= XMLAttDef::AttTypes_Max; ++type) {
            const XMLCh *name = XMLAttDef::getAttTypeString(static_cast<XMLAttDef::AttTypes>(type));
            EXPECT_EQ(cache.Type(name), Transcoded(name)) << type;
        }
}

// A type name held elsewhere, and a buffer that held one and now holds
// other text, are read for what they hold.
TEST(NarrowCache, TypeOfAnyOtherTextIsThatText) {
    zuxml::CZUXMLNarrowCache cache;
    ReusedBuffer buffer;
    for (const Units &text : {Units(u"CDATA"), Units(u"NMTOKENS"), Units(u"typ\u00e9"), Units(u"CDATA")})
        EXPECT_EQ(cache.Type(buffer.Hold(text)), Transcoded(text.c_str()));
}

TEST(NarrowCache, TransientGivesEachTextItsOwnForm) {
    zuxml::CZUXMLNarrowCache cache;
    ReusedBuffer buffer;
    const Units values[] = {u"r0", u"6916.92", u"Na\u00efvet\u00e9", u"", u"\U0001D11Eclef", Units(300, u'v'),
                            u"r0"};
    for (const Units &value : values) {
        const XMLCh *text = buffer.Hold(value.substr(0, 100));
        EXPECT_EQ(cache.Transient(text), Transcoded(text));
    }
}

} // namespace
