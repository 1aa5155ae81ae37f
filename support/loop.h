// Nested levels of the application's event loop. GUI thread only, except wakeLoop().
#ifndef SUPPORT_LOOP_H
#define SUPPORT_LOOP_H

namespace support {

// Serves events until exitLoop() is called. Levels nest: a level that was entered later returns
// first. Does nothing while there is no QApplication. The object that calls it may be deleted
// meanwhile, so keep a Guarded<T> to `this` and return at once when it is null. Once the
// application has been told to quit, every level returns; enter no further one in the same slot
// then.
void enterLoop();

// Has the innermost level of enterLoop() return when the running slot has. Each call is for one
// level: a second one before that is for the level around it, which returns next. Does nothing
// where no level is left to leave.
void exitLoop();

// Handles what is pending in one pass and does not wait for anything. Does nothing while there is
// no QApplication. Not to be called between exitLoop() and the end of that level.
void processPending();

// Has a loop that waits for events go through them once. May be called from any thread while the
// QApplication exists.
void wakeLoop();

} // namespace support

#endif
