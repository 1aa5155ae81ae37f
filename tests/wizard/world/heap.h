// The program's heap: what is allocated, and allocations that fail.
#ifndef TESTS_WIZARD_HEAP_H
#define TESTS_WIZARD_HEAP_H

#include <cstddef>

namespace heap {

// Has an allocation of exactly this size by malloc give null from now on; 0 for none. A compiler
// makes one call of calloc out of malloc and memset, so both are meant.
void failMallocOf(std::size_t size);

// The bytes that are allocated at this moment. The C library's own figure also has those that were
// freed and that it keeps at hand for the next one who asks.
long liveBytes();

} // namespace heap

#endif
