// SPDX-License-Identifier: Apache-2.0
// Loads: modes, results, stopping, failures and their messages, location.
#include <atomic>
#include <thread>

#include <gtest/gtest.h>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/RuntimeException.hpp>

#include "support/text.h"
#include "trace.h"

using namespace zuxml_sax2_test;
using Trace = std::vector<std::string>;

namespace {

const char kThreeChildren[] = "<a><b/><c/><d/></a>";

// Asks for a stop when the event starts with prefix.
std::function<void(Recorder &, const std::string &)> StopAt(const std::string &prefix) {
    return [prefix](Recorder &recorder, const std::string &event) {
        if (event.rfind(prefix, 0) == 0)
            ZuXmlSax2StopLoadFromFile(recorder.hParser);
    };
}

std::string Location(ZuXmlSax2Parser hParser) {
    uint64_t line = 0;
    uint64_t column = 0;
    if (ZuXmlGetSax2CurrentLocation(hParser, &line, &column) != 1)
        return "none";
    return std::to_string(line) + ":" + std::to_string(column);
}

struct LoadOutcome {
    int32_t result;
    std::string output;
};

LoadOutcome CapturedLoad(TracedParser &parser, const std::string &path, int32_t mode) {
    LoadOutcome outcome{};
    outcome.output = CaptureStdout([&] { outcome.result = parser.Load(path, mode); });
    return outcome;
}

} // namespace

TEST(Load, ModeOneAloneIsProgressiveAndHonoursAStop) {
    TempFile file(kThreeChildren);
    const Trace whole{"W:StartElement(0,0,\"\",\"a\",\"a\")", "W:StartElement(1,0,\"\",\"b\",\"b\")",
                      "W:StartElement(1,0,\"\",\"c\",\"c\")", "W:StartElement(1,0,\"\",\"d\",\"d\")"};
    for (const int32_t mode : {0, 2, -1, 1}) {
        TracedParser parser;
        ZuXmlSetSax2ParserCallbacksW(parser.handle(), nullptr, nullptr, record::StartElementW, nullptr, nullptr,
                                     nullptr, nullptr, nullptr);
        parser.recorder().onEvent = StopAt("W:StartElement(1,0,\"\",\"b\"");
        EXPECT_EQ(1, parser.Load(file.path(), mode)) << "mode " << mode;
        if (mode == 1)
            EXPECT_EQ(Trace(whole.begin(), whole.begin() + 2), parser.events());
        else
            EXPECT_EQ(whole, parser.events()) << "mode " << mode;
    }
}

TEST(Load, ModeOneAloneReportsAFailedStartOnStdout) {
    TempFile file("");
    for (const int32_t mode : {0, 2, -1, 1}) {
        TracedParser parser;
        const LoadOutcome outcome = CapturedLoad(parser, file.path(), mode);
        EXPECT_EQ(mode == 1 ? 0 : 1, outcome.result) << "mode " << mode;
        EXPECT_EQ(mode == 1 ? "parseFirst() failed\n" : "", outcome.output) << "mode " << mode;
    }
}

TEST(Load, StopFromACallbackEndsTheProgressiveLoadAfterTheCurrentStep) {
    TempFile file(kThreeChildren);
    TracedParser parser;
    parser.SetAllW();
    parser.recorder().onEvent = StopAt("W:EndElement(1,\"\",\"b\"");
    EXPECT_EQ(1, parser.Load(file.path(), 1));
    // The step that reported b's end tag also ends there; nothing after it.
    EXPECT_EQ((Trace{"W:StartDocument()", "W:StartElement(0,0,\"\",\"a\",\"a\")",
                     "W:StartElement(1,0,\"\",\"b\",\"b\")", "W:EndElement(1,\"\",\"b\",\"b\",\"\")"}),
              parser.events());
    EXPECT_EQ("none", Location(parser.handle()));
}

TEST(Load, StopRequestedBeforeAProgressiveLoadHasNoEffectOnIt) {
    TempFile file(kThreeChildren);
    TracedParser reference;
    reference.SetAllW();
    ASSERT_EQ(1, reference.Load(file.path(), 1));
    ASSERT_EQ(10u, reference.events().size());

    TracedParser parser;
    parser.SetAllW();
    ZuXmlSax2StopLoadFromFile(parser.handle());
    EXPECT_EQ(1, parser.Load(file.path(), 1));
    EXPECT_EQ(reference.events(), parser.events());
}

