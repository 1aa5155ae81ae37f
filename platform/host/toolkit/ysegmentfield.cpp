#include <ysegmentfield.h>

#include <algorithm>
#include <utility>
#include <vector>

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>

#include <yinputfield.h>
#include <ylineedit.h>

#include "toolkit/accessible/ytell.h"
#include "toolkit/input/ykeypad.h"
#include "toolkit/look/ydress.h"
#include "toolkit/look/yrowlook.h"
#include "toolkit/look/ytheme.h"

namespace {

constexpr int mostSegments = 16;

// Beside the separator.
int separatorPadding()
{
    return YTheme::current().segmentGap;
}

constexpr int unlimited = 32767;

bool isFull(const YLineEdit& segment)
{
    return segment.maxLength() < unlimited && segment.text().size() >= segment.maxLength() &&
           segment.cursorPosition() == segment.text().size();
}

} // namespace

struct YSegmentField::Private
{
    std::vector<YLineEdit*> segments;
    QString separator = QStringLiteral(".");
    YRowLook look;
    int widgetClass = 0;
    // The segment to which a full one has handed over, until the next key; -1 for none.
    int handedOver = -1;
    bool enabled = true;

    int count() const { return static_cast<int>(segments.size()); }

    YLineEdit* at(int index) const
    {
        return index >= 0 && index < count() ? segments[static_cast<std::size_t>(index)] : nullptr;
    }

    int indexOf(const QObject* segment) const
    {
        const auto found = std::find(segments.begin(), segments.end(), segment);
        return found == segments.end() ? -1 : static_cast<int>(found - segments.begin());
    }

    int separatorWidth(const QFontMetrics& metrics) const
    {
        return metrics.horizontalAdvance(separator) + 2 * separatorPadding();
    }

    int contentsWidth(const QFontMetrics& metrics) const
    {
        int width = std::max(0, count() - 1) * separatorWidth(metrics);
        for (const YLineEdit* segment : segments)
            width += segment->sizeHint().width();
        return width;
    }
};

YSegmentField::YSegmentField(QWidget* parent, const char* name, YWidgetFlags /*flags*/,
                             int widgetClassId)
    : QWidget(parent), d(new Private)
{
    if (name)
        setObjectName(QString::fromUtf8(name));
    YDress::wear(this);
    d->widgetClass = widgetClassId;
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

YSegmentField::~YSegmentField() = default;

void YSegmentField::setNumSegments(int count)
{
    const int wanted = std::clamp(count, 0, mostSegments);
    while (d->count() > wanted) {
        delete d->segments.back();
        d->segments.pop_back();
    }
    while (d->count() < wanted)
        addSegment();
    setFocusProxy(d->at(0));
    updateGeometry();
    layoutSegments();
    update();
}

int YSegmentField::numSegments() const
{
    return d->count();
}

void YSegmentField::setSeparatorString(const QString& separator)
{
    d->separator = separator;
    updateGeometry();
    layoutSegments();
    update();
}

QString YSegmentField::separatorString() const
{
    return d->separator;
}

YLineEdit* YSegmentField::getField(int index) const
{
    return d->at(index);
}

void YSegmentField::setLabel(const QString& label)
{
    d->look.setLabel(label);
    setAccessibleName(label);
    updateGeometry();
    layoutSegments();
    update();
}

QString YSegmentField::label() const
{
    return d->look.label();
}

bool YSegmentField::isYEnabled() const
{
    return d->enabled;
}

QSize YSegmentField::sizeHint() const
{
    const int around = width() - d->look.boxR(size()).width();
    const int wide = d->contentsWidth(fontMetrics()) + around;
    return QSize(wide, heightForWidth(wide));
}

QSize YSegmentField::minimumSizeHint() const
{
    return QSize(0, YRowLook::boxHeight());
}

int YSegmentField::heightForWidth(int width) const
{
    return d->look.heightForWidth(width);
}

bool YSegmentField::eventFilter(QObject* watched, QEvent* event)
{
    const int index = d->indexOf(watched);
    if (index < 0)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<int>(event->type())) {
    case QEvent::KeyPress:
        return d->at(index)->isYEnabled() && crossKey(index, *static_cast<QKeyEvent*>(event));
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        update();
        break;
    case QEvent::LayoutRequest:
        layoutSegments();
        break;
    }
    return false;
}

void YSegmentField::setEnabled(bool enabled)
{
    if (enabled == d->enabled)
        return;
    d->enabled = enabled;
    for (YLineEdit* segment : d->segments)
        segment->setEnabled(enabled);
    update();
    YTell::enabled(this);
}

