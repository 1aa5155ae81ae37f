#include "wizard/failing_malloc.h"

#include <dlfcn.h>

// Runs before the sanitizers are ready.
#define BEFORE_SANITIZERS __attribute__((no_sanitize("address", "undefined")))

static volatile std::size_t failingSize;

void failMallocOf(std::size_t size)
{
    failingSize = size;
}

BEFORE_SANITIZERS static bool hasToFail(std::size_t size)
{
    return size != 0 && size == failingSize;
}

// The next ones behind the program: those of the sanitizer, or of the C library.
#ifdef __SANITIZE_ADDRESS__
extern "C" void* __interceptor_malloc(std::size_t size);
extern "C" void* __interceptor_calloc(std::size_t count, std::size_t size);

BEFORE_SANITIZERS static void* nextMalloc(std::size_t size)
{
    return __interceptor_malloc(size);
}

BEFORE_SANITIZERS static void* nextCalloc(std::size_t count, std::size_t size)
{
    return __interceptor_calloc(count, size);
}
#else
static void* nextMalloc(std::size_t size)
{
    typedef void* (*Malloc)(std::size_t);
    static const Malloc next = reinterpret_cast<Malloc>(::dlsym(RTLD_NEXT, "malloc"));
    return next(size);
}

static void* nextCalloc(std::size_t count, std::size_t size)
{
    typedef void* (*Calloc)(std::size_t, std::size_t);
    static const Calloc next = reinterpret_cast<Calloc>(::dlsym(RTLD_NEXT, "calloc"));
    return next(count, size);
}
#endif

extern "C" __attribute__((visibility("default"))) BEFORE_SANITIZERS void* malloc(std::size_t size)
{
    return hasToFail(size) ? nullptr : nextMalloc(size);
}

extern "C" __attribute__((visibility("default"))) BEFORE_SANITIZERS void* calloc(std::size_t count,
                                                                                 std::size_t size)
{
    return hasToFail(count * size) ? nullptr : nextCalloc(count, size);
}