TEST(Load, StopDuringAOneShotLoadHasNoEffectAndTheNextProgressiveLoadClearsIt) {
    TempFile file(kThreeChildren);
    TracedParser reference;
    reference.SetAllW();
    ASSERT_EQ(1, reference.Load(file.path(), 1));

    TracedParser parser;
    parser.SetAllW();
    parser.recorder().onEvent = StopAt("W:StartDocument");
    EXPECT_EQ(1, parser.Load(file.path(), 0));
    EXPECT_EQ(reference.events(), parser.events());

    parser.recorder().onEvent = nullptr;
    parser.events().clear();
    EXPECT_EQ(1, parser.Load(file.path(), 1));
    EXPECT_EQ(reference.events(), parser.events());
}

namespace {

// Shared between the loading thread's callback and the stopping thread.
std::atomic<int> g_Started{0};
std::atomic<bool> g_StopIssued{false};
constexpr int kStopAfter = 1000;

// Counts start tags; at the kStopAfter-th it waits until the other thread
// has asked for the stop, so that the stop surely lands during the load.
void CountAndWait(ZuXmlSax2Parser, void *, int32_t, int32_t, const ZuXmlWChar *, const ZuXmlWChar *,
                  const ZuXmlWChar *) {
    if (g_Started.fetch_add(1) + 1 == kStopAfter)
        while (!g_StopIssued.load())
            std::this_thread::yield();
}

} // namespace

TEST(Load, StopFromAnotherThreadEndsALargeProgressiveLoadEarly) {
    constexpr int kElements = 200000;
    std::string document = "<root>";
    for (int i = 0; i < kElements; ++i)
        document += "<item n=\"" + std::to_string(i) + "\">text</item>\n";
    document += "</root>";
    TempFile file(document);

    TracedParser parser;
    ZuXmlSetSax2ParserCallbacksW(parser.handle(), nullptr, nullptr, CountAndWait, nullptr, nullptr, nullptr, nullptr,
                                 nullptr);
    g_Started.store(0);
    g_StopIssued.store(false);
    const ZuXmlSax2Parser handle = parser.handle();
    std::thread stopper([handle] {
        while (g_Started.load() < kStopAfter)
            std::this_thread::yield();
        ZuXmlSax2StopLoadFromFile(handle);
        g_StopIssued.store(true);
    });
    const int32_t result = parser.Load(file.path(), 1);
    stopper.join();
    EXPECT_EQ(1, result);
    EXPECT_GE(g_Started.load(), kStopAfter);
    // A load to the end would have counted kElements + 1 start tags.
    EXPECT_LT(g_Started.load(), kElements / 2);
}

TEST(Load, UnopenableFileInProgressiveModePrintsTheXMLExceptionAndAnswersZero) {
    const std::string missing = DataFile("no-such-file.xml");
    TracedParser parser;
    parser.SetAllW();
    const LoadOutcome outcome = CapturedLoad(parser, missing, 1);
    EXPECT_EQ(0, outcome.result);
    EXPECT_EQ("Exception message is: \nunable to open primary document entity '" + missing + "'\n", outcome.output);
    EXPECT_EQ(Trace{}, parser.events());
    // Xerces failed before it handed over a locator.
    EXPECT_EQ("none", Location(parser.handle()));
}

TEST(Load, UnopenableFileInOneShotModeIsReportedAsFatalErrorAndAnswersOne) {
    const std::string missing = DataFile("no-such-file.xml");
    TracedParser parser;
    parser.SetAllW();
    const LoadOutcome outcome = CapturedLoad(parser, missing, 0);
    EXPECT_EQ(1, outcome.result);
    EXPECT_EQ("", outcome.output);
    EXPECT_EQ((Trace{"W:Diagnostic(21,\"unable to open primary document entity '" + missing + "'\")"}),
              parser.events());
}

namespace {

struct ThrowingCase {
    const char *name;
    void (*raise)();
    int32_t result;
    std::string (*output)();
};

const ThrowingCase kThrowingCases[] = {
    {"SAXParseException", [] { throw xercesc::SAXParseException(u"thrown from a callback", u"", u"", 1, 2); }, -1,
     [] { return std::string("Exception message is: \nthrown from a callback\n"); }},
    {"int", [] { throw 42; }, 0, [] { return std::string("Unexpected Exception \n"); }},
};

} // namespace

TEST(Load, ExceptionOutOfTheParsePrintsItsMessageAndAnswersItsValue) {
    TempFile file(kThreeChildren);
    for (const ThrowingCase &thrown : kThrowingCases) {
        for (const int32_t mode : {0, 1}) {
            TracedParser parser;
            parser.SetAllW();
            parser.recorder().onEvent = [&thrown](Recorder &, const std::string &event) {
                if (event.rfind("W:EndElement(1", 0) == 0)
                    thrown.raise();
            };
            const LoadOutcome outcome = CapturedLoad(parser, file.path(), mode);
            EXPECT_EQ(thrown.result, outcome.result) << thrown.name << ", mode " << mode;
            EXPECT_EQ(thrown.output(), outcome.output) << thrown.name << ", mode " << mode;
            // The handler is kept: the position is just after b's tag,
            // where the callback threw.
            EXPECT_EQ("1:8", Location(parser.handle())) << thrown.name << ", mode " << mode;
        }
    }
}

