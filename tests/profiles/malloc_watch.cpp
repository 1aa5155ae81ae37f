#include "profiles/malloc_watch.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

#include "profiles/recorder.h"

// What stands behind malloc and free: the sanitizer's where there is one, else the C library's.
extern "C" {
void* __interceptor_malloc(std::size_t size) __attribute__((weak));
void __interceptor_free(void* place) __attribute__((weak));
void* __libc_malloc(std::size_t size);
void __libc_free(void* place);
}

namespace mallocwatch {

enum class Next { Pass, Watch, Fail };

namespace {

thread_local Next next = Next::Pass;
void* held = nullptr;

void* allocate(std::size_t size)
{
    return __interceptor_malloc ? __interceptor_malloc(size) : __libc_malloc(size);
}

} // namespace

void watchNext(bool fail)
{
    next = fail ? Next::Fail : Next::Watch;
}

bool isHeld()
{
    return held;
}

} // namespace mallocwatch

extern "C" __attribute__((visibility("default"))) void* malloc(std::size_t size) noexcept
{
    using namespace mallocwatch;
    const Next now = next;
    next = Next::Pass;
    if (now == Next::Pass)
        return allocate(size);
    recorder::note("malloc " + std::to_string(size));
    if (now == Next::Fail) {
        errno = ENOMEM;
        return nullptr;
    }
    held = allocate(size);
    if (held)
        std::memset(held, 'x', size);
    return held;
}

extern "C" __attribute__((visibility("default"))) void free(void* place) noexcept
{
    if (place && place == mallocwatch::held) {
        mallocwatch::held = nullptr;
        recorder::note("free");
    }
    if (__interceptor_free)
        __interceptor_free(place);
    else
        __libc_free(place);
}
