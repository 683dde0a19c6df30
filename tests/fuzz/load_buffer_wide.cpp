// SPDX-License-Identifier: Apache-2.0
// UTF-16 units through ZuXmlLoadFromBufW, then the same walk, edits,
// serialisation and reload as the narrow target, under a locale the input
// chooses.
#include <clocale>
#include <cstring>

#include "fuzz_walk.h"
#include "locale_choice.h"

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    std::setlocale(LC_ALL, "C.UTF-8");
    return ZuXmlInit() == 1 ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size) {
    FuzzedDataProvider data(bytes, size);
    const std::string raw = data.ConsumeRandomLengthString(size);
    zuxml_fuzz::ChooseLocale(data);
    std::vector<ZuXmlWChar> text(raw.size() / 2 + 1);
    std::memcpy(text.data(), raw.data(), raw.size() / 2 * 2);
    ZuXmlDocument doc = ZuXmlCreateDocument();
    const uint32_t units = static_cast<uint32_t>(raw.size() / 2);
    if (ZuXmlLoadFromBufW(doc, text.data(), units) == 1) {
        // Written as loaded, before any edit, and then walked.
        if (data.ConsumeBool())
            zuxml_fuzz::Check(zuxml_fuzz::WriteFile(doc, data.ConsumeIntegralInRange<int>(0, 3)) <= 1);
        zuxml_fuzz::WalkDocument(doc, data);
        zuxml_fuzz::EditAndWrite(doc, data);
        // A reload replaces the edited document with the text as it was.
        if (data.ConsumeBool()) {
            zuxml_fuzz::Check(ZuXmlLoadFromBufW(doc, text.data(), units) == 1);
            zuxml_fuzz::WalkDocument(doc, data);
        }
    } else {
        zuxml_fuzz::Check(ZuXmlGetRootNode(doc) == nullptr);
    }
    ZuXmlReleaseDocument(doc);
    return 0;
}