TEST(Load, XMLExceptionThrownByACallbackIsReportedByXercesAsAFatalError) {
    TempFile file(kThreeChildren);
    const xercesc::RuntimeException thrown(__FILE__, __LINE__, xercesc::XMLExcepts::Gen_NoDTDValidator);
    for (const int32_t mode : {0, 1}) {
        TracedParser parser;
        ZuXmlSetSax2ParserCallbacksW(parser.handle(), nullptr, nullptr, record::StartElementW, nullptr, nullptr,
                                     nullptr, nullptr, record::DiagnosticW);
        parser.recorder().onEvent = [&thrown](Recorder &, const std::string &event) {
            if (event.rfind("W:StartElement(1", 0) == 0)
                throw thrown;
        };
        const LoadOutcome outcome = CapturedLoad(parser, file.path(), mode);
        EXPECT_EQ(1, outcome.result) << "mode " << mode;
        EXPECT_EQ("", outcome.output) << "mode " << mode;
        EXPECT_EQ((Trace{"W:StartElement(0,0,\"\",\"a\",\"a\")", "W:StartElement(1,0,\"\",\"b\",\"b\")",
                         "W:Diagnostic(21,\"" + Utf8(reinterpret_cast<const ZuXmlWChar *>(thrown.getMessage())) + "\")"}),
                  parser.events())
            << "mode " << mode;
    }
}

