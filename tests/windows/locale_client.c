/* SPDX-License-Identifier: Apache-2.0 */
/*
 * A C client of ZUXML.dll built, like the DLL, against the Universal C
 * runtime. It sets its own locale with setlocale and checks that the DLL's
 * narrow getters and narrow arguments follow it: the two modules share one
 * C runtime, so they share its locale. The expected bytes are written out
 * from each code page's table, not asked of any converter.
 *
 *   locale_client
 */
#include <locale.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include "zuxml.h"

static int checks;
static int failures;

static void check(int ok, const char *locale, const char *what) {
    ++checks;
    if (!ok) {
        ++failures;
        printf("FAIL under \"%s\": %s\n", locale, what);
    }
}

#define SENTINEL '~'

/* Fills the buffer with the sentinel, then runs the narrow name getter. */
static int32_t name_a(ZuXmlDocument document, ZuXmlNode node, char *buffer, size_t size, int32_t *length) {
    memset(buffer, SENTINEL, size);
    return ZuXmlGetNodeNameA(document, node, buffer, length);
}

/* The UTF-16 document <é><ü>日本</ü><日本語/><éèê/></é>. */
static const ZuXmlWChar kDocument[] = {'<', 0xE9, '>', '<', 0xFC, '>', 0x65E5, 0x672C, '<', '/', 0xFC, '>',
                                       '<', 0x65E5, 0x672C, 0x8A9E, '/', '>',
                                       '<', 0xE9, 0xE8, 0xEA, '/', '>',
                                       '<', '/', 0xE9, '>'};

static const ZuXmlWChar kU[] = {0xFC, 0};
static const ZuXmlWChar kNihongo[] = {0x65E5, 0x672C, 0x8A9E, 0};
static const ZuXmlWChar kAccents[] = {0xE9, 0xE8, 0xEA, 0};

struct Nodes {
    ZuXmlDocument document;
    ZuXmlNode root, u, nihongo, accents;
};

/* The narrow text of node u's content, in a buffer of 16 bytes. */
static int text_is(const struct Nodes *n, const char *expected) {
    char buffer[16];
    int32_t length = (int32_t)sizeof buffer;
    memset(buffer, SENTINEL, sizeof buffer);
    return ZuXmlGetNodeTextContentA(n->document, n->u, buffer, &length) == 1 && strcmp(buffer, expected) == 0;
}

/* A name of three characters of two bytes each: 4 bytes hold two of them,
 * with no terminator; the too-small answer counts wide characters. */
static void check_cut(const struct Nodes *n, ZuXmlNode node, const char *locale, const char *bytes) {
    char buffer[16];
    int32_t length = 4;
    check(name_a(n->document, node, buffer, sizeof buffer, &length) == 1 && length == 4,
          locale, "a length of 4 holds a name of 3 wide characters");
    check(memcmp(buffer, bytes, 4) == 0, locale, "the name is cut at 4 bytes: two characters");
    check(buffer[4] == SENTINEL, locale, "no terminator after the cut");
    length = 3;
    check(name_a(n->document, node, buffer, sizeof buffer, &length) == 0 && length == 4, locale,
          "a length of 3 is too small and the answer is 3 wide characters plus one");
    check(buffer[0] == 0 && buffer[1] == SENTINEL, locale, "the too-small answer writes the empty string");
    length = 7;
    check(name_a(n->document, node, buffer, sizeof buffer, &length) == 1 && memcmp(buffer, bytes, 6) == 0 &&
              buffer[6] == 0,
          locale, "a length of 7 holds the six bytes and the terminator");
}

static void utf8(const struct Nodes *n) {
    const char *locale = ".UTF8";
    char buffer[16];
    int32_t length = (int32_t)sizeof buffer;
    check(name_a(n->document, n->root, buffer, sizeof buffer, &length) == 1 && strcmp(buffer, "\xC3\xA9") == 0,
          locale, "the root's name is C3 A9");
    check(ZuXmlFindChildA(n->document, n->root, "\xC3\xBC") == n->u, locale, "the narrow name C3 BC finds <\xC3\xBC>");
    check(text_is(n, "\xE6\x97\xA5\xE6\x9C\xAC"), locale, "the text is E6 97 A5 E6 9C AC");
    check(ZuXmlFindChildA(n->document, n->root, "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E") == n->nihongo, locale,
          "the narrow name of three CJK characters finds its element");
    check_cut(n, n->accents, locale, "\xC3\xA9\xC3\xA8\xC3\xAA");
    check(ZuXmlFindChildA(n->document, n->root, "\xFC") == NULL, locale, "the byte FC alone is no UTF-8 name");
}

