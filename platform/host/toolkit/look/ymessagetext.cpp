#include "toolkit/look/ymessagetext.h"

#include <QScrollBar>

#include "toolkit/input/yfinger.h"
#include "toolkit/look/ytextlabel.h"
#include "toolkit/look/ytheme.h"

YMessageText::YMessageText(QWidget* parent) : QScrollArea(parent), label(new YTextLabel(this))
{
    label->setObjectName(QStringLiteral("text"));
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
    showBarIfNeeded();
}

QString YMessageText::text() const
{
    return label->text();
}

int YMessageText::heightFor(int width) const
{
    return label->heightForWidth(width);
}

int YMessageText::fit(int width, int most)
{
    QFont letters = YTheme::bodyFont();
    label->setFont(letters);
    while (heightFor(width) > most && letters.pixelSize() > YTheme::smallFont().pixelSize()) {
        letters.setPixelSize(letters.pixelSize() - 1);
        label->setFont(letters);
    }
    if (heightFor(width) > most)
        label->setFont(YTheme::bodyFont());
    return heightFor(width);
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

void YMessageText::resizeEvent(QResizeEvent* event)
{
    showBarIfNeeded();
    QScrollArea::resizeEvent(event);
}

// A scroll area that once had the bar keeps it when the bar itself is what makes the text too high.
void YMessageText::showBarIfNeeded()
{
    setVerticalScrollBarPolicy(heightFor(width()) > height() ? Qt::ScrollBarAlwaysOn
                                                             : Qt::ScrollBarAlwaysOff);
}
