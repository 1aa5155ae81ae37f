#include <ylineedit.h>

#include <algorithm>

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodQueryEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include <yinputfield.h>
#include <yskinservice.h>

#include "toolkit/accessible/ytell.h"
#include "toolkit/input/yinputmode.h"
#include "toolkit/look/ydress.h"
#include "toolkit/look/yeye.h"
#include "toolkit/look/yrowlook.h"
#include "toolkit/look/ytheme.h"

namespace {

constexpr int fieldMargin = 2;

} // namespace

struct YLineEdit::Private
{
    YInputField* field = nullptr;
    YRowLook look;
    QLineEdit::EchoMode echo = QLineEdit::Normal;
    int preferredWidth = 0;
    bool enabled = true;
    bool readOnly = false;
    YEye eye;
    bool pressed = false;
    QString told; // what screen readers know of the text

    bool hasEye() const { return echo == QLineEdit::Password && enabled; }

    // As in a row that is read from left to right.
    QRect eyeR(const QSize& row) const { return YEye::placeIn(look.boxR(row), Qt::LeftToRight); }

    // Where the room for the text ends.
    int rightEdge(const QSize& row) const
    {
        return (hasEye() ? eyeR(row).left() : look.boxR(row).right() + 1);
    }
};

YLineEdit::YLineEdit(QWidget* parent, const char* name, int widgetClassId)
    : QWidget(parent), d(new Private)
{
    if (name)
        setObjectName(QString::fromUtf8(name));
    YDress::wear(this);
    setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    d->look.setCompact(widgetClassId == YSkinService::SegmentField);
    d->field = new YInputField(this);
    connect(d->field, &QLineEdit::textChanged, this, [this] { tellText(); });
    connect(d->field, &QLineEdit::cursorPositionChanged, this, [this](int, int position) {
        QAccessibleTextCursorEvent event(this, position);
        QAccessible::updateAccessibility(&event);
    });
    connect(d->field, SIGNAL(textChanged(QString)), this, SIGNAL(textChanged(QString)));
    connect(d->field, &YInputField::keypadTextChanged, this, [this] { refresh(); });
    refresh();
}

YLineEdit::~YLineEdit() = default;

void YLineEdit::setLabel(const QString& label)
{
    d->look.setLabel(label);
    setAccessibleName(label);
    updateGeometry();
    update();
}

QString YLineEdit::label() const
{
    return d->look.label();
}

QString YLineEdit::text() const
{
    return d->field->text();
}

void YLineEdit::setMaxLength(int length)
{
    d->field->setMaxLength(length);
}

int YLineEdit::maxLength() const
{
    return d->field->maxLength();
}

void YLineEdit::setValidator(const QValidator* validator)
{
    d->field->setValidator(validator);
}

const QValidator* YLineEdit::validator() const
{
    return d->field->validator();
}

void YLineEdit::setEchoMode(QLineEdit::EchoMode mode)
{
    QAccessible::State changed;
    changed.passwordEdit = (mode == QLineEdit::Normal) != (d->echo == QLineEdit::Normal);
    d->echo = mode;
    reveal(false);
    refresh();
    if (changed.passwordEdit)
        YTell::state(this, changed);
}

QLineEdit::EchoMode YLineEdit::echoMode() const
{
    return d->echo;
}

void YLineEdit::setReadOnly(bool readOnly)
{
    if (readOnly == d->readOnly)
        return;
    d->readOnly = readOnly;
    refresh();
    QAccessible::State changed;
    changed.readOnly = true;
    changed.editable = d->enabled;
    YTell::state(this, changed);
}

bool YLineEdit::isReadOnly() const
{
    return d->readOnly;
}

void YLineEdit::setAlignment(int alignment)
{
    const Qt::Alignment sideways = Qt::Alignment(alignment) & Qt::AlignHorizontal_Mask;
    d->field->setAlignment(sideways | Qt::AlignVCenter);
}

int YLineEdit::alignment() const
{
    return static_cast<int>(d->field->alignment());
}

void YLineEdit::setPreferredWidth(int width)
{
    d->preferredWidth = width;
    updateGeometry();
}

int YLineEdit::cursorPosition() const
{
    return d->field->cursorPosition();
}

void YLineEdit::setCursorPosition(int position)
{
    d->field->setCursorPosition(position);
}

YInputField* YLineEdit::getInputField() const
{
    return d->field;
}

bool YLineEdit::isYEnabled() const
{
    return d->enabled;
}

QSize YLineEdit::sizeHint() const
{
    const int width = d->preferredWidth > 0 ? d->preferredWidth : YTheme::current().field;
    return QSize(width, heightForWidth(width));
}

QSize YLineEdit::minimumSizeHint() const
{
    return QSize(d->preferredWidth, YRowLook::boxHeight());
}

int YLineEdit::heightForWidth(int width) const
{
    return d->look.heightForWidth(width);
}

bool YLineEdit::event(QEvent* event)
{
    switch (static_cast<int>(event->type())) {
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
        return d->enabled && d->field->event(event);
    case QEvent::InputMethodQuery: {
        auto* query = static_cast<QInputMethodQueryEvent*>(event);
        YInputMode::answer(*query, *d->field);
        query->setValue(Qt::ImEnabled, d->enabled && !d->readOnly);
        return true;
    }
    }
    return QWidget::event(event);
}

void YLineEdit::setEnabled(bool enabled)
{
    if (enabled == d->enabled)
        return;
    d->enabled = enabled;
    reveal(false);
    refresh();
    QAccessible::State changed;
    changed.disabled = true;
    changed.editable = !d->readOnly;
    YTell::state(this, changed);
}

