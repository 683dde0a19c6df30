/* SPDX-License-Identifier: Apache-2.0 */
/*
 * A client of ZUXML.dll that binds the way Windows callers do: LoadLibrary
 * and GetProcAddress, by ordinal (MAKEINTRESOURCE) and by name. Checks that
 * both bind the same function, that the shared names are one function, and
 * calls a few entries through the ordinal-bound pointers.
 *
 *   ordinal_client [PATH_OF_ZUXML.dll]
 */
#include <windows.h>

#include <stdint.h>
#include <stdio.h>
#include <string.h>
#include <wchar.h>

typedef int32_t (*LifecycleFn)(void);
typedef void *(*CreateWriteDocumentWFn)(const wchar_t *, const wchar_t *, const wchar_t *);
typedef void *(*GetRootNodeFn)(void *);
typedef int32_t (*GetNodeNameWFn)(void *, void *, wchar_t *, int32_t *);
typedef int32_t (*GetNodeNameAFn)(void *, void *, char *, int32_t *);
typedef int32_t (*ReleaseFn)(void *);

static int checks;
static int failures;

static void check(int ok, const char *what) {
    ++checks;
    if (!ok) {
        ++failures;
        printf("FAIL: %s\n", what);
    }
}

/* FARPROC is a generic pointer to any function; void (*)(void) is C's. */
typedef void (*AnyFn)(void);

static AnyFn by_ordinal(HMODULE module, WORD ordinal) {
    return (AnyFn)GetProcAddress(module, MAKEINTRESOURCEA(ordinal));
}

static AnyFn by_name(HMODULE module, const char *name) { return (AnyFn)GetProcAddress(module, name); }

/* Binds name and ordinal; both must give one and the same function. */
static AnyFn bind_entry(HMODULE module, const char *name, WORD ordinal) {
    AnyFn fromOrdinal = by_ordinal(module, ordinal);
    AnyFn fromName = by_name(module, name);
    char what[128];
    snprintf(what, sizeof what, "%s is exported at ordinal %u", name, (unsigned)ordinal);
    check(fromOrdinal != NULL && fromOrdinal == fromName, what);
    return fromOrdinal;
}

int main(int argc, char **argv) {
    const char *path = argc > 1 ? argv[1] : "ZUXML.dll";
    HMODULE module = LoadLibraryA(path);
    if (!module) {
        printf("FAIL: LoadLibrary(%s): error %lu\n", path, (unsigned long)GetLastError());
        return 1;
    }

    LifecycleFn init = (LifecycleFn)bind_entry(module, "ZuXmlInit", 100);
    LifecycleFn cleanup = (LifecycleFn)bind_entry(module, "ZuXmlCleanup", 101);
    ReleaseFn release = (ReleaseFn)bind_entry(module, "ZuXmlReleaseDocument", 104);
    GetRootNodeFn getRoot = (GetRootNodeFn)bind_entry(module, "ZuXmlGetRootNode", 118);
    bind_entry(module, "ZuXmlGetPriviousSibling", 120);
    AnyFn sax2Init = bind_entry(module, "ZuXmlSax2Init", 135);
    AnyFn sax2Cleanup = bind_entry(module, "ZuXmlSax2Cleanup", 136);
    ReleaseFn releaseParser = (ReleaseFn)bind_entry(module, "ZuXmlReleaseSax2Parser", 138);
    GetNodeNameAFn getNameA = (GetNodeNameAFn)bind_entry(module, "ZuXmlGetNodeNameA", 607);
    CreateWriteDocumentWFn createW = (CreateWriteDocumentWFn)bind_entry(module, "ZuXmlCreateWriteDocumentW", 700);
    GetNodeNameWFn getNameW = (GetNodeNameWFn)bind_entry(module, "ZuXmlGetNodeNameW", 707);

    check(sax2Init == (AnyFn)init, "ZuXmlSax2Init is ZuXmlInit");
    check(sax2Cleanup == (AnyFn)cleanup, "ZuXmlSax2Cleanup is ZuXmlCleanup");
    check(releaseParser == release, "ZuXmlReleaseSax2Parser is ZuXmlReleaseDocument");
    check(by_ordinal(module, 103) == NULL, "ordinal 103 is not exported");
    check(by_name(module, "ZuXmlGetPreviousSibling") == NULL, "the corrected spelling is not exported");

    if (init && cleanup && release && getRoot && getNameA && createW && getNameW && releaseParser) {
        check(init() == 1, "ZuXmlInit answers 1");
        void *document = createW(L"r\u00f6ot", NULL, NULL);
        check(document != NULL, "ZuXmlCreateWriteDocumentW makes a document");
        void *root = document ? getRoot(document) : NULL;
        check(root != NULL, "the document has its root element");
        if (root) {
            int32_t length = 0;
            check(getNameW(document, root, NULL, &length) == 0 && length == 5,
                  "ZuXmlGetNodeNameW reports the length the name needs");
            wchar_t name[5];
            check(getNameW(document, root, name, &length) == 1 && wcscmp(name, L"r\u00f6ot") == 0,
                  "ZuXmlGetNodeNameW hands out the name");
            char narrow[8];
            length = (int32_t)sizeof narrow;
            check(getNameA(document, root, narrow, &length) == 1 && narrow[0] == 'r',
                  "ZuXmlGetNodeNameA hands out the name");
        }
        /* One release entry serves both kinds of handle. */
        check(releaseParser(document) == 1, "ZuXmlReleaseSax2Parser releases a document");
        check(release(NULL) == 1, "ZuXmlReleaseDocument answers 1 for NULL");
        check(cleanup() == 1, "ZuXmlCleanup answers 1");
    }

    FreeLibrary(module);
    printf("ordinal client: %d checks, %d failed\n", checks, failures);
    return failures == 0 ? 0 : 1;
}
