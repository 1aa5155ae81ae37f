// The phone's keypad as the way in which a field takes its text.
#ifndef WIDGETS_KEYPADINPUT_H
#define WIDGETS_KEYPADINPUT_H

class QWidget;

namespace widgets {

// The keypad's modes, as the toolkit numbers them.
enum KeypadMode { KeypadDialNumbers = 4, KeypadNumbers = 6 };

// Has `field`, a line edit of the toolkit, take its text from the keypad in this mode. Needs the
// application object.
void useKeypad(QWidget* field, KeypadMode mode);

} // namespace widgets

#endif
