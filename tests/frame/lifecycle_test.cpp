// Start, stop and release.
#include <gtest/gtest.h>

#include "zuxml.h"

namespace {

TEST(Lifecycle, ReleaseOfNullAnswersOne) {
    EXPECT_EQ(ZuXmlReleaseDocument(nullptr), 1);
    EXPECT_EQ(ZuXmlReleaseSax2Parser(nullptr), 1);
}

TEST(Lifecycle, InitialisationIsCountedByXerces) {
    // The test entry initialised once already; a second start and its stop
    // leave Xerces usable.
    EXPECT_EQ(ZuXmlSax2Init(), 1);
    EXPECT_EQ(ZuXmlSax2Cleanup(), 1);
    ZuXmlDocument document = ZuXmlCreateWriteDocumentA("still", nullptr, nullptr);
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(ZuXmlReleaseDocument(document), 1);
}

// A caller's own view: on Windows the header imports the functions, so
// their addresses are those of ZUXML.dll and not of stubs in the caller.
TEST(Lifecycle, SharedEntriesAreTheSameFunctions) {
    EXPECT_EQ(reinterpret_cast<void *>(&ZuXmlInit), reinterpret_cast<void *>(&ZuXmlSax2Init));
    EXPECT_EQ(reinterpret_cast<void *>(&ZuXmlCleanup), reinterpret_cast<void *>(&ZuXmlSax2Cleanup));
    EXPECT_EQ(reinterpret_cast<void *>(&ZuXmlReleaseDocument), reinterpret_cast<void *>(&ZuXmlReleaseSax2Parser));
}

} // namespace
