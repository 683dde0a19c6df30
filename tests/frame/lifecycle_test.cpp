// SPDX-License-Identifier: Apache-2.0
// Start, stop and release. Release is one entry for both kinds of handle;
// each release test watches the memory the released object held come back,
// so a release that only answered 1 fails them.
#include <gtest/gtest.h>

#include <xercesc/framework/MemoryManager.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <cstdlib>
#include <functional>
#include <new>
#include <set>
#include <string>

#include "support/text.h"
#include "zuxml.h"

// Every block the program, the library and Xerces take with operator new
// (Xerces' default memory manager takes its own through it too) is counted
// until it is given back. Replacing the operators in the program reaches
// the shared libraries' calls too on ELF platforms; a Windows DLL keeps its
// own, and valgrind puts its own in place of some of them (its leak check
// then sees what a release fails to free), so the count exists only here.
#if !defined(_WIN32) && !defined(ZUXML_UNDER_VALGRIND)
#define ZUXML_COUNTS_BLOCKS 1
namespace {
long g_nLiveBlocks = 0;

void *Take(std::size_t size) noexcept {
    void *block = std::malloc(size == 0 ? 1 : size);
    if (block != nullptr)
        ++g_nLiveBlocks;
    return block;
}

void GiveBack(void *block) noexcept {
    if (block != nullptr) {
        --g_nLiveBlocks;
        std::free(block);
    }
}
} // namespace

void *operator new(std::size_t size) {
    if (void *block = Take(size))
        return block;
    throw std::bad_alloc();
}
void *operator new[](std::size_t size) { return operator new(size); }
void *operator new(std::size_t size, const std::nothrow_t &) noexcept { return Take(size); }
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept { return Take(size); }
void operator delete(void *block) noexcept { GiveBack(block); }
void operator delete[](void *block) noexcept { GiveBack(block); }
void operator delete(void *block, std::size_t) noexcept { GiveBack(block); }
void operator delete[](void *block, std::size_t) noexcept { GiveBack(block); }
void operator delete(void *block, const std::nothrow_t &) noexcept { GiveBack(block); }
void operator delete[](void *block, const std::nothrow_t &) noexcept { GiveBack(block); }
#endif

namespace {

using zuxml_test::W;

// Counts the blocks taken through Xerces' memory manager and not yet given
// back, while a Watch is alive. The library hands Xerces
// XMLPlatformUtils::fgMemoryManager when it makes a parser, a reader or a
// document, and each of those gives its blocks back through the manager it
// was made with: so every block a handle holds of Xerces' is seen here, on
// every platform. One manager serves the whole run, since what it made may
// be freed after the Watch ends.
class XercesBlocks final : public xercesc::MemoryManager {
public:
    class Watch {
    public:
        Watch() : m_Blocks(Instance()) {
            m_Blocks.m_Live.clear();
            m_Blocks.m_pNext = xercesc::XMLPlatformUtils::fgMemoryManager;
            xercesc::XMLPlatformUtils::fgMemoryManager = &m_Blocks;
        }
        ~Watch() { xercesc::XMLPlatformUtils::fgMemoryManager = m_Blocks.m_pNext; }
        Watch(const Watch &) = delete;
        Watch &operator=(const Watch &) = delete;
        // Blocks taken since the Watch began and still held.
        size_t Live() const { return m_Blocks.m_Live.size(); }

    private:
        XercesBlocks &m_Blocks;
    };

    xercesc::MemoryManager *getExceptionMemoryManager() override { return m_pNext->getExceptionMemoryManager(); }
    void *allocate(XMLSize_t size) override {
        void *block = m_pNext->allocate(size);
        m_Live.insert(block);
        return block;
    }
    void deallocate(void *block) override {
        m_Live.erase(block);
        m_pNext->deallocate(block);
    }

private:
    static XercesBlocks &Instance() {
        static XercesBlocks blocks;
        return blocks;
    }

