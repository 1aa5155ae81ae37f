#include <yinputfield.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

#include "toolkit/input/yinputmode.h"
#include "toolkit/input/ykeypad.h"
#include "toolkit/input/ymultitap.h"
#include "toolkit/look/yrowlook.h"

struct YInputField::Private
{
    int mode = TextInput;
    YMultiTap* keypad = nullptr; // made with the first key that needs it

    void commit() const
    {
        if (keypad)
            keypad->commit();
    }

    YMultiTap* ensureKeypad(YInputField* field)
    {
        if (!keypad) {
            keypad = new YMultiTap(field);
            QObject::connect(keypad, &YMultiTap::modeChanged, field,
                             &YInputField::keypadTextChanged);
        }
        return keypad;
    }
};

YInputField::YInputField(QWidget* parent) : QLineEdit(parent), d(new Private)
{
    setFrame(false);
    setFocusPolicy(Qt::NoFocus);
    setFocusProxy(parent);
    // A phone has no second mouse button, and nothing is dragged out of its fields.
    setContextMenuPolicy(Qt::NoContextMenu);
    setDragEnabled(false);
    setAcceptDrops(false);
}

YInputField::~YInputField() = default;

void YInputField::setInputMode(int mode)
{
    d->mode = mode;
    d->commit();
    setInputMethodHints(YInputMode::hints(mode) | YInputMode::hints(echoMode()));
    emit keypadTextChanged();
}

int YInputField::inputMode() const
{
    return d->mode;
}

QString YInputField::keypadText() const
{
    return YKeypad::isPresent() && !isReadOnly()
               ? d->ensureKeypad(const_cast<YInputField*>(this))->modeText()
               : QString();
}

void YInputField::keyPressEvent(QKeyEvent* event)
{
    if (YKeypad::isKey(*event) && !isReadOnly() && d->ensureKeypad(this)->press(*event))
        return;
    d->commit();
    if (pasteKey(event))
        return;
    const QString typed = event->text();
    if (!typed.isEmpty() && typed[0].isPrint() && YInputMode::filtered(d->mode, typed) != typed)
        return;
    QLineEdit::keyPressEvent(event);
}

void YInputField::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    YRowLook::reveal(this);
}

void YInputField::inputMethodEvent(QInputMethodEvent* event)
{
    const QString kept = YInputMode::filtered(d->mode, event->commitString());
    if (kept == event->commitString()) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent filtered(YInputMode::filtered(d->mode, event->preeditString()),
                               event->attributes());
    filtered.setCommitString(kept, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&filtered);
}

void YInputField::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    emit keypadTextChanged();
}

void YInputField::focusOutEvent(QFocusEvent* event)
{
    d->commit();
    QLineEdit::focusOutEvent(event);
}

// Pastes what the input mode lets through; false when the key is another one.
bool YInputField::pasteKey(QKeyEvent* event)
{
    if (d->mode == TextInput || isReadOnly() || !event->matches(QKeySequence::Paste))
        return false;
    insert(YInputMode::filtered(d->mode, QGuiApplication::clipboard()->text()));
    return true;
}
