// The input modes of YInputField: which characters they let through, and what on-screen keyboards
// are told.
#ifndef YINPUTMODE_H
#define YINPUTMODE_H

#include <QLineEdit>
#include <QString>

class QInputMethodQueryEvent;

namespace YInputMode {

// The characters of `text` that the mode lets through.
QString filtered(int mode, const QString& text);

// Answers an input method for the row in which `field` stands, which the row asks in its stead.
void answer(QInputMethodQueryEvent& query, QLineEdit& field);

Qt::InputMethodHints hints(int mode);
// Those that go with an echo mode, which hides the text or does not.
Qt::InputMethodHints hints(QLineEdit::EchoMode echo);

} // namespace YInputMode

#endif
