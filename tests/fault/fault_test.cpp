// SPDX-License-Identifier: Apache-2.0
// Allocation failure, family by family: the operation runs again and again
// with allocation 1, 2, 3... failing, until a run completes without
// reaching the failing allocation. After every failed run the handle must
// still work: a normal operation on it gives the normal result.
//
// Loads and writes answer their failure value once their work has begun;
// an allocation failure before that leaves them with nothing changed. Those whose contract names only DOMException (creating
// a document for writing, node and attribute editing) or nothing at all
// (the SAX2 load's set-up, the attribute readers) may also let the
// allocation failure out, as Xerces' OutOfMemoryException or std::bad_alloc,
// and nothing else. An answer of 1 under a failure is only accepted with
// the normal result. Leaks are the memory checkers' to find: this program
// runs under AddressSanitizer with the rest of the suite.
#include <gtest/gtest.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <new>
#include <string>
#include <vector>

#include <xercesc/util/OutOfMemoryException.hpp>

#include "fault_injection.h"
#include "support/text.h"
#include "zuxml.h"

using zuxml_test::WString;

// Xerces does not clean up after it runs out of memory (it says so where
// it rethrows OutOfMemoryException): what the failing call had allocated
// stays behind. Under LeakSanitizer these leaks are named by the Xerces
// call that failed, for this program only.
extern "C" const char *__lsan_default_suppressions() {
    return "leak:xercesc_3_2::DOMImplementationRegistry::getDOMImplementation\n"
           "leak:xercesc_3_2::DOMImplementationImpl::createLSParser\n"
           "leak:xercesc_3_2::DOMImplementationImpl::createLSSerializer\n"
           "leak:xercesc_3_2::DOMImplementationImpl::createDocument\n"
           "leak:xercesc_3_2::DOMLSParserImpl::parse\n"
           "leak:xercesc_3_2::DOMLSParserImpl::parseURI\n"
           "leak:xercesc_3_2::DOMLSSerializerImpl::write\n"
           "leak:xercesc_3_2::XMLScanner::scanDocument\n"
           "leak:xercesc_3_2::XMLScanner::scanFirst\n"
           "leak:xercesc_3_2::IGXMLScanner::scanNext\n";
}

