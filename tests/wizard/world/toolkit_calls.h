// What the wizard asks of the toolkit: noted by functions that stand before the toolkit's own, with
// the record of common/interposed.h.
#ifndef TESTS_WIZARD_TOOLKIT_CALLS_H
#define TESTS_WIZARD_TOOLKIT_CALLS_H

#include <QRect>

namespace toolkitcalls {

// Whether popups come back at once, as if the user had closed them.
inline bool answersPopups = false;

// The rectangles of the screen that the wizard is told, unless empty; the toolkit keeps its own.
inline QRect home;
inline QRect softKeyBar;

// The last answer to the place of a row in its form.
inline int rowY = -1;

} // namespace toolkitcalls

#endif
