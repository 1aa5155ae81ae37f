#include "profiles/array_allocation.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <set>

#include "profiles/recorder.h"

namespace allocation {

namespace {

bool failing = false;

std::set<void*>& held()
{
    static std::set<void*> all;
    return all;
}

// As if memory had held a list before.
void fillWithNames(char* place, std::size_t size)
{
    const char name[] = "Profile77";
    for (std::size_t slot = 0; slot + sizeof name <= size; slot += 64)
        std::memcpy(place + slot, name, sizeof name);
}

} // namespace

void failArrays(bool fail)
{
    failing = fail;
}

int heldArrays()
{
    return static_cast<int>(held().size());
}

} // namespace allocation

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    recorder::note("new[] " + std::to_string(size));
    void* place = allocation::failing ? nullptr : std::malloc(size);
    if (place) {
        allocation::held().insert(place);
        allocation::fillWithNames(static_cast<char*>(place), size);
    }
    return place;
}

void* operator new[](std::size_t size)
{
    void* place = std::malloc(size ? size : 1);
    if (!place)
        throw std::bad_alloc();
    return place;
}

void operator delete[](void* place) noexcept
{
    if (place && allocation::held().erase(place))
        recorder::note("delete[]");
    std::free(place);
}

void operator delete[](void* place, std::size_t) noexcept
{
    operator delete[](place);
}
