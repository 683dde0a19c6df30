/* SPDX-License-Identifier: Apache-2.0 */
/* A program that knows ZuXml only as an installed package: it builds a
 * document and checks the text the library writes for it. */
#include <stdio.h>
#include <string.h>

#include <zuxml.h>

int main(void) {
    if (!ZuXmlInit()) {
        fprintf(stderr, "ZuXmlInit failed\n");
        return 1;
    }
    int ok = 0;
    ZuXmlDocument doc = ZuXmlCreateWriteDocumentA("greeting", NULL, NULL);
    if (doc && ZuXmlAddNodeA(doc, NULL, "to", 1, "world", NULL)) {
        char text[512];
        int32_t length = (int32_t)sizeof text;
        ok = ZuXmlWriteToStringA(doc, text, &length) == 1 && strstr(text, "<greeting><to>world</to></greeting>");
        printf("zuxml %d.%d.%d: %s\n", ZUXML_VERSION_MAJOR, ZUXML_VERSION_MINOR, ZUXML_VERSION_PATCH, text);
    }
    ZuXmlReleaseDocument(doc);
    ZuXmlCleanup();
    return ok ? 0 : 1;
}
