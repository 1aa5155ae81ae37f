#include "toolkit/look/ymessagetext.h"

#include <QScrollBar>

#include "toolkit/input/yfinger.h"
#include "toolkit/look/ytextlabel.h"
#include "toolkit/look/ytheme.h"

YMessageText::YMessageText(QWidget* parent) : QScrollArea(parent), m_label(new YTextLabel(this))
{
    m_label->setObjectName(QStringLiteral("text"));
    m_label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setWidget(m_label);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    new YFinger(this);
    viewport()->setAutoFillBackground(false);
    m_label->setAutoFillBackground(false);
}

void YMessageText::setText(const QString& text)
{
    m_label->setText(text);
    showBarIfNeeded();
}

QString YMessageText::text() const
{
    return m_label->text();
}

// A frame that is dressed while it is smaller than its margins forgets them.
void YMessageText::keepMargins() const
{
    const int margin = YTheme::current().margin;
    m_label->setContentsMargins(margin, margin, margin, margin);
}

int YMessageText::heightFor(int width) const
{
    keepMargins();
    return m_label->heightForWidth(width);
}

int YMessageText::fit(int width, int most)
{
    QFont letters = YTheme::current().bodyFont();
    m_label->setFont(letters);
    while (heightFor(width) > most &&
           letters.pixelSize() > YTheme::current().smallFont().pixelSize()) {
        letters.setPixelSize(letters.pixelSize() - 1);
        m_label->setFont(letters);
    }
    if (heightFor(width) > most)
        m_label->setFont(YTheme::current().bodyFont());
    return heightFor(width);
}

bool YMessageText::scrollByKey(int key)
{
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return false;
    const int line = m_label->fontMetrics().lineSpacing();
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
