// The program's malloc and free, of which one allocation can be watched.
#ifndef TESTS_PROFILES_MALLOC_WATCH_H
#define TESTS_PROFILES_MALLOC_WATCH_H

namespace mallocwatch {

// Records the next malloc of this thread as "malloc SIZE", and the free of what it gave as "free".
// What it gives is full of the letter x. `fail` has that one malloc fail.
void watchNext(bool fail);

// Whether the watched allocation is still held.
bool isHeld();

} // namespace mallocwatch

#endif