static void cp1252(const struct Nodes *n) {
    const char *locale = ".1252";
    char buffer[16];
    int32_t length = (int32_t)sizeof buffer;
    check(name_a(n->document, n->root, buffer, sizeof buffer, &length) == 1 && strcmp(buffer, "\xE9") == 0, locale,
          "the root's name is E9");
    check(ZuXmlFindChildA(n->document, n->root, "\xFC") == n->u, locale, "the narrow name FC finds the element");
    length = 4;
    check(name_a(n->document, n->accents, buffer, sizeof buffer, &length) == 1 &&
              strcmp(buffer, "\xE9\xE8\xEA") == 0,
          locale, "one byte a character: E9 E8 EA and the terminator");
    ZuXmlDocument created = ZuXmlCreateWriteDocumentA("\xE9\xE8\xEA", NULL, NULL);
    ZuXmlWChar wide[8] = {0};
    length = 8;
    check(created != NULL && ZuXmlGetNodeNameW(created, ZuXmlGetRootNode(created), wide, &length) == 1 &&
              memcmp(wide, kAccents, sizeof kAccents) == 0,
          locale, "the narrow argument E9 E8 EA becomes U+00E9 U+00E8 U+00EA");
    ZuXmlReleaseDocument(created);
}

static void cp932(const struct Nodes *n) {
    const char *locale = ".932";
    check(text_is(n, "\x93\xFA\x96\x7B"), locale, "the text is 93 FA 96 7B");
    check(ZuXmlFindChildA(n->document, n->root, "\x93\xFA\x96\x7B\x8C\xEA") == n->nihongo, locale,
          "the narrow name 93 FA 96 7B 8C EA finds its element");
    check_cut(n, n->nihongo, locale, "\x93\xFA\x96\x7B\x8C\xEA");
    ZuXmlDocument created = ZuXmlCreateWriteDocumentA("\x93\xFA\x96\x7B\x8C\xEA", NULL, NULL);
    ZuXmlWChar wide[8] = {0};
    int32_t length = 8;
    check(created != NULL && ZuXmlGetNodeNameW(created, ZuXmlGetRootNode(created), wide, &length) == 1 &&
              memcmp(wide, kNihongo, sizeof kNihongo) == 0,
          locale, "the narrow argument becomes U+65E5 U+672C U+8A9E");
    ZuXmlReleaseDocument(created);
}

int main(void) {
    struct {
        const char *name;
        void (*run)(const struct Nodes *);
    } const locales[] = {{".UTF8", utf8}, {".1252", cp1252}, {".932", cp932}};
    struct Nodes n;
    size_t i;

    if (ZuXmlInit() != 1) {
        printf("FAIL: ZuXmlInit\n");
        return 1;
    }
    n.document = ZuXmlCreateDocument();
    if (ZuXmlLoadFromBufW(n.document, kDocument, (uint32_t)(sizeof kDocument / sizeof kDocument[0])) != 1) {
        printf("FAIL: the document does not load\n");
        return 1;
    }
    n.root = ZuXmlGetRootNode(n.document);
    n.u = ZuXmlFindChildW(n.document, n.root, kU);
    n.nihongo = ZuXmlFindChildW(n.document, n.root, kNihongo);
    n.accents = ZuXmlFindChildW(n.document, n.root, kAccents);
    if (!n.root || !n.u || !n.nihongo || !n.accents) {
        printf("FAIL: the document lacks its elements\n");
        return 1;
    }

    for (i = 0; i < sizeof locales / sizeof locales[0]; ++i) {
        const char *set = setlocale(LC_ALL, locales[i].name);
        if (!set) {
            printf("FAIL: this C runtime has no locale \"%s\"\n", locales[i].name);
            ++failures;
            continue;
        }
        printf("locale \"%s\" is %s\n", locales[i].name, set);
        locales[i].run(&n);
    }

    ZuXmlReleaseDocument(n.document);
    ZuXmlCleanup();
    printf("locale client: %d checks, %d failed\n", checks, failures);
    return failures == 0 ? 0 : 1;
}
