// The library's own allocations by new, of which one can be told to fail.
#ifndef TESTS_WIZARD_FAILING_NEW_H
#define TESTS_WIZARD_FAILING_NEW_H

namespace failingnew {

// Has the allocation with this number fail, the library's next one being number 0, and counts anew.
void failAt(int number);

// No allocation fails from now on. Result: whether one has.
bool stop();

} // namespace failingnew

#endif
