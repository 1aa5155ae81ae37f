#include "ymessagetext.h"

#include <QLabel>
#include <QScrollBar>

#include "yfinger.h"
#include "ytheme.h"

YMessageText::YMessageText(QWidget* parent) : QScrollArea(parent), label(new QLabel)
{
    label->setObjectName(QStringLiteral("text"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setContentsMargins(YTheme::margin, YTheme::margin, YTheme::margin, YTheme::margin);
    setWidget(label);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    new YFinger(this);
    viewport()->setAutoFillBackground(false);
    label->setAutoFillBackground(false);
}

void YMessageText::setText(const QString& text)
{
    label->setText(text);
}

QString YMessageText::text() const
{
    return label->text();
}

int YMessageText::heightFor(int width) const
{
    return label->heightForWidth(width);
}

bool YMessageText::scrollByKey(int key)
{
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return false;
    const int line = label->fontMetrics().lineSpacing();
    QScrollBar* bar = verticalScrollBar();
    bar->setValue(bar->value() + (key == Qt::Key_Down ? line : -line));
    return true;
}
