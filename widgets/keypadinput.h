// The phone's keypad as the way in which a field takes its text.
#ifndef WIDGETS_KEYPADINPUT_H
#define WIDGETS_KEYPADINPUT_H

#include "support/toolkitnumbers.h"

class QWidget;

namespace widgets {

// Has `field`, a line edit of the toolkit, take its text from the keypad in this mode:
// NumericInput or DialNumberInput. Needs the application object.
void useKeypad(QWidget* field, toolkit::InputMode mode);

} // namespace widgets

#endif