    xercesc::MemoryManager *m_pNext = nullptr;
    std::set<void *> m_Live;
};

using Release = int32_t (*)(void *);

// Both names of the one release entry.
struct ReleaseName {
    const char *name;
    Release release;
};
const ReleaseName kReleaseNames[] = {{"ZuXmlReleaseDocument", ZuXmlReleaseDocument},
                                     {"ZuXmlReleaseSax2Parser", ZuXmlReleaseSax2Parser}};

// A document handle in each state it can be released from.
struct DocumentState {
    const char *name;
    bool holdsXercesMemory;
    ZuXmlDocument (*make)();
};

const DocumentState kDocumentStates[] = {
    {"empty", false, [] { return ZuXmlCreateDocument(); }},
    {"built", true,
     [] { return ZuXmlCreateWriteDocumentW(W(u"r").c_str(), W(u"urn:r").c_str(), W(u"r.dtd").c_str()); }},
    {"loaded", true,
     [] {
         ZuXmlDocument document = ZuXmlCreateDocument();
         EXPECT_EQ(ZuXmlLoadFromBufA(document, "<r><a x='1'>t</a><!--c--></r>", 29), 1);
         return document;
     }},
    {"failed load", true,
     [] {
         ZuXmlDocument document = ZuXmlCreateDocument();
         EXPECT_EQ(ZuXmlLoadFromBufA(document, "<r>", 3), 0);
         return document;
     }},
};

} // namespace

namespace {

// Xerces keeps its memory manager only while it is initialised, which
// shows whether a start or a stop reached it.
bool XercesIsInitialised() { return xercesc::XMLPlatformUtils::fgMemoryManager != nullptr; }

} // namespace

TEST(Lifecycle, InitialisationIsCountedByXerces) {
    // The test entry initialised once already: a second start and its stop
    // leave Xerces running, under either name.
    ASSERT_TRUE(XercesIsInitialised());
    EXPECT_EQ(ZuXmlSax2Init(), 1);
    EXPECT_EQ(ZuXmlCleanup(), 1);
    EXPECT_TRUE(XercesIsInitialised());
    EXPECT_EQ(ZuXmlInit(), 1);
    EXPECT_EQ(ZuXmlSax2Cleanup(), 1);
    EXPECT_TRUE(XercesIsInitialised());
    ZuXmlDocument document = ZuXmlCreateWriteDocumentA("still", nullptr, nullptr);
    ASSERT_NE(document, nullptr);
    char name[8];
    int32_t length = sizeof name;
    EXPECT_EQ(ZuXmlGetNodeNameA(document, ZuXmlGetRootNode(document), name, &length), 1);
    EXPECT_STREQ(name, "still");
    ZuXmlReleaseDocument(document);
}

TEST(Lifecycle, TheLastStopEndsXercesAndAStartBringsItBack) {
    // Stops the test entry's own start, then starts again for the rest of
    // the run.
    EXPECT_EQ(ZuXmlSax2Cleanup(), 1);
    EXPECT_FALSE(XercesIsInitialised());
    EXPECT_EQ(ZuXmlSax2Init(), 1);
    ASSERT_TRUE(XercesIsInitialised());
    ZuXmlDocument document = ZuXmlCreateDocument();
    EXPECT_EQ(ZuXmlLoadFromBufA(document, "<again/>", 8), 1);
    ZuXmlReleaseDocument(document);
}

// Whichever name releases it, a document gives back every block it held of
// Xerces': its parser, and the document that parser or the object owns.
TEST(Release, DocumentGivesBackEveryXercesBlockItHeld) {
    for (const DocumentState &state : kDocumentStates) {
        if (!state.holdsXercesMemory)
            continue;
        for (const ReleaseName &entry : kReleaseNames) {
            SCOPED_TRACE(std::string(state.name) + " document released by " + entry.name);
            // Xerces makes some of its shared tables on first use.
            entry.release(state.make());
            XercesBlocks::Watch watch;
            ZuXmlDocument document = state.make();
            ASSERT_NE(document, nullptr);
            EXPECT_GT(watch.Live(), 0u);
            EXPECT_EQ(entry.release(document), 1);
            EXPECT_EQ(watch.Live(), 0u);
        }
    }
}

