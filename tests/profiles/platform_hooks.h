// Calls of the platform on their way from the library: recorded, or answered by the test.
#ifndef TESTS_PROFILES_PLATFORM_HOOKS_H
#define TESTS_PROFILES_PLATFORM_HOOKS_H

namespace hooks {

// Has the single-select dialog say that it has no list, until it is told otherwise.
void hideListBox(bool hide);

// What every list answers for its current row; -1 has it answer itself.
void pretendCurrentItem(int row);

// Records the dialog's life and what the library asks the event loop for: "dialog made", "wake",
// "exec", "exec ends", "dialog deleted" and "process events", the latter with "dialog gone" or
// "dialog there". What happens inside exec is not recorded.
void recordLoop(bool record);

} // namespace hooks

#endif
