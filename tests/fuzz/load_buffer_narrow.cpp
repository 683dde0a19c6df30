// SPDX-License-Identifier: Apache-2.0
// Bytes loaded through ZuXmlLoadFromBufA, or from a file through
// ZuXmlLoadFromFileA or W, as the input chooses; then at times a file write
// of the document as loaded, a walk over every node reading every property
// in both forms, a few edits and serialisation, and at times the same bytes
// loaded again into the edited handle; all under a locale the input
// chooses.
#include <clocale>

#include "fuzz_walk.h"
#include "locale_choice.h"
#include "scratch_file.h"

namespace {

const zuxml_fuzz::ScratchFile *g_File;

int32_t Load(ZuXmlDocument doc, const std::string &xml, int how) {
    switch (how) {
    case 0:
        return ZuXmlLoadFromBufA(doc, xml.data(), static_cast<uint32_t>(xml.size()));
    case 1:
        zuxml_fuzz::Check(g_File->Write(xml));
        return ZuXmlLoadFromFileA(doc, g_File->Narrow());
    default:
        zuxml_fuzz::Check(g_File->Write(xml));
        return ZuXmlLoadFromFileW(doc, g_File->Wide());
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    std::setlocale(LC_ALL, "C.UTF-8");
    static const zuxml_fuzz::ScratchFile file(".xml");
    g_File = &file;
    return ZuXmlInit() == 1 ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size) {
    FuzzedDataProvider data(bytes, size);
    const std::string xml = data.ConsumeRandomLengthString(size);
    zuxml_fuzz::ChooseLocale(data);
    // Mostly from memory: a file load parses the same bytes the same way.
    const int how = data.ConsumeIntegralInRange<int>(0, 7) < 6 ? 0 : data.ConsumeIntegralInRange<int>(1, 2);
    ZuXmlDocument doc = ZuXmlCreateDocument();
    if (Load(doc, xml, how) == 1) {
        // Written as loaded, before any edit, and then walked.
        if (data.ConsumeBool())
            zuxml_fuzz::Check(zuxml_fuzz::WriteFile(doc, data.ConsumeIntegralInRange<int>(0, 3)) <= 1);
        zuxml_fuzz::WalkDocument(doc, data);
        zuxml_fuzz::EditAndWrite(doc, data);
        // A reload replaces the edited document with the bytes as they were.
        if (data.ConsumeBool()) {
            zuxml_fuzz::Check(Load(doc, xml, how) == 1);
            zuxml_fuzz::WalkDocument(doc, data);
        }
    } else {
        zuxml_fuzz::Check(ZuXmlGetRootNode(doc) == nullptr);
    }
    ZuXmlReleaseDocument(doc);
    return 0;
}
