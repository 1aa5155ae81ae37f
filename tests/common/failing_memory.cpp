#include "common/failing_memory.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <new>

#include <dlfcn.h>

#include <gtest/gtest.h>

// What stands behind malloc: the sanitizer's where there is one, else the C library's.
extern "C" {
void* __interceptor_malloc(std::size_t size) __attribute__((weak));
void* __interceptor_calloc(std::size_t count, std::size_t size) __attribute__((weak));
void* __interceptor_realloc(void* place, std::size_t size) __attribute__((weak));
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* place, std::size_t size);
}

namespace {

using failingmemory::Of;

thread_local int untilFailure = -1;
thread_local Of counted = Of::Library;
thread_local bool hasFailed = false;

bool isNext();

bool isCounted(void* caller)
{
    Dl_info info;
    Dl_info ofThisProgram;
    if (counted == Of::Everybody)
        return true;
    if (!::dladdr(caller, &info))
        return false;
    if (counted == Of::Library)
        return std::strstr(info.dli_fname, "libvornqtnapi.so");
    if (counted == Of::Toolkit)
        return std::strstr(info.dli_fname, "libytoolkit.so");
    return ::dladdr(reinterpret_cast<void*>(&isNext), &ofThisProgram) &&
           info.dli_fbase != ofThisProgram.dli_fbase;
}

bool isNext()
{
    if (untilFailure-- > 0)
        return false;
    hasFailed = true;
    return true;
}

bool hasToFail(void* caller)
{
    return untilFailure >= 0 && isCounted(caller) && isNext();
}

bool hasToFailMalloc()
{
    if (untilFailure < 0 || counted != Of::Everybody || !isNext())
        return false;
    errno = ENOMEM;
    return true;
}

void* plainMalloc(std::size_t size)
{
    return __interceptor_malloc ? __interceptor_malloc(size) : __libc_malloc(size);
}

void* plainCalloc(std::size_t count, std::size_t size)
{
    return __interceptor_calloc ? __interceptor_calloc(count, size) : __libc_calloc(count, size);
}

void* plainRealloc(void* place, std::size_t size)
{
    return __interceptor_realloc ? __interceptor_realloc(place, size) : __libc_realloc(place, size);
}

void* allocate(std::size_t size, void* caller)
{
    return hasToFail(caller) ? nullptr : plainMalloc(size ? size : 1);
}

void* allocateOrThrow(std::size_t size, void* caller)
{
    void* place = allocate(size, caller);
    if (!place)
        throw std::bad_alloc();
    return place;
}

} // namespace

void failingmemory::failAt(int number, Of whose)
{
    untilFailure = number;
    counted = whose;
    hasFailed = false;
}

bool failingmemory::stop()
{
    untilFailure = -1;
    return hasFailed;
}

int failingmemory::forEachAllocation(const std::function<bool(int)>& attempt)
{
    int number = 0;
    while (!testing::Test::HasFailure() && attempt(number))
        ++number;
    std::cout << number << " failing allocations\n";
    return number;
}

void* operator new(std::size_t size)
{
    return allocateOrThrow(size, __builtin_return_address(0));
}

void* operator new[](std::size_t size)
{
    return allocateOrThrow(size, __builtin_return_address(0));
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size, __builtin_return_address(0));
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size, __builtin_return_address(0));
}

void operator delete(void* place) noexcept
{
    std::free(place);
}

void operator delete[](void* place) noexcept
{
    std::free(place);
}

void operator delete(void* place, const std::nothrow_t&) noexcept
{
    std::free(place);
}

void operator delete[](void* place, const std::nothrow_t&) noexcept
{
    std::free(place);
}

void operator delete(void* place, std::size_t) noexcept
{
    std::free(place);
}

void operator delete[](void* place, std::size_t) noexcept
{
    std::free(place);
}

#define IN_THE_PLACE_OF_LIBC extern "C" __attribute__((visibility("default")))

IN_THE_PLACE_OF_LIBC void* malloc(std::size_t size) noexcept
{
    return hasToFailMalloc() ? nullptr : plainMalloc(size);
}

IN_THE_PLACE_OF_LIBC void* calloc(std::size_t count, std::size_t size) noexcept
{
    return hasToFailMalloc() ? nullptr : plainCalloc(count, size);
}

IN_THE_PLACE_OF_LIBC void* realloc(void* place, std::size_t size) noexcept
{
    return hasToFailMalloc() ? nullptr : plainRealloc(place, size);
}
