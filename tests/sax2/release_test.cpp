// One release entry for both kinds of handle: each object goes through its
// own destructor whichever name the caller used. A wrong destructor or a
// missed release shows under the sanitizer build (type mismatch on delete,
// or a leak).
#include <gtest/gtest.h>

#include "support/text.h"
#include "trace.h"

using namespace zuxml_sax2_test;

TEST(Release, ReleaseSax2ParserDestroysADocumentHandle) {
    ZuXmlDocument hDocument = ZuXmlCreateWriteDocumentW(zuxml_test::W(u"root").c_str(), zuxml_test::W(u"urn:r").c_str(), nullptr);
    ASSERT_NE(nullptr, hDocument);
    ASSERT_NE(nullptr, ZuXmlGetRootNode(hDocument));
    EXPECT_EQ(1, ZuXmlReleaseSax2Parser(hDocument));
}

TEST(Release, ReleaseDocumentDestroysAParserHandle) {
    TempFile file("<a><b/></a>");
    int context = 0;
    ZuXmlSax2Parser hParser = ZuXmlCreateSax2Parser(&context);
    ASSERT_NE(nullptr, hParser);
    ASSERT_EQ(1, ZuXmlSax2LoadFromFileA(hParser, file.path().c_str(), 1));
    EXPECT_EQ(1, ZuXmlReleaseDocument(hParser));
}

TEST(Release, ReleaseOfANullHandleAnswersOne) { EXPECT_EQ(1, ZuXmlReleaseSax2Parser(nullptr)); }
