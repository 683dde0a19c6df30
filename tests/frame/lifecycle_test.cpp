// Start, stop and release.
#include <gtest/gtest.h>

#include "zuxml.h"

#if defined(_WIN32)
#include <windows.h>
#endif

namespace {

#if defined(_WIN32)
// A caller linked with the import library reaches each name through a stub
// of its own; the shared addresses are the ones in ZUXML.dll's export table.
void *EntryAddress(const char *name) {
    return reinterpret_cast<void *>(GetProcAddress(GetModuleHandleA("ZUXML.dll"), name));
}
#define ZUXML_ENTRY(name) EntryAddress(#name)
#else
#define ZUXML_ENTRY(name) reinterpret_cast<void *>(&name)
#endif

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

TEST(Lifecycle, SharedEntriesAreTheSameFunctions) {
    ASSERT_NE(ZUXML_ENTRY(ZuXmlInit), nullptr);
    EXPECT_EQ(ZUXML_ENTRY(ZuXmlInit), ZUXML_ENTRY(ZuXmlSax2Init));
    EXPECT_EQ(ZUXML_ENTRY(ZuXmlCleanup), ZUXML_ENTRY(ZuXmlSax2Cleanup));
    EXPECT_EQ(ZUXML_ENTRY(ZuXmlReleaseDocument), ZUXML_ENTRY(ZuXmlReleaseSax2Parser));
}

} // namespace
