// SPDX-License-Identifier: Apache-2.0
// The allocator replacements behind fault_injection.h. Defined in the test
// program, they take the place of the C library's and the C++ runtime's
// for every library the program loads.
#include "fault_injection.h"

#include <cstdlib>
#include <new>

extern "C" {
void *__libc_malloc(std::size_t);
void *__libc_calloc(std::size_t, std::size_t);
void *__libc_realloc(void *, std::size_t);
void __libc_free(void *);
}

#if defined(__SANITIZE_ADDRESS__)
#define ZUXML_FAULT_MALLOC 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZUXML_FAULT_MALLOC 0
#endif
#endif
#ifndef ZUXML_FAULT_MALLOC
#define ZUXML_FAULT_MALLOC 1
#endif

namespace {

std::size_t g_target = 0; // 0: disarmed
std::size_t g_count = 0;
bool g_failed = false;

// Whether this allocation is the one that must fail.
bool ThisOneFails() {
    if (g_target == 0)
        return false;
    if (++g_count != g_target)
        return false;
    g_failed = true;
    return true;
}

#if ZUXML_FAULT_MALLOC
void *Allocate(std::size_t size) { return __libc_malloc(size ? size : 1); }
void Release(void *block) { __libc_free(block); }
#else
void *Allocate(std::size_t size) { return std::malloc(size ? size : 1); }
void Release(void *block) { std::free(block); }
#endif

void *NewOrThrow(std::size_t size) {
    void *block = ThisOneFails() ? nullptr : Allocate(size);
    if (!block)
        throw std::bad_alloc();
    return block;
}

void *NewOrNull(std::size_t size) noexcept { return ThisOneFails() ? nullptr : Allocate(size); }

} // namespace

namespace zuxml_fault {

void FailAllocation(std::size_t n) {
    g_count = 0;
    g_failed = false;
    g_target = n;
}

bool Disarm() {
    g_target = 0;
    return g_failed;
}

} // namespace zuxml_fault

#if ZUXML_FAULT_MALLOC
extern "C" {
void *malloc(std::size_t size) { return ThisOneFails() ? nullptr : __libc_malloc(size); }
void *calloc(std::size_t count, std::size_t size) { return ThisOneFails() ? nullptr : __libc_calloc(count, size); }
void *realloc(void *block, std::size_t size) {
    return size && ThisOneFails() ? nullptr : __libc_realloc(block, size);
}
void free(void *block) { __libc_free(block); }
}
#endif

void *operator new(std::size_t size) { return NewOrThrow(size); }
void *operator new[](std::size_t size) { return NewOrThrow(size); }
void *operator new(std::size_t size, const std::nothrow_t &) noexcept { return NewOrNull(size); }
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept { return NewOrNull(size); }
void operator delete(void *block) noexcept { Release(block); }
void operator delete[](void *block) noexcept { Release(block); }
void operator delete(void *block, std::size_t) noexcept { Release(block); }
void operator delete[](void *block, std::size_t) noexcept { Release(block); }
void operator delete(void *block, const std::nothrow_t &) noexcept { Release(block); }
void operator delete[](void *block, const std::nothrow_t &) noexcept { Release(block); }