// A null handle is no object: both names answer 1 and free nothing.
TEST(Release, NullHandleFreesNothingAndAnswersOne) {
    XercesBlocks::Watch watch;
    ZuXmlDocument document = ZuXmlCreateWriteDocumentW(W(u"r").c_str(), nullptr, nullptr);
    ASSERT_NE(document, nullptr);
    const size_t held = watch.Live();
    for (const ReleaseName &entry : kReleaseNames) {
        EXPECT_EQ(entry.release(nullptr), 1) << entry.name;
        EXPECT_EQ(watch.Live(), held) << entry.name;
    }
    ZuXmlReleaseDocument(document);
}

#if defined(ZUXML_COUNTS_BLOCKS)
namespace {

// Blocks still held after make, use and release ran; the first run fills
// Xerces' shared tables and is not counted.
long HeldAfter(const std::function<void *()> &make, Release release) {
    release(make());
    const long before = g_nLiveBlocks;
    release(make());
    return g_nLiveBlocks - before;
}

// A progressive load of a file that is not there: the load fails and the
// parser keeps its reader and handler.
void FailLoad(ZuXmlSax2Parser parser) {
    testing::internal::CaptureStdout();
    const int32_t result = ZuXmlSax2LoadFromFileA(parser, "zuxml-no-such-file.xml", 1);
    testing::internal::GetCapturedStdout();
    ASSERT_EQ(result, 0);
}

void LeaveFresh(ZuXmlSax2Parser) {}

// A one-shot load of a document to its end: the parser is left between
// loads, with no reader.
void LoadToTheEnd(ZuXmlSax2Parser parser) {
    ASSERT_EQ(ZuXmlSax2LoadFromFileA(parser, ZUXML_SOURCE_DIR "/tests/dom/data/sample.xml", 0), 1);
}

// A parser handle in each state it can be released from.
struct ParserState {
    const char *name;
    void (*prepare)(ZuXmlSax2Parser);
};

void *NewParser(void (*prepare)(ZuXmlSax2Parser)) {
    static int context = 0;
    ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&context);
    EXPECT_NE(parser, nullptr);
    prepare(parser);
    return parser;
}

} // namespace

// Every object behind a handle is freed, whichever name releases it: the
// empty document holds nothing but itself, a parser between loads nothing
// of Xerces'.
TEST(Release, EveryHandleIsFreedWhicheverNameReleasesIt) {
    const ParserState parserStates[] = {
        {"fresh parser", LeaveFresh},
        {"parser after a load", LoadToTheEnd},
    };
    for (const ReleaseName &entry : kReleaseNames) {
        for (const DocumentState &state : kDocumentStates)
            EXPECT_EQ(HeldAfter([&] { return state.make(); }, entry.release), 0)
                << state.name << " document released by " << entry.name;
        for (const ParserState &state : parserStates)
            EXPECT_EQ(HeldAfter([&] { return NewParser(state.prepare); }, entry.release), 0)
                << state.name << " released by " << entry.name;
    }
}

// A parser whose load failed still holds that load's reader and handler;
// releasing it frees the parser object alone and leaves them where they
// are, as the failed load left them.
TEST(Release, FailedParserFreesItselfAndKeepsTheReaderOfItsFailedLoad) {
    for (const ReleaseName &entry : kReleaseNames) {
        SCOPED_TRACE(entry.name);
        entry.release(NewParser(FailLoad));
        XercesBlocks::Watch watch;
        void *parser = NewParser(FailLoad);
        const size_t readerBlocks = watch.Live();
        const long before = g_nLiveBlocks;
        EXPECT_EQ(entry.release(parser), 1);
        const long freed = before - g_nLiveBlocks;
        EXPECT_GT(readerBlocks, 0u);
        EXPECT_EQ(watch.Live(), readerBlocks) << "the reader and what it holds stay";
        EXPECT_EQ(freed, 1) << "the parser object";
    }
}
#endif