TEST(Load, FailedProgressiveStartKeepsThePositionWhereTheParseStopped) {
    TempFile file("\n\n  junk");
    TracedParser parser;
    std::string atDiagnostic;
    parser.recorder().onEvent = [&](Recorder &recorder, const std::string &) {
        atDiagnostic = Location(recorder.hParser);
    };
    ZuXmlSetSax2ParserCallbacksW(parser.handle(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                 record::DiagnosticW);
    const LoadOutcome outcome = CapturedLoad(parser, file.path(), 1);
    EXPECT_EQ(0, outcome.result);
    EXPECT_EQ("parseFirst() failed\n", outcome.output);
    EXPECT_EQ((Trace{"W:Diagnostic(21,\"invalid document structure\")"}), parser.events());
    EXPECT_EQ("3:3", atDiagnostic);
    EXPECT_EQ("3:3", Location(parser.handle()));
}

TEST(Load, LocationInsideCallbacksIsThePositionInTheDocument) {
    TempFile file("<a>\n  <bb x=\"1\"/>\n  <!--c-->\n</a>");
    TracedParser parser;
    parser.SetAllW();
    ZuXmlSetSax2ParserCallbacksW(parser.handle(), nullptr, nullptr, record::StartElementW, nullptr, nullptr,
                                 record::EndElementW, record::CommentW, nullptr);
    Trace locations;
    parser.recorder().onEvent = [&](Recorder &recorder, const std::string &event) {
        locations.push_back(event.substr(0, event.find('(')) + "@" + Location(recorder.hParser));
    };
    EXPECT_EQ(1, parser.Load(file.path(), 0));
    // Xerces places each event just after the markup that made it.
    EXPECT_EQ(
        (Trace{"W:StartElement@1:4", "W:StartElement@2:14", "W:EndElement@2:14", "W:Comment@3:11", "W:EndElement@4:5"}),
        locations);
}

TEST(Load, LocationWithBothPointersNullAnswersOneDuringALoad) {
    TempFile file(kThreeChildren);
    TracedParser parser;
    ZuXmlSetSax2ParserCallbacksW(parser.handle(), record::StartDocumentW, nullptr, nullptr, nullptr, nullptr, nullptr,
                                 nullptr, nullptr);
    int32_t answer = -5;
    parser.recorder().onEvent = [&](Recorder &recorder, const std::string &) {
        answer = ZuXmlGetSax2CurrentLocation(recorder.hParser, nullptr, nullptr);
    };
    EXPECT_EQ(1, parser.Load(file.path(), 1));
    EXPECT_EQ(1, answer);
}

TEST(Load, LocationAnswersZeroBeforeAnyLoadAndAfterASuccessfulOne) {
    TempFile file(kThreeChildren);
    TracedParser parser;
    uint64_t line = 77;
    uint64_t column = 88;
    EXPECT_EQ(0, ZuXmlGetSax2CurrentLocation(parser.handle(), &line, &column));
    ASSERT_EQ(1, parser.Load(file.path(), 0));
    EXPECT_EQ(0, ZuXmlGetSax2CurrentLocation(parser.handle(), &line, &column));
    EXPECT_EQ(77u, line);
    EXPECT_EQ(88u, column);
}

TEST(Load, ALoadAfterAFailedOneReplacesWhatTheFailureLeft) {
    TempFile bad("");
    TempFile good(kThreeChildren);
    TracedParser parser;
    parser.SetAllW();
    ASSERT_EQ(0, CapturedLoad(parser, bad.path(), 1).result);
    EXPECT_EQ("1:1", Location(parser.handle()));
    parser.events().clear();
    EXPECT_EQ(1, parser.Load(good.path(), 1));
    EXPECT_EQ(10u, parser.events().size());
    EXPECT_EQ("none", Location(parser.handle()));
}

TEST(Load, CallbacksSetDuringALoadTakeEffectAtTheNextLoad) {
    TempFile file(kThreeChildren);
    TracedParser parser;
    ZuXmlSetSax2ParserCallbacksW(parser.handle(), nullptr, nullptr, record::StartElementW, nullptr, nullptr, nullptr,
                                 nullptr, nullptr);
    parser.recorder().onEvent = [](Recorder &recorder, const std::string &event) {
        if (event.rfind("W:StartElement(0", 0) == 0) {
            ZuXmlSetSax2ParserCallbacksW(recorder.hParser, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                         nullptr, nullptr);
            ZuXmlSetSax2ParserCallbacksA(recorder.hParser, nullptr, nullptr, record::StartElementA, nullptr, nullptr,
                                         nullptr, nullptr, nullptr);
        }
    };
    EXPECT_EQ(1, parser.Load(file.path(), 0));
    EXPECT_EQ((Trace{"W:StartElement(0,0,\"\",\"a\",\"a\")", "W:StartElement(1,0,\"\",\"b\",\"b\")",
                     "W:StartElement(1,0,\"\",\"c\",\"c\")", "W:StartElement(1,0,\"\",\"d\",\"d\")"}),
              parser.events());
    parser.events().clear();
    EXPECT_EQ(1, parser.Load(file.path(), 1));
    EXPECT_EQ((Trace{"A:StartElement(0,0,\"\",\"a\",\"a\")", "A:StartElement(1,0,\"\",\"b\",\"b\")",
                     "A:StartElement(1,0,\"\",\"c\",\"c\")", "A:StartElement(1,0,\"\",\"d\",\"d\")"}),
              parser.events());
}

TEST(Load, NarrowFileNameLoadsTheSameFile) {
    TempFile file(kThreeChildren);
    TracedParser wide;
    wide.SetAllW();
    ASSERT_EQ(1, wide.Load(file.path(), 0));
    for (const int32_t mode : {0, 1}) {
        TracedParser narrow;
        narrow.SetAllW();
        EXPECT_EQ(1, narrow.LoadNarrow(file.path(), mode));
        EXPECT_EQ(wide.events(), narrow.events()) << "mode " << mode;
    }
}

TEST(Load, ContextAndHandleReachEveryCallback) {
    TempFile file("<a x=\"1\"><!--c--></a>");
    TracedParser parser;
    parser.SetAllW();
    parser.SetAllA();
    EXPECT_EQ(1, parser.Load(file.path(), 0));
    ASSERT_FALSE(parser.events().empty());
    for (const std::string &event : parser.events())
        EXPECT_EQ(std::string::npos, event.find("WRONG-HANDLE")) << event;
}

TEST(Load, NullParserHandleIsRejected) {
    TempFile file(kThreeChildren);
    EXPECT_EQ(0, ZuXmlSax2LoadFromFileA(nullptr, file.path().c_str(), 0));
    EXPECT_EQ(0, ZuXmlSax2LoadFromFileA(nullptr, file.path().c_str(), 1));
    EXPECT_EQ(0, ZuXmlSax2LoadFromFileW(nullptr, zuxml_test::W(u"x.xml").c_str(), 0));
    uint64_t line = 5;
    EXPECT_EQ(0, ZuXmlGetSax2CurrentLocation(nullptr, &line, nullptr));
    EXPECT_EQ(5u, line);
    EXPECT_EQ(0, ZuXmlSetSax2ParserCallbacksW(nullptr, record::StartDocumentW, nullptr, nullptr, nullptr, nullptr,
                                              nullptr, nullptr, nullptr));
    EXPECT_EQ(0, ZuXmlSetSax2ParserCallbacksA(nullptr, record::StartDocumentA, nullptr, nullptr, nullptr, nullptr,
                                              nullptr, nullptr, nullptr));
    ZuXmlSax2StopLoadFromFile(nullptr);
}
