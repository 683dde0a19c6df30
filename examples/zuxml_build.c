/* SPDX-License-Identifier: Apache-2.0 */
/*
 * zuxml_build - builds a small document, writes it indented to a file, loads
 * the file back into a second handle and prints it as one string.
 *
 *   zuxml_build [FILE]     FILE defaults to zuxml_build.xml in the temporary
 *                          directory ($TMPDIR, else /tmp)
 *
 * Plain C against the public header only.
 */
#if defined(_MSC_VER)
#define _CRT_SECURE_NO_WARNINGS /* getenv */
#endif

#include <locale.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <zuxml.h>

#define LIBRARY_NS "urn:example:library"
#define META_NS "urn:example:meta"

/* Adds the elements, attributes, comment and text under the root element. */
static int fill(ZuXmlDocument doc) {
    /* A NULL parent means the root element. */
    if (!ZuXmlAddCommentA(doc, NULL, " written by zuxml_build "))
        return 0;

    /* Children in the root's (default) namespace. */
    ZuXmlNode book = ZuXmlAddNodeA(doc, NULL, "book", 1, NULL, LIBRARY_NS);
    if (!book || !ZuXmlAddNodeAttributeA(doc, book, "id", "b1") || !ZuXmlAddNodeAttributeA(doc, book, "year", "2024"))
        return 0;
    if (!ZuXmlAddNodeA(doc, book, "title", 1, "Streams & Trees", LIBRARY_NS))
        return 0;

    /* An element in another namespace, with a prefix of its own. */
    ZuXmlNode meta = ZuXmlAddNodeA(doc, book, "m:checked", 1, "yes", META_NS);
    if (!meta || !ZuXmlAddNodeAttributeA(doc, meta, "by", "example"))
        return 0;

    /* An element in no namespace at all; the serializer undeclares the default one for it. */
    ZuXmlNode note = ZuXmlAddNodeA(doc, NULL, "note", 1, NULL, NULL);
    return note && ZuXmlSetNodeTextContentA(doc, note, "Plain text, no namespace.");
}

/*
 * The document as one string, under the caller-buffer protocol: ask with a
 * length of 0, which answers 0 and reports the length needed, then allocate
 * and call again. The length counts wide characters; a multibyte locale may
 * need up to MB_CUR_MAX bytes for each, so the buffer is made that much larger
 * and its size handed over as the length. Returns a string to free, or NULL.
 */
static char *write_to_string(ZuXmlDocument doc) {
    int32_t length = 0; /* with a length of 0 the buffer may be NULL */
    if (ZuXmlWriteToStringA(doc, NULL, &length) != 0 || length <= 0)
        return NULL; /* no length reported: the handle holds no document */
    size_t size = (size_t)length * MB_CUR_MAX;
    char *text = malloc(size);
    if (!text)
        return NULL;
    length = (int32_t)size;
    if (ZuXmlWriteToStringA(doc, text, &length) != 1) {
        free(text);
        return NULL;
    }
    return text;
}

int main(int argc, char **argv) {
    /* Narrow text is in the locale's multibyte encoding; take the user's. */
    setlocale(LC_ALL, "");

    char path[4096];
    if (argc > 1) {
        snprintf(path, sizeof path, "%s", argv[1]);
    } else {
        const char *tmp = getenv("TMPDIR");
        snprintf(path, sizeof path, "%s/zuxml_build.xml", tmp && *tmp ? tmp : "/tmp");
    }

    if (!ZuXmlInit()) {
        fprintf(stderr, "zuxml_build: cannot initialise Xerces\n");
        return 1;
    }
    int status = 1;

    ZuXmlDocument built = ZuXmlCreateWriteDocumentA("library", LIBRARY_NS, NULL);
    if (!built || !fill(built)) {
        fprintf(stderr, "zuxml_build: cannot build the document\n");
    } else if (!ZuXmlWriteA(built, path)) {
        fprintf(stderr, "zuxml_build: cannot write %s\n", path);
    } else {
        printf("wrote %s\n", path);
        ZuXmlDocument loaded = ZuXmlCreateDocument();
        char *text = NULL;
        if (!loaded || !ZuXmlLoadFromFileA(loaded, path)) {
            fprintf(stderr, "zuxml_build: cannot load %s\n", path);
        } else if (!(text = write_to_string(loaded))) {
            fprintf(stderr, "zuxml_build: cannot write the loaded document to a string\n");
        } else {
            printf("%s\n", text);
            status = 0;
        }
        free(text);
        ZuXmlReleaseDocument(loaded);
    }
    ZuXmlReleaseDocument(built);

    ZuXmlCleanup();
    return status;
}
