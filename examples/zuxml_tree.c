/* SPDX-License-Identifier: Apache-2.0 */
/*
 * zuxml_tree: prints the element tree of an XML file with each element's
 * attribute count and its own text, using nothing but the ZuXml interface.
 *
 *   zuxml_tree FILE
 *
 * Text is read through the narrow forms in the locale of the environment,
 * each time with the caller-buffer protocol: ask with length 0, allocate
 * the length reported, ask again.
 */
#include <locale.h>
#include <stdio.h>
#include <stdlib.h>

#include "zuxml.h"

enum { NODE_ELEMENT = 1, NODE_TEXT = 3, NODE_CDATA = 4 };

typedef int32_t (*TextGetter)(ZuXmlDocument, ZuXmlNode, char *, int32_t *);

/* The node's text from one getter, in a buffer the caller frees; NULL on failure. */
static char *read_text(ZuXmlDocument document, ZuXmlNode node, TextGetter getter) {
    int32_t length = 0;
    if (getter(document, node, NULL, &length) != 0 || length <= 0)
        return NULL;
    /* The length counts wide characters; a multibyte character may take up
       to MB_CUR_MAX bytes. */
    size_t bytes = (size_t)length * MB_CUR_MAX;
    char *buffer = malloc(bytes);
    int32_t capacity = (int32_t)bytes;
    if (buffer && getter(document, node, buffer, &capacity) == 1)
        return buffer;
    free(buffer);
    return NULL;
}

/* The element's own text: its text and CDATA children, not its descendants'. */
static void print_own_text(ZuXmlDocument document, ZuXmlNode element) {
    int first = 1;
    for (ZuXmlNode child = ZuXmlGetFirstChild(document, element); child;
         child = ZuXmlGetNextSibling(document, child)) {
        uint16_t type = ZuXmlGetNodeType(document, child);
        if (type != NODE_TEXT && type != NODE_CDATA)
            continue;
        char *text = read_text(document, child, ZuXmlGetNodeTextContentA);
        int blank = 1;
        for (const char *p = text; p && *p; ++p)
            if (*p != ' ' && *p != '\n' && *p != '\t' && *p != '\r')
                blank = 0;
        if (!blank) {
            printf("%s\"%s\"", first ? " text=" : " + ", text);
            first = 0;
        }
        free(text);
    }
}

static void print_element(ZuXmlDocument document, ZuXmlNode element, int depth) {
    char *name = read_text(document, element, ZuXmlGetNodeNameA);
    printf("%*s<%s> attributes=%d", depth * 2, "", name ? name : "?",
           (int)ZuXmlGetNodeAttributeCount(document, element));
    free(name);
    print_own_text(document, element);
    printf("\n");
    for (ZuXmlNode child = ZuXmlGetFirstChild(document, element); child;
         child = ZuXmlGetNextSibling(document, child))
        if (ZuXmlGetNodeType(document, child) == NODE_ELEMENT)
            print_element(document, child, depth + 1);
}

int main(int argc, char **argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: %s FILE\n", argv[0]);
        return 2;
    }
    setlocale(LC_ALL, "");
    if (ZuXmlInit() != 1) {
        fprintf(stderr, "cannot initialise Xerces\n");
        return 1;
    }
    int status = 0;
    ZuXmlDocument document = ZuXmlCreateDocument();
    if (document && ZuXmlLoadFromFileA(document, argv[1]) == 1) {
        print_element(document, ZuXmlGetRootNode(document), 0);
    } else {
        fprintf(stderr, "%s: cannot load %s\n", argv[0], argv[1]);
        status = 1;
    }
    ZuXmlReleaseDocument(document);
    ZuXmlCleanup();
    return status;
}
