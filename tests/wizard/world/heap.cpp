#include "wizard/world/heap.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <malloc.h>

// Runs before the sanitizers are ready.
#define BEFORE_SANITIZERS __attribute__((no_sanitize("address", "undefined")))
#define IN_THE_PLACE_OF_LIBC extern "C" __attribute__((visibility("default"))) BEFORE_SANITIZERS

namespace {

volatile std::size_t failingSize;

} // namespace

void heap::failMallocOf(std::size_t size)
{
    failingSize = size;
}

BEFORE_SANITIZERS static bool hasToFail(std::size_t size)
{
    return size != 0 && size == failingSize;
}

#ifdef __SANITIZE_ADDRESS__

extern "C" std::size_t __sanitizer_get_current_allocated_bytes();

long heap::liveBytes()
{
    return static_cast<long>(__sanitizer_get_current_allocated_bytes());
}

extern "C" void* __interceptor_malloc(std::size_t size);
extern "C" void* __interceptor_calloc(std::size_t count, std::size_t size);

IN_THE_PLACE_OF_LIBC void* malloc(std::size_t size)
{
    return hasToFail(size) ? nullptr : __interceptor_malloc(size);
}

IN_THE_PLACE_OF_LIBC void* calloc(std::size_t count, std::size_t size)
{
    return hasToFail(count * size) ? nullptr : __interceptor_calloc(count, size);
}

#else

namespace {

std::atomic<long> live;

} // namespace

long heap::liveBytes()
{
    return live;
}

// Every way to allocate and to free: one that were left out would spoil the sum.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* place, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* place);
}

namespace {

long sizeOf(void* place)
{
    return static_cast<long>(::malloc_usable_size(place));
}

void* counted(void* place)
{
    live += sizeOf(place);
    return place;
}

} // namespace

IN_THE_PLACE_OF_LIBC void* malloc(std::size_t size)
{
    return hasToFail(size) ? nullptr : counted(__libc_malloc(size));
}

IN_THE_PLACE_OF_LIBC void* calloc(std::size_t count, std::size_t size)
{
    return hasToFail(count * size) ? nullptr : counted(__libc_calloc(count, size));
}

IN_THE_PLACE_OF_LIBC void* realloc(void* place, std::size_t size)
{
    const long before = sizeOf(place);
    void* moved = __libc_realloc(place, size);
    if (moved || size == 0)
        live -= before;
    return counted(moved);
}

IN_THE_PLACE_OF_LIBC void* memalign(std::size_t alignment, std::size_t size)
{
    return counted(__libc_memalign(alignment, size));
}

IN_THE_PLACE_OF_LIBC void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return memalign(alignment, size);
}

IN_THE_PLACE_OF_LIBC int posix_memalign(void** place, std::size_t alignment, std::size_t size)
{
    void* found = memalign(alignment, size);
    if (found)
        *place = found;
    return found ? 0 : ENOMEM;
}

IN_THE_PLACE_OF_LIBC void free(void* place)
{
    live -= sizeOf(place);
    __libc_free(place);
}

#endif
