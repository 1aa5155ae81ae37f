// The program's operator new[] and delete[], which can be told to fail and which are recorded.
#ifndef TESTS_PROFILES_ARRAY_ALLOCATION_H
#define TESTS_PROFILES_ARRAY_ALLOCATION_H

namespace allocation {

// Has the allocations of arrays that may fail without throwing fail from now on, or succeed.
void failArrays(bool fail);

// How many of them are held.
int heldArrays();

} // namespace allocation

#endif
