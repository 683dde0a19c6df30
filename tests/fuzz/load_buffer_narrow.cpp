// SPDX-License-Identifier: Apache-2.0
// Bytes through ZuXmlLoadFromBufA, then a walk over every node reading every
// property in both forms, a few edits and serialisation.
#include <clocale>

#include "fuzz_walk.h"

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    std::setlocale(LC_ALL, "C.UTF-8");
    return ZuXmlInit() == 1 ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size) {
    FuzzedDataProvider data(bytes, size);
    const std::string xml = data.ConsumeRandomLengthString(size);
    ZuXmlDocument doc = ZuXmlCreateDocument();
    if (ZuXmlLoadFromBufA(doc, xml.data(), static_cast<uint32_t>(xml.size())) == 1) {
        zuxml_fuzz::WalkDocument(doc, data);
        zuxml_fuzz::EditAndWrite(doc, data);
    } else {
        zuxml_fuzz::Check(ZuXmlGetRootNode(doc) == nullptr);
    }
    ZuXmlReleaseDocument(doc);
    return 0;
}
