// The program's malloc and calloc, which can be told to fail.
#ifndef TESTS_WIZARD_FAILING_MALLOC_H
#define TESTS_WIZARD_FAILING_MALLOC_H

#include <cstddef>

// Has an allocation of exactly this size give null from now on; 0 for none. A compiler makes one
// call of calloc out of malloc and memset, so both are meant.
void failMallocOf(std::size_t size);

#endif