void YLineEdit::setText(const QString& text)
{
    d->field->setText(text);
}

void YLineEdit::clear()
{
    d->field->clear();
}

void YLineEdit::selectAll()
{
    d->field->selectAll();
}

void YLineEdit::keyPressEvent(QKeyEvent* event)
{
    YRowLook::reveal(this);
    if (!d->enabled) {
        // Return acts on this row and not on the next one, even when it does nothing.
        event->setAccepted(YEye::isReturn(event->key()));
        return;
    }
    event->accept();
    if (!eyeKey(event))
        d->field->event(event);
}

void YLineEdit::keyReleaseEvent(QKeyEvent* event)
{
    if (d->enabled)
        d->field->event(event);
    else
        event->ignore();
}

void YLineEdit::focusInEvent(QFocusEvent* event)
{
    // A text that is gone to with the keys is gone on with, not typed over.
    QFocusEvent entered(event->type(), event->reason() == Qt::MouseFocusReason
                                           ? Qt::MouseFocusReason
                                           : Qt::OtherFocusReason);
    if (d->enabled)
        d->field->event(&entered);
    refresh();
}

void YLineEdit::focusOutEvent(QFocusEvent* event)
{
    d->field->event(event);
    reveal(false);
    refresh();
}

void YLineEdit::mousePressEvent(QMouseEvent*)
{
    d->pressed = true;
}

void YLineEdit::mouseReleaseEvent(QMouseEvent* event)
{
    const bool tapped = d->pressed && rect().contains(event->position().toPoint());
    d->pressed = false;
    if (!tapped)
        return;
    YRowLook::reveal(this);
    if (!d->enabled) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(this, &key);
        return;
    }
    const QPoint touched = event->position().toPoint();
    if (d->hasEye() && YEye::placeIn(d->look.boxR(size()), layoutDirection()).contains(touched))
        reveal(!d->eye.isOpen);
    else
        d->field->end(false);
    if (!d->readOnly) // a keyboard on the screen that was put away comes back
        QGuiApplication::inputMethod()->show();
    update();
}

void YLineEdit::hideEvent(QHideEvent*)
{
    reveal(false);
}

void YLineEdit::paintEvent(QPaintEvent*)
{
    // A text that can only be read lies in a field of another colour.
    const YRowLook::State state{d->enabled, hasFocus(), d->enabled && d->readOnly};
    QPainter painter(this);
    d->look.drawLabel(painter, size(), state);
    d->look.drawBox(painter, size(), state);
    const QRect note(0, d->field->y(), d->rightEdge(size()), d->field->height());
    YRowLook::drawNote(painter, QStyle::visualRect(layoutDirection(), rect(), note), keypadNote());
    if (d->hasEye())
        d->eye.draw(painter, d->look.boxR(size()));
}

void YLineEdit::resizeEvent(QResizeEvent*)
{
    layoutField();
}

// Shows the password or hides it; once hidden, the cursor is in the text again.
void YLineEdit::reveal(bool show)
{
    d->eye.hasCursor = d->eye.hasCursor && show;
    d->eye.isOpen = show;
    d->field->setEchoMode(show ? QLineEdit::Normal : d->echo);
    // The field's own echo mode is but what the user sees; input methods are not to learn a
    // password that is shown.
    d->field->setInputMethodHints(YInputMode::hints(d->field->inputMode()) |
                                  YInputMode::hints(d->echo));
    tellText();
}

// Screen readers learn what is seen: of a hidden password its length.
void YLineEdit::tellText()
{
    const QString shown = d->field->displayText();
    if (shown == d->told)
        return;
    QAccessibleTextUpdateEvent event(this, 0, d->told, shown);
    d->told = shown;
    QAccessible::updateAccessibility(&event);
}

// What the keypad gives, while it types into this row and there is room to say so.
QString YLineEdit::keypadNote() const
{
    return hasFocus() && isYEnabled() && !d->look.isCompact() ? d->field->keypadText() : QString();
}

void YLineEdit::layoutField()
{
    const YTheme& theme = YTheme::current();
    if (d->look.isCompact() && d->field->font() != theme.segmentFont())
        d->field->setFont(theme.segmentFont());
    const int note = YRowLook::noteWidth(keypadNote());
    QRect place = d->look.textR(size());
    place.setRight(std::min(place.right(), d->rightEdge(size()) - note - 1));
    // Qt's line edit has a margin of its own.
    d->field->setGeometry(QStyle::visualRect(layoutDirection(), rect(),
                                             place.adjusted(-fieldMargin, 0, fieldMargin, 0)));
}

// Keys at the eye, and the one that goes there; false when the text is to have the key.
bool YLineEdit::eyeKey(QKeyEvent* event)
{
    if (!d->hasEye())
        return false;
    const YEye::Taken taken = d->eye.take(*event, cursorPosition() == text().size());
    if (taken.toggles)
        reveal(!d->eye.isOpen);
    d->eye.hasCursor = taken.stays;
    update();
    return taken.key;
}

// Makes the field look and act as the row's settings say.
void YLineEdit::refresh()
{
    d->field->setReadOnly(d->readOnly);
    d->field->setEnabled(d->enabled);
    // A tap on a row that is switched off is the row's own.
    d->field->setAttribute(Qt::WA_TransparentForMouseEvents, !d->enabled);
    setAttribute(Qt::WA_InputMethodEnabled, d->enabled && !d->readOnly);
    layoutField();
    update();
}
