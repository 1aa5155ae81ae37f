// The part of a line edit in which the text stands.
#ifndef YINPUTFIELD_H
#define YINPUTFIELD_H

#include <memory>

#include <qlineedit.h>

#include "platform_export.h"

#include "ykeywords_begin.h"

class QFocusEvent;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;

// Belongs to a YLineEdit, which has the focus in its place and passes the keys on.
//
// On the phone's keypad, whose digits come as keys of a keypad, a key pressed several times within
// a second gives its letters one after the other, and '#' goes from small letters to capitals and
// to digits. A key that is held gives its digit.
class VORN_PLATFORM_API YInputField : public QLineEdit
{
    Q_OBJECT

public:
    // What typing, pasting and input methods give; characters of other kinds are dropped. Texts
    // that the program sets are not touched.
    enum InputMode {
        TextInput = 0,
        // Digits, '+', '*', '#', and the pauses 'p' and 'w'.
        DialNumberInput = 4,
        NumericInput = 6,
        // Every character, as it is typed: no capital at the start, nothing suggested or learnt.
        PasswordInput = 8
    };

    // For YLineEdit, which is `parent` and is given the keys.
    YInputField(QWidget* parent);
    ~YInputField();

    // An InputMode; other numbers count as TextInput.
    void setInputMode(int mode);
    int inputMode() const;

    // What the keypad gives at present, to be shown to the user: "abc", "ABC" or "123", or the
    // letters of the key with which one is being chosen, such as "abc2". Empty while there is no
    // keypad.
    QString keypadText() const;

signals:
    // What keypadText() gives has changed.
    void keypadTextChanged();

protected:
    void keyPressEvent(QKeyEvent* event);
    void mouseReleaseEvent(QMouseEvent* event);
    void inputMethodEvent(QInputMethodEvent* event);
    void focusInEvent(QFocusEvent* event);
    void focusOutEvent(QFocusEvent* event);

private:
    bool pasteKey(QKeyEvent* event);

    struct Private;
    std::unique_ptr<Private> d;
};

#include "ykeywords_end.h"

#endif
