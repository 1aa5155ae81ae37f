#include "toolkit/input/yinputmode.h"

#include <algorithm>

#include <QInputMethodQueryEvent>

#include <yinputfield.h>

namespace {

bool lets(int mode, QChar letter)
{
    if (mode == YInputField::NumericInput)
        return letter.isDigit();
    if (mode == YInputField::DialNumberInput)
        return (letter >= '0' && letter <= '9') || QStringView(u"+*#pwPW").contains(letter);
    return true;
}

} // namespace

QString YInputMode::filtered(int mode, const QString& text)
{
    QString kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [mode](QChar letter) { return lets(mode, letter); });
    return kept;
}

void YInputMode::answer(QInputMethodQueryEvent& query, QLineEdit& field)
{
    static_cast<QObject&>(field).event(&query);
    // The field has answered in its own coordinates.
    for (const Qt::InputMethodQuery what :
         {Qt::ImCursorRectangle, Qt::ImAnchorRectangle, Qt::ImInputItemClipRectangle})
        if (query.queries() & what)
            query.setValue(what, query.value(what).toRectF().translated(field.pos()));
}

Qt::InputMethodHints YInputMode::hints(int mode)
{
    switch (mode) {
    case YInputField::NumericInput:
        return Qt::ImhDigitsOnly;
    case YInputField::DialNumberInput:
        return Qt::ImhDialableCharactersOnly;
    case YInputField::PasswordInput:
        return Qt::ImhSensitiveData | Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText;
    }
    return Qt::ImhNone;
}

Qt::InputMethodHints YInputMode::hints(QLineEdit::EchoMode echo)
{
    return echo == QLineEdit::Normal ? Qt::InputMethodHints(Qt::ImhNone)
                                     : Qt::ImhHiddenText | hints(YInputField::PasswordInput);
}
