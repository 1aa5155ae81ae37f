// Memory that runs out: one allocation of the calling thread can be told to fail. A program that
// has this source has operators new and delete, malloc, calloc and realloc of its own.
#ifndef TESTS_COMMON_FAILING_MEMORY_H
#define TESTS_COMMON_FAILING_MEMORY_H

#include <functional>

namespace failingmemory {

// Which allocations are counted.
enum class Of {
    Library,   // by operator new, called in the code of libvornqtnapi
    Toolkit,   // by operator new, called in the code of libytoolkit
    Libraries, // by operator new, called in any code but the program's own
    Everybody  // by operator new and by malloc, calloc and realloc, whoever calls them
};

// Has the allocation with this number fail, the next one being number 0, and counts anew.
void failAt(int number, Of whose = Of::Library);

// No allocation fails from now on. Result: whether one has.
bool stop();

// Calls `attempt` with the number of the allocation that has to fail, from 0, until it says that
// none has failed any more, or a test has. Result: how many have.
int forEachAllocation(const std::function<bool(int)>& attempt);

} // namespace failingmemory

#endif
