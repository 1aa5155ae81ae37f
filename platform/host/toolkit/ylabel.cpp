#include <ylabel.h>

#include "toolkit/look/ywrap.h"

struct YLabel::Private
{
    bool autoResize = false;
    YWrapHeight measured;
};

YLabel::YLabel(QWidget* parent, const char* name, YWidgetFlags /*flags*/, int /*widgetClassId*/)
    : QLabel(parent), d(new Private)
{
    if (name)
        setObjectName(QString::fromUtf8(name));
    // A text from outside, such as a network's name, is a text and no markup.
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

YLabel::~YLabel() = default;

void YLabel::setAutoResize(bool enable)
{
    d->autoResize = enable;
    if (enable)
        adjustSize();
}

void YLabel::setText(const QString& text)
{
    QLabel::setText(text);
    if (d->autoResize)
        adjustSize();
}

int YLabel::heightForWidth(int width) const
{
    if (!isPlain())
        return QLabel::heightForWidth(width);
    const QMargins around = contentsMargins();
    const int room = width - around.left() - around.right();
    return around.top() + d->measured.at(font(), text(), room) + around.bottom();
}

void YLabel::paintEvent(QPaintEvent* event)
{
    if (isPlain())
        YWrap::draw(*this);
    else
        QLabel::paintEvent(event);
}

// Whether there is a text to wrap, and no picture.
bool YLabel::isPlain() const
{
    return !text().isEmpty() && textFormat() == Qt::PlainText && wordWrap();
}
