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
//
// While a dialog of the toolkit runs a loop of its own inside that level, Qt 2 knows only one
// innermost loop: the call ends the dialog's, and the level itself goes on. On Qt 6 the dialog's
// stays, and the level returns after it. So call it only when no dialog is up.
void exitLoop();

// Handles what is pending in one pass and does not wait for anything. Does nothing while there is
// no QApplication. Not to be called between exitLoop() and the end of that level.
void processPending();

// Has a loop that waits for events go through them once. May be called from any thread while the
// QApplication exists; on the GUI thread it does nothing when there is none.
void wakeLoop();

} // namespace support

#endif
