// SPDX-License-Identifier: Apache-2.0
// Eight threads, after the one ZuXmlInit of the test entry, each loading,
// walking, editing, serialising and streaming handles of its own, with a
// stop request sent to a progressive load from another thread. Run under
// ThreadSanitizer (scripts/run.sh thread) it must produce no report.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "hostile_support.h"
#include "support/text.h"
#include "zuxml.h"

using namespace zuxml_reliability;

namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 40;

const char kDocument[] = "<?xml version='1.0'?><!DOCTYPE catalog [<!ENTITY co 'ACME'>]>"
                         "<catalog xmlns='urn:c' xmlns:p='urn:p'><item id='1' p:k='v'>first &co;</item>"
                         "<!-- note --><p:item>second</p:item><group><item/><item>deep</item></group></catalog>";

int Walk(ZuXmlDocument doc, ZuXmlNode node) {
    int count = 0;
    for (ZuXmlNode child = node; child != nullptr; child = ZuXmlGetNextSibling(doc, child)) {
        ++count;
        ZuXmlWChar wide[64];
        char narrow[64];
        int32_t length = 64;
        (void)ZuXmlGetNodeNameW(doc, child, wide, &length);
        length = 64;
        (void)ZuXmlGetNodeNameA(doc, child, narrow, &length);
        length = 64;
        (void)ZuXmlGetNodeTextContentA(doc, child, narrow, &length);
        length = 64;
        (void)ZuXmlGetNodeNamespaceW(doc, child, wide, &length);
        const int32_t attributes = ZuXmlGetNodeAttributeCount(doc, child);
        for (int32_t i = 0; i < attributes; ++i) {
            length = 64;
            (void)ZuXmlGetNodeAttributeNameA(doc, child, i, narrow, &length);
            length = 64;
            (void)ZuXmlGetNodeAttributeValueIndexW(doc, child, i, wide, &length);
        }
        count += Walk(doc, ZuXmlGetFirstChild(doc, child));
    }
    return count;
}

struct Stop {
    std::atomic<int> events{0};
    std::atomic<bool> started{false};
};

void OnStart(ZuXmlSax2Parser, void *context, int32_t, int32_t, const ZuXmlWChar *, const ZuXmlWChar *,
             const ZuXmlWChar *) {
    auto &stop = *static_cast<Stop *>(context);
    stop.started = true;
    ++stop.events;
}

// One thread's work; failures are counted, not asserted, off the main thread.
int Work(int id, const std::string &dir) {
    int failures = 0;
    const std::string tag = std::to_string(id);
    const std::string file = dir + "/t" + tag + ".xml";
    std::string big = "<r>";
    for (int i = 0; i < 4000; ++i)
        big += "<e n='" + std::to_string(i) + "'>text</e>";
    big += "</r>";
    const std::string bigFile = dir + "/big" + tag + ".xml";
    {
        std::FILE *f = std::fopen(bigFile.c_str(), "wb");
        std::fwrite(big.data(), 1, big.size(), f);
        std::fclose(f);
    }
    for (int round = 0; round < kRounds; ++round) {
        ZuXmlDocument doc = ZuXmlCreateDocument();
        if (ZuXmlLoadFromBufA(doc, kDocument, sizeof kDocument - 1) != 1) {
            ++failures;
            ZuXmlReleaseDocument(doc);
            continue;
        }
        if (Walk(doc, ZuXmlGetRootNode(doc)) < 6)
            ++failures;
        ZuXmlNode root = ZuXmlGetRootNode(doc);
        ZuXmlNode added = ZuXmlAddNodeA(doc, root, ("t" + tag).c_str(), 1, "added", nullptr);
        if (added == nullptr || ZuXmlAddNodeAttributeA(doc, added, "round", std::to_string(round).c_str()) != 1)
            ++failures;
        ZuXmlSetNodeTextContentA(doc, ZuXmlFindChildA(doc, root, "group"), "replaced");
        ZuXmlRemoveNode(doc, ZuXmlFindChildA(doc, root, "p:item"));
        const auto text = Serialised(doc);
        if (!text || text->find(" round=\"" + std::to_string(round) + "\">added</t" + tag + ">") == std::string::npos ||
            text->find("replaced") == std::string::npos || text->find("second") != std::string::npos)
            ++failures;
        if (ZuXmlWriteNoPrettyA(doc, file.c_str()) != 1)
            ++failures;
        ZuXmlDocument back = ZuXmlCreateDocument();
        const auto backText = ZuXmlLoadFromFileA(back, file.c_str()) == 1 ? Serialised(back) : std::nullopt;
        if (!backText || backText->find(">added</t" + tag + ">") == std::string::npos)
            ++failures;
        ZuXmlReleaseDocument(back);
        ZuXmlReleaseDocument(doc);

        const StreamRecord whole = Stream(file, round % 2);
        if (whole.result != 1 || whole.fatal != 0 || whole.elements != 4)
            ++failures;

        // A progressive load stopped from this thread while another runs it.
        Stop stop;
        ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&stop);
        ZuXmlSetSax2ParserCallbacksW(parser, nullptr, nullptr, OnStart, nullptr, nullptr, nullptr, nullptr,
                                     nullptr);
        std::atomic<int32_t> result{-2};
        std::thread loader([&] { result = ZuXmlSax2LoadFromFileA(parser, bigFile.c_str(), 1); });
        while (!stop.started && result == -2)
            std::this_thread::yield();
        ZuXmlSax2StopLoadFromFile(parser);
        loader.join();
        if (result != 1 || stop.events > 4001)
            ++failures;
        ZuXmlReleaseSax2Parser(parser);
    }
    return failures;
}

} // namespace

TEST(Threads, EightThreadsWorkOnTheirOwnHandles) {
    Scratch scratch;
    const std::string dir = scratch.Path("");
    std::vector<std::thread> threads;
    std::vector<int> failures(kThreads, 0);
    for (int id = 0; id < kThreads; ++id)
        threads.emplace_back([&, id] { failures[static_cast<size_t>(id)] = Work(id, dir); });
    for (std::thread &thread : threads)
        thread.join();
    for (int id = 0; id < kThreads; ++id)
        EXPECT_EQ(failures[static_cast<size_t>(id)], 0) << "thread " << id;
}