namespace {

// Far above the allocations of any operation here (a few hundred).
constexpr std::size_t kMaxAllocations = 20000;

const char kDocument[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                         "<!DOCTYPE r [<!ENTITY e \"ent\">]>\n"
                         "<r a=\"1\" xmlns:p=\"urn:p\"><p:b c=\"2\">t&amp;&e;</p:b><!--c--><![CDATA[d]]><?pi x?></r>";

// Loads and writes catch everything once their work has begun; what fails
// before (looking up the DOM implementation, which allocates on every call,
// and for writes making the serializer) leaves the operation as it is, with
// nothing changed.
enum class Contract { CatchesOnceBegun, LetsAllocationFailureOut };

struct Family {
    const char *name;
    Contract contract;
    std::function<void()> prepare;      // not counted
    std::function<int32_t()> operation; // counted
    std::function<std::string()> observe; // not counted: what the caller sees afterwards
    std::function<void()> usable;       // not counted: the handle still works
    std::function<void()> finish;       // not counted
    // For an answer of 1 without the normal result: whether the operation
    // told the caller of the failure some other way.
    std::function<bool()> reportedFailure = [] { return false; };
};

std::string Serialised(ZuXmlDocument doc) {
    int32_t length = 0;
    if (ZuXmlWriteToStringW(doc, nullptr, &length) != 0 || length <= 0)
        return "<no text>";
    std::vector<ZuXmlWChar> text(static_cast<size_t>(length));
    if (ZuXmlWriteToStringW(doc, text.data(), &length) != 1)
        return "<no text>";
    return std::string(text.begin(), text.begin() + (length - 1));
}

std::string FileBytes(const std::string &path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// Standard output to the null device while the SAX2 loads print failures.
class QuietStdout {
public:
    QuietStdout() : m_Saved(dup(1)) {
        std::cout.flush();
        std::fflush(stdout);
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, 1);
        close(null);
    }
    ~QuietStdout() {
        std::cout.flush();
        std::fflush(stdout);
        dup2(m_Saved, 1);
        close(m_Saved);
    }

private:
    int m_Saved;
};

struct Tally {
    std::size_t runs = 0;
    std::size_t failureAnswers = 0;
    std::size_t exceptionsOut = 0;
    std::size_t normalAnswers = 0;
};

// The sweep of one family; answers what the failed runs did.
Tally Sweep(const Family &family) {
    family.prepare();
    const int32_t expectedResult = family.operation();
    const std::string expected = family.observe();
    family.finish();
    EXPECT_EQ(expectedResult, 1) << family.name << ": the normal run";

    Tally tally;
    const bool failedBefore = ::testing::Test::HasFailure();
    for (std::size_t n = 1; n <= kMaxAllocations; ++n) {
        family.prepare();
        const std::string before = family.observe();
        int32_t result = -100;
        const char *escaped = nullptr;
        zuxml_fault::FailAllocation(n);
        try {
            result = family.operation();
        } catch (const xercesc::OutOfMemoryException &) {
            escaped = "OutOfMemoryException";
        } catch (const std::bad_alloc &) {
            escaped = "std::bad_alloc";
        } catch (...) {
            escaped = "another exception";
        }
        const bool failed = zuxml_fault::Disarm();
        ++tally.runs;
        if (!failed) {
            EXPECT_EQ(escaped, nullptr) << family.name << ": a run without failure threw";
            EXPECT_EQ(result, expectedResult) << family.name;
            EXPECT_EQ(family.observe(), expected) << family.name;
            family.finish();
            return tally;
        }
        SCOPED_TRACE(std::string(family.name) + ", allocation " + std::to_string(n) + " failing");
        if (escaped) {
            ++tally.exceptionsOut;
            EXPECT_STRNE(escaped, "another exception");
            if (family.contract == Contract::CatchesOnceBegun) {
                EXPECT_EQ(family.observe(), before) << escaped << " left the operation after it changed something";
            }
        } else if (result == expectedResult) {
            ++tally.normalAnswers;
            if (!family.reportedFailure()) {
                EXPECT_EQ(family.observe(), expected) << "answered 1 without the normal result";
            }
        } else {
            ++tally.failureAnswers;
        }
        family.usable();
        family.finish();
        if (!failedBefore && ::testing::Test::HasFailure())
            return tally;
    }
    ADD_FAILURE() << family.name << ": still failing after " << kMaxAllocations << " allocations";
    return tally;
}

class Fault : public ::testing::Test {
protected:
    void SetUp() override {
        const char *preload = std::getenv("LD_PRELOAD");
        if (preload && std::string(preload).find("vgpreload") != std::string::npos)
            GTEST_SKIP() << "valgrind replaces the allocator the failures are injected into";
        m_Dir = std::filesystem::temp_directory_path() / ("zuxml_fault_" + std::to_string(getpid()));
        std::filesystem::create_directories(m_Dir);
        m_Path = (m_Dir / "doc.xml").string();
        std::ofstream(m_Path, std::ios::binary) << kDocument;
        m_Out = (m_Dir / "out.xml").string();
    }
    void TearDown() override {
        if (!m_Dir.empty())
            std::filesystem::remove_all(m_Dir);
    }

    // A fresh handle holding the sample document.
    ZuXmlDocument Loaded() const {
        ZuXmlDocument doc = ZuXmlCreateDocument();
        EXPECT_EQ(ZuXmlLoadFromBufA(doc, kDocument, sizeof kDocument - 1), 1);
        return doc;
    }

    // The handle loads and writes the sample as usual.
    void ExpectUsable(ZuXmlDocument doc) const {
        EXPECT_EQ(ZuXmlLoadFromBufA(doc, kDocument, sizeof kDocument - 1), 1);
        EXPECT_EQ(Serialised(doc), m_Reference);
    }

    void Report(const char *name, const Tally &tally) {
        std::printf("[ fault    ] %-44s %5zu runs: %zu answered failure, %zu let it out, %zu unaffected\n", name,
                    tally.runs, tally.failureAnswers, tally.exceptionsOut, tally.normalAnswers);
    }

    // A family on a document handle: made by prepare, released by finish.
    Family OnDocument(const char *name, Contract contract, std::function<ZuXmlDocument()> make,
                      std::function<int32_t(ZuXmlDocument)> operation) {
        return Family{name,
                      contract,
                      [this, make] { m_Doc = make(); },
                      [this, operation] { return operation(m_Doc); },
                      [this] { return Serialised(m_Doc); },
                      [this] { ExpectUsable(m_Doc); },
                      [this] {
                          ZuXmlReleaseDocument(m_Doc);
                          m_Doc = nullptr;
                      }};
    }

    void Run(const Family &family) { Report(family.name, Sweep(family)); }

    std::filesystem::path m_Dir;
    std::string m_Path;
    std::string m_Out;
    std::string m_Reference = ReferenceText();
    ZuXmlDocument m_Doc = nullptr;
    std::vector<ZuXmlWChar> m_Text;

private:
    static std::string ReferenceText() {
        ZuXmlDocument doc = ZuXmlCreateDocument();
        ZuXmlLoadFromBufA(doc, kDocument, sizeof kDocument - 1);
        std::string text = Serialised(doc);
        ZuXmlReleaseDocument(doc);
        return text;
    }
};

ZuXmlNode Root(ZuXmlDocument doc) { return ZuXmlGetRootNode(doc); }
ZuXmlNode FirstChild(ZuXmlDocument doc) { return ZuXmlGetFirstChild(doc, Root(doc)); }

TEST_F(Fault, Loads) {
    const WString widePath(m_Path.begin(), m_Path.end());
    const WString wideText(kDocument, kDocument + sizeof kDocument - 1);
    auto fresh = [] { return ZuXmlCreateDocument(); };
    auto loaded = [this] { return Loaded(); };
    Run(OnDocument("load a file", Contract::CatchesOnceBegun, fresh,
                   [&](ZuXmlDocument doc) { return ZuXmlLoadFromFileW(doc, widePath.c_str()); }));
    Run(OnDocument("load a narrow buffer", Contract::CatchesOnceBegun, fresh,
                   [](ZuXmlDocument doc) { return ZuXmlLoadFromBufA(doc, kDocument, sizeof kDocument - 1); }));
    Run(OnDocument("load a wide buffer", Contract::CatchesOnceBegun, fresh, [&](ZuXmlDocument doc) {
        return ZuXmlLoadFromBufW(doc, wideText.c_str(), static_cast<uint32_t>(wideText.size()));
    }));
    Run(OnDocument("load again into a loaded handle", Contract::CatchesOnceBegun, loaded,
                   [](ZuXmlDocument doc) { return ZuXmlLoadFromBufA(doc, kDocument, sizeof kDocument - 1); }));
}

TEST_F(Fault, Writes) {
    const WString wideOut(m_Out.begin(), m_Out.end());
    auto loaded = [this] { return Loaded(); };
    Family toFile = OnDocument("write a file", Contract::CatchesOnceBegun, loaded,
                               [&](ZuXmlDocument doc) { return ZuXmlWriteW(doc, wideOut.c_str()); });
    toFile.prepare = [this] {
        std::filesystem::remove(m_Out);
        m_Doc = Loaded();
    };
    toFile.observe = [this] { return FileBytes(m_Out); };
    Run(toFile);
    Family toString = OnDocument("write to a string", Contract::CatchesOnceBegun, loaded, [this](ZuXmlDocument doc) {
        int32_t length = static_cast<int32_t>(m_Text.size());
        return ZuXmlWriteToStringW(doc, m_Text.data(), &length);
    });
    toString.prepare = [this] {
        m_Text.assign(4096, 0);
        m_Doc = Loaded();
    };
    toString.observe = [this] { return std::string(m_Text.begin(), m_Text.begin() + m_Reference.size()); };
    Run(toString);
}

TEST_F(Fault, CreateForWriting) {
    Family create = OnDocument("create a document for writing", Contract::LetsAllocationFailureOut,
                               [] { return ZuXmlDocument(); }, [this](ZuXmlDocument) {
                                   m_Doc = ZuXmlCreateWriteDocumentW(u"p:r", u"urn:p", u"r.dtd");
                                   return m_Doc ? 1 : 0;
                               });
    create.usable = [] {
        ZuXmlDocument doc = ZuXmlCreateWriteDocumentW(u"p:r", u"urn:p", u"r.dtd");
        EXPECT_NE(doc, nullptr);
        ZuXmlReleaseDocument(doc);
    };
    create.observe = [this] { return m_Doc ? Serialised(m_Doc) : std::string("<none>"); };
    Run(create);
}

// Xerces' documents allocate in blocks of several kilobytes: texts this
// long make an edit ask the heap for more.
const WString kLong(20000, u'x');

TEST_F(Fault, NodeEdits) {
    auto loaded = [this] { return Loaded(); };
    const Contract c = Contract::LetsAllocationFailureOut;
    Run(OnDocument("add an element", c, loaded, [](ZuXmlDocument doc) {
        return ZuXmlAddNodeW(doc, nullptr, u"q:n", 1, kLong.c_str(), u"urn:q") ? 1 : 0;
    }));
    Run(OnDocument("add a comment", c, loaded,
                   [](ZuXmlDocument doc) { return ZuXmlAddCommentW(doc, nullptr, kLong.c_str()) ? 1 : 0; }));
    Run(OnDocument("set text content", c, loaded,
                   [](ZuXmlDocument doc) { return ZuXmlSetNodeTextContentW(doc, FirstChild(doc), kLong.c_str()); }));
    Run(OnDocument("remove a node", c, loaded, [](ZuXmlDocument doc) { return ZuXmlRemoveNode(doc, FirstChild(doc)); }));
    Run(OnDocument("add an attribute", c, loaded,
                   [](ZuXmlDocument doc) { return ZuXmlAddNodeAttributeW(doc, nullptr, u"z", kLong.c_str()); }));
    Run(OnDocument("set an attribute value", c, loaded,
                   [](ZuXmlDocument doc) { return ZuXmlSetNodeAttributeValueW(doc, Root(doc), u"a", kLong.c_str()); }));
    Run(OnDocument("remove an attribute by name", c, loaded,
                   [](ZuXmlDocument doc) { return ZuXmlRemoveAttributeNameW(doc, Root(doc), u"a"); }));
    Run(OnDocument("remove an attribute by index", c, loaded,
                   [](ZuXmlDocument doc) { return ZuXmlRemoveAttributeIndex(doc, Root(doc), 0); }));
}

TEST_F(Fault, Import) {
    ZuXmlDocument source = Loaded();
    ZuXmlSetNodeTextContentW(source, FirstChild(source), kLong.c_str());
    Run(OnDocument("import a subtree", Contract::LetsAllocationFailureOut, [this] { return Loaded(); },
                   [source](ZuXmlDocument doc) {
                       return ZuXmlAddNodeExisting(doc, nullptr, FirstChild(source), 1) ? 1 : 0;
                   }));
    ZuXmlReleaseDocument(source);
}

// Counts the events of a load; the narrow table or the wide one.
struct Events {
    int count = 0;
    int fatal = 0;
};
void CountW(ZuXmlSax2Parser, void *c, int32_t, int32_t, const ZuXmlWChar *, const ZuXmlWChar *, const ZuXmlWChar *) {
    ++static_cast<Events *>(c)->count;
}
void CountA(ZuXmlSax2Parser, void *c, int32_t, int32_t, const char *, const char *, const char *) {
    ++static_cast<Events *>(c)->count;
}
void EndW(ZuXmlSax2Parser, void *c, int32_t, const ZuXmlWChar *, const ZuXmlWChar *, const ZuXmlWChar *,
          const ZuXmlWChar *) {
    ++static_cast<Events *>(c)->count;
}
void EndA(ZuXmlSax2Parser, void *c, int32_t, const char *, const char *, const char *, const char *) {
    ++static_cast<Events *>(c)->count;
}
void CommentW(ZuXmlSax2Parser, void *c, int32_t, const ZuXmlWChar *) { ++static_cast<Events *>(c)->count; }
void CommentA(ZuXmlSax2Parser, void *c, int32_t, const char *) { ++static_cast<Events *>(c)->count; }
void DiagnosticW(ZuXmlSax2Parser, void *c, int32_t code, const ZuXmlWChar *) {
    if (code == SAX2_FATAL_ERROR)
        ++static_cast<Events *>(c)->fatal;
}
void DiagnosticA(ZuXmlSax2Parser, void *c, int32_t code, const char *) {
    if (code == SAX2_FATAL_ERROR)
        ++static_cast<Events *>(c)->fatal;
}

TEST_F(Fault, Sax2Loads) {
    const WString widePath(m_Path.begin(), m_Path.end());
    Events events;
    ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&events);
    ASSERT_NE(parser, nullptr);
    for (bool wide : {true, false}) {
        if (wide) {
            ZuXmlSetSax2ParserCallbacksW(parser, nullptr, nullptr, CountW, nullptr, nullptr, EndW, CommentW, DiagnosticW);
            ZuXmlSetSax2ParserCallbacksA(parser, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
        } else {
            ZuXmlSetSax2ParserCallbacksW(parser, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
            ZuXmlSetSax2ParserCallbacksA(parser, nullptr, nullptr, CountA, nullptr, nullptr, EndA, CommentA, DiagnosticA);
        }
        for (int32_t mode : {0, 1}) {
            const std::string name = std::string("SAX2 load, ") + (wide ? "wide" : "narrow") + " table, mode " +
                                     std::to_string(mode);
            Family load{name.c_str(),
                        Contract::LetsAllocationFailureOut,
                        [&] { events = Events(); },
                        [&] {
                            QuietStdout quiet;
                            return ZuXmlSax2LoadFromFileW(parser, widePath.c_str(), mode);
                        },
                        [&] { return std::to_string(events.count); },
                        [&] {
                            events.count = 0;
                            QuietStdout quiet;
                            EXPECT_EQ(ZuXmlSax2LoadFromFileW(parser, widePath.c_str(), mode), 1);
                            EXPECT_EQ(events.count, 5);
                        },
                        [] {}};
            // A one-shot load whose reader reported the failure as a fatal
            // error answers 1: the caller learnt of it through the callback.
            load.reportedFailure = [&] { return events.fatal > 0; };
            Tally tally = Sweep(load);
            Report(load.name, tally);
        }
    }
    ZuXmlReleaseSax2Parser(parser);
}

} // namespace
