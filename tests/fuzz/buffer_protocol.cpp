// SPDX-License-Identifier: Apache-2.0
// Random buffer lengths, 0, negative and exact among them, against every
// getter of text on a fixed document with non-ASCII and non-BMP text,
// under a locale the input chooses.
#include "fuzz_walk.h"
#include "locale_choice.h"

namespace {

const char kDocument[] = "<?xml version='1.0' encoding='UTF-8'?>"
                         "<p:root xmlns:p='urn:p' a='1' p:b='\xc3\xa9t\xc3\xa9'>"
                         "text \xf0\x9f\x98\x80<p:child x='y'>inner</p:child><!--c--><![CDATA[cd]]></p:root>";

ZuXmlDocument g_Document;

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    if (ZuXmlInit() != 1)
        return 1;
    g_Document = ZuXmlCreateDocument();
    return ZuXmlLoadFromBufA(g_Document, kDocument, sizeof kDocument - 1) == 1 ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size) {
    FuzzedDataProvider data(bytes, size);
    zuxml_fuzz::ChooseLocale(data);
    const int steps = data.ConsumeIntegralInRange<int>(0, 4);
    ZuXmlNode node = ZuXmlGetRootNode(g_Document);
    for (int i = 0; i < steps && node; ++i)
        node = data.ConsumeBool() ? ZuXmlGetFirstChild(g_Document, node) : ZuXmlGetNextSibling(g_Document, node);
    if (!node)
        node = ZuXmlGetRootNode(g_Document);
    zuxml_fuzz::ReadNode(g_Document, node, data);
    zuxml_fuzz::ReadWide(data, [&](ZuXmlWChar *b, int32_t *l) { return ZuXmlWriteToStringW(g_Document, b, l); });
    zuxml_fuzz::ReadNarrow(data, [&](char *b, int32_t *l) { return ZuXmlWriteToStringA(g_Document, b, l); });
    return 0;
}
