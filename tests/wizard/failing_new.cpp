#include "wizard/failing_new.h"

#include <cstdlib>
#include <cstring>
#include <new>

#include <dlfcn.h>

namespace {

int untilFailure = -1;
bool hasFailed = false;

bool isInLibrary(void* caller)
{
    Dl_info info;
    return ::dladdr(caller, &info) && std::strstr(info.dli_fname, "libvornqtnapi.so");
}

bool hasToFail(void* caller)
{
    if (untilFailure < 0 || !isInLibrary(caller) || untilFailure-- > 0)
        return false;
    hasFailed = true;
    return true;
}

void* allocate(std::size_t size)
{
    return std::malloc(size ? size : 1);
}

} // namespace

void failingnew::failAt(int number)
{
    untilFailure = number;
    hasFailed = false;
}

bool failingnew::stop()
{
    untilFailure = -1;
    return hasFailed;
}

void* operator new(std::size_t size)
{
    void* place = hasToFail(__builtin_return_address(0)) ? nullptr : allocate(size);
    if (!place)
        throw std::bad_alloc();
    return place;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return hasToFail(__builtin_return_address(0)) ? nullptr : allocate(size);
}

void operator delete(void* place) noexcept
{
    std::free(place);
}

void operator delete(void* place, std::size_t) noexcept
{
    std::free(place);
}