void YSegmentField::paintEvent(QPaintEvent*)
{
    const YTheme& theme = YTheme::current();
    const bool focused = d->indexOf(focusWidget()) >= 0 && focusWidget()->hasFocus();
    QPainter painter(this);
    d->look.drawLabel(painter, size(), {d->enabled, focused, false});
    painter.setFont(font());
    painter.setPen(d->enabled ? theme.text : theme.disabledText);
    for (int i = 1; i < d->count(); ++i) {
        const QRect before = d->at(i - 1)->geometry();
        const QRect between(before.right() + 1, before.top(),
                            d->at(i)->geometry().left() - before.right() - 1, before.height());
        painter.drawText(between, Qt::AlignCenter | Qt::TextSingleLine, d->separator);
    }
}

void YSegmentField::resizeEvent(QResizeEvent*)
{
    layoutSegments();
}

void YSegmentField::addSegment()
{
    auto* segment = new YLineEdit(this, nullptr, d->widgetClass);
    segment->setLayoutDirection(Qt::LeftToRight);
    segment->setPreferredWidth(YTheme::current().segment);
    segment->setEnabled(d->enabled);
    segment->installEventFilter(this);
    segment->setVisible(true);
    d->segments.push_back(segment);
    connect(segment->getInputField(), &QLineEdit::textChanged, this, [this] {
        if (QAccessible::isActive())
            YTell::value(this,
                         QAccessible::queryAccessibleInterface(this)->text(QAccessible::Value));
    });
    // Only what the user types hands over: a program may fill the segments in any order.
    connect(segment->getInputField(), &QLineEdit::textEdited, this, [this, segment] {
        if (segment->hasFocus() && isFull(*segment))
            handOver(d->indexOf(segment) + 1);
    });
}

// Takes the keys with which the cursor leaves a segment for the one beside it.
bool YSegmentField::crossKey(int index, const QKeyEvent& event)
{
    const YLineEdit& segment = *d->at(index);
    const bool selected = segment.getInputField()->hasSelectedText();
    const bool atStart = !selected && segment.cursorPosition() == 0;
    const bool atEnd = !selected && segment.cursorPosition() == segment.text().size();
    const bool keypad = YKeypad::isKey(event);
    const bool plain = event.modifiers() == Qt::NoModifier || keypad;
    const bool separator =
        (!d->separator.isEmpty() && event.text() == d->separator.left(1)) ||
        (keypad && (event.key() == Qt::Key_Asterisk || event.key() == Qt::Key_NumberSign) &&
         segment.getInputField()->inputMode() == YInputField::NumericInput);

    const bool justEntered = std::exchange(d->handedOver, -1) == index;

    if (event.matches(QKeySequence::Paste))
        return paste(index);
    if (separator) {
        // The separator behind a full segment, which has handed over already.
        if (!segment.text().isEmpty() && !justEntered)
            enter(index + 1, false);
        return true;
    }
    if (plain && atStart && (event.key() == Qt::Key_Left || event.key() == Qt::Key_Backspace)) {
        enter(index - 1, true);
        return true;
    }
    if (plain && atEnd && event.key() == Qt::Key_Right) {
        enter(index + 1, false);
        return true;
    }
    return false;
}

// Spreads the clipboard's text over the segments, each of which judges its part.
bool YSegmentField::paste(int index)
{
    const QString text = QGuiApplication::clipboard()->text().trimmed();
    if (d->separator.isEmpty() || !text.contains(d->separator))
        return false;
    const QStringList parts = text.split(d->separator);
    const int last = std::min(d->count(), index + static_cast<int>(parts.size())) - 1;
    for (int i = index; i <= last; ++i) {
        d->at(i)->selectAll();
        d->at(i)->getInputField()->insert(parts[i - index]);
    }
    enter(last, true);
    return true;
}

void YSegmentField::handOver(int index)
{
    enter(index, false);
    d->handedOver = index;
}

void YSegmentField::enter(int index, bool atEnd)
{
    YLineEdit* segment = d->at(index);
    if (!segment)
        return;
    segment->setFocus(Qt::OtherFocusReason);
    if (atEnd)
        segment->setCursorPosition(static_cast<int>(segment->text().size()));
    else
        segment->selectAll();
}

// The segments have the widths that they prefer, and share what there is where that is too little.
// An address is read from left to right in every language, and stands where the form's rows begin.
void YSegmentField::layoutSegments()
{
    const QRect box = d->look.boxR(size());
    const int gap = d->separatorWidth(fontMetrics());
    const int wanted = d->contentsWidth(fontMetrics());
    const int missing = std::max(0, wanted - box.width());
    const bool turned = layoutDirection() == Qt::RightToLeft;
    int left = turned ? std::max(box.left(), box.right() + 1 - wanted) : box.left();
    for (int i = 0; i < d->count(); ++i) {
        const int share = missing * (i + 1) / d->count() - missing * i / d->count();
        const int width = std::max(0, d->at(i)->sizeHint().width() - share);
        d->at(i)->setGeometry(left, box.top(), width, box.height());
        left += width + gap;
    }
}
