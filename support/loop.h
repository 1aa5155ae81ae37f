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
// innermost loop: the call ends the dialog's. On Qt 6 the dialog's stays until the user ends it. On
// both the level returns after the dialog, where runDialog() has run it.
void exitLoop();

// Has the innermost level return that was told to while a loop of somebody else ran inside it and
// took the word for its own. Does nothing where none was.
void resumeLeaving();

// Runs a dialog of the toolkit. Result: that of its exec(). The dialog may be deleted meanwhile.
template <class Dialog> int runDialog(Dialog& dialog)
{
    const int result = dialog.exec();
    resumeLeaving();
    return result;
}

// Handles what is pending in one pass and does not wait for anything. Does nothing while there is
// no QApplication. Not to be called between exitLoop() and the end of that level.
void processPending();

// Has a loop that waits for events go through them once. May be called from any thread while the
// QApplication exists; on the GUI thread it does nothing when there is none.
void wakeLoop();

} // namespace support

#endif
