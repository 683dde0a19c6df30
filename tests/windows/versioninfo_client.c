/* SPDX-License-Identifier: Apache-2.0 */
/*
 * Reads ZUXML.dll's version resource as Windows' file properties do
 * (GetFileVersionInfo, VerQueryValue) and compares it with the version
 * macros of the zuxml.h it was compiled against.
 *
 *   versioninfo_client [PATH_OF_ZUXML.dll]
 */
#include <windows.h>

#include <stdio.h>
#include <stdlib.h>
#include <wchar.h>

#include <zuxml.h>

static int failures;

/* The string value NAME of the U.S. English, Unicode block, or NULL. */
static const wchar_t *string_value(void *info, const wchar_t *name) {
    wchar_t path[128];
    swprintf(path, sizeof path / sizeof *path, L"\\StringFileInfo\\040904B0\\%ls", name);
    wchar_t *value = NULL;
    UINT length = 0;
    return VerQueryValueW(info, path, (void **)&value, &length) && length > 0 ? value : NULL;
}

static void expect_string(void *info, const wchar_t *name, const wchar_t *expected) {
    const wchar_t *value = string_value(info, name);
    if (value && (!expected || wcscmp(value, expected) == 0)) {
        printf("%ls: %ls\n", name, value);
        return;
    }
    ++failures;
    printf("FAIL: %ls is \"%ls\", not \"%ls\"\n", name, value ? value : L"(none)", expected ? expected : L"(any)");
}

int main(int argc, char **argv) {
    const char *path = argc > 1 ? argv[1] : "ZUXML.dll";
    wchar_t wide_path[MAX_PATH];
    MultiByteToWideChar(CP_ACP, 0, path, -1, wide_path, MAX_PATH);
    DWORD size = GetFileVersionInfoSizeW(wide_path, NULL);
    void *info = size ? malloc(size) : NULL;
    if (!info || !GetFileVersionInfoW(wide_path, 0, size, info)) {
        printf("FAIL: %s has no version resource (error %lu)\n", path, (unsigned long)GetLastError());
        return 1;
    }

    wchar_t version[32];
    swprintf(version, sizeof version / sizeof *version, L"%d.%d.%d", ZUXML_VERSION_MAJOR, ZUXML_VERSION_MINOR,
             ZUXML_VERSION_PATCH);
    expect_string(info, L"FileVersion", version);
    expect_string(info, L"ProductVersion", version);
    expect_string(info, L"ProductName", L"ZuXml");
    expect_string(info, L"OriginalFilename", L"ZUXML.dll");
    expect_string(info, L"FileDescription", NULL);
    expect_string(info, L"LegalCopyright", NULL);

    VS_FIXEDFILEINFO *fixed = NULL;
    UINT length = 0;
    if (VerQueryValueW(info, L"\\", (void **)&fixed, &length) && fixed) {
        const DWORD ms = MAKELONG(ZUXML_VERSION_MINOR, ZUXML_VERSION_MAJOR);
        const DWORD ls = MAKELONG(0, ZUXML_VERSION_PATCH);
        if (fixed->dwFileVersionMS != ms || fixed->dwFileVersionLS != ls || fixed->dwProductVersionMS != ms ||
            fixed->dwProductVersionLS != ls) {
            ++failures;
            printf("FAIL: the numeric file and product versions are not %ls.0\n", version);
        }
    } else {
        ++failures;
        printf("FAIL: no fixed file information\n");
    }
    free(info);
    if (failures)
        return 1;
    printf("%s carries version %ls\n", path, version);
    return 0;
}
