#include "wizard/failing_malloc.h"

#include <atomic>
#include <dlfcn.h>

static std::atomic<std::size_t> failingSize;

void failMallocOf(std::size_t size)
{
    failingSize = size;
}

static bool hasToFail(std::size_t size)
{
    return size != 0 && size == failingSize;
}

// The next one behind the program: the C library's, or the sanitizer's.
template <typename Function> static Function nextOf(const char* name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

extern "C" __attribute__((visibility("default"))) void* malloc(std::size_t size)
{
    static const auto next = nextOf<void* (*)(std::size_t)>("malloc");
    return hasToFail(size) ? nullptr : next(size);
}

extern "C" __attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t size)
{
    static const auto next = nextOf<void* (*)(std::size_t, std::size_t)>("calloc");
    return hasToFail(count * size) ? nullptr : next(count, size);
}
