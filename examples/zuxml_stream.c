/* SPDX-License-Identifier: Apache-2.0 */
/*
 * zuxml_stream - prints the SAX2 events of an XML file, indented by depth.
 *
 *   zuxml_stream FILE [MAX_ELEMENTS]
 *
 * With MAX_ELEMENTS the parse stops after that many start tags: the start
 * tag callback asks ZuXmlSax2StopLoadFromFile, and the progressive load
 * ends before its next step. Text arrives narrow, in the locale's code
 * page.
 */
#include <ctype.h>
#include <locale.h>
#include <stdio.h>
#include <stdlib.h>

#include "zuxml.h"

struct Stream {
    long nStarted;
    long nMaxElements; /* 0: no limit */
};

static void Indent(int32_t nDepth) {
    for (int32_t i = 0; i < nDepth; ++i)
        fputs("  ", stdout);
}

/* Whether text holds more than the white space that indents the file. */
static int HasContent(const char *szText) {
    for (; *szText; ++szText)
        if (!isspace((unsigned char)*szText))
            return 1;
    return 0;
}

static void OnStartDocument(ZuXmlSax2Parser hParser, void *pContext) {
    (void)hParser;
    (void)pContext;
    puts("document start");
}

static void OnEndDocument(ZuXmlSax2Parser hParser, void *pContext) {
    (void)hParser;
    (void)pContext;
    puts("document end");
}

static void OnStartElement(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth, int32_t nAttributes,
                           const char *szUri, const char *szLocalName, const char *szQName) {
    struct Stream *stream = pContext;
    uint64_t nLine = 0;
    uint64_t nColumn = 0;
    (void)szLocalName;
    ZuXmlGetSax2CurrentLocation(hParser, &nLine, &nColumn);
    Indent(nDepth);
    printf("<%s>", szQName);
    if (*szUri)
        printf(" {%s}", szUri);
    printf(" %d attribute(s), line %llu column %llu\n", (int)nAttributes, (unsigned long long)nLine,
           (unsigned long long)nColumn);
    if (++stream->nStarted == stream->nMaxElements) {
        Indent(nDepth);
        printf("-- stop after %ld element(s)\n", stream->nStarted);
        ZuXmlSax2StopLoadFromFile(hParser);
    }
}

static void OnAttribute(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth, int32_t nIndex, const char *szUri,
                        const char *szLocalName, const char *szQName, const char *szType, const char *szValue) {
    (void)hParser;
    (void)pContext;
    (void)szUri;
    (void)szLocalName;
    Indent(nDepth + 1);
    printf("@%d %s = \"%s\" (%s)\n", (int)nIndex, szQName, szValue, szType);
}

/* Called after the attributes of every start tag, because the narrow
 * Attribute callback is set. */
static void OnAttributesDone(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth) {
    (void)hParser;
    (void)pContext;
    (void)nDepth;
}

static void OnEndElement(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth, const char *szUri,
                         const char *szLocalName, const char *szQName, const char *szText) {
    (void)hParser;
    (void)pContext;
    (void)szUri;
    (void)szLocalName;
    Indent(nDepth);
    printf("</%s>", szQName);
    if (HasContent(szText))
        printf(" text \"%s\"", szText);
    putchar('\n');
}

static void OnComment(ZuXmlSax2Parser hParser, void *pContext, int32_t nDepth, const char *szText) {
    (void)hParser;
    (void)pContext;
    Indent(nDepth);
    printf("<!--%s-->\n", szText);
}

static void OnDiagnostic(ZuXmlSax2Parser hParser, void *pContext, int32_t nCode, const char *szMessage) {
    uint64_t nLine = 0;
    uint64_t nColumn = 0;
    (void)pContext;
    ZuXmlGetSax2CurrentLocation(hParser, &nLine, &nColumn);
    printf("%s at line %llu column %llu: %s\n",
           nCode == SAX2_WARNING ? "warning" : nCode == SAX2_ERROR ? "error" : "fatal error",
           (unsigned long long)nLine, (unsigned long long)nColumn, szMessage);
}

int main(int argc, char **argv) {
    struct Stream stream = {0, 0};
    ZuXmlSax2Parser hParser;
    int32_t nResult;

    if (argc < 2 || argc > 3) {
        fprintf(stderr, "usage: %s FILE [MAX_ELEMENTS]\n", argv[0]);
        return 2;
    }
    if (argc == 3)
        stream.nMaxElements = strtol(argv[2], NULL, 10);
    setlocale(LC_ALL, "");

    if (ZuXmlSax2Init() != 1) {
        fputs("cannot initialise Xerces\n", stderr);
        return 1;
    }
    hParser = ZuXmlCreateSax2Parser(&stream);
    if (!hParser) {
        ZuXmlSax2Cleanup();
        return 1;
    }
    ZuXmlSetSax2ParserCallbacksA(hParser, OnStartDocument, OnEndDocument, OnStartElement, OnAttribute,
                                 OnAttributesDone, OnEndElement, OnComment, OnDiagnostic);
    /* Mode 1: the progressive load, the one a stop can end. */
    nResult = ZuXmlSax2LoadFromFileA(hParser, argv[1], 1);
    printf("load result %d\n", (int)nResult);

    ZuXmlReleaseSax2Parser(hParser);
    ZuXmlSax2Cleanup();
    return nResult == 1 ? 0 : 1;
}
