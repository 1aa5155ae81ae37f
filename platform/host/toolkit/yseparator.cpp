#include <yseparator.h>

#include <QEvent>
#include <QPainter>

#include <ylabel.h>

#include "toolkit/accessible/ytell.h"
#include "toolkit/look/yrowlook.h"
#include "toolkit/look/ytheme.h"

namespace {

QFont captionFont()
{
    QFont font = YTheme::current().smallFont();
    font.setWeight(QFont::DemiBold);
    return font;
}

} // namespace

struct YSeparator::Private
{
    YLabel* label = nullptr;
    bool enabled = true;
    bool autoResize = false;
};

YSeparator::YSeparator(QWidget* parent, const char* name, YWidgetFlags /*flags*/,
                       int /*widgetClassId*/)
    : QWidget(parent), d(new Private)
{
    if (name)
        setObjectName(QString::fromUtf8(name));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

YSeparator::~YSeparator() = default;

void YSeparator::setLabel(YLabel* label)
{
    if (label == d->label)
        return;
    delete d->label;
    d->label = label;
    if (label) {
        if (label->parentWidget() != this)
            label->setParent(this);
        label->setAutoResize(false);
        label->setFont(captionFont());
        label->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
        label->setVisible(true);
    }
    refresh();
}

YLabel* YSeparator::label() const
{
    return d->label;
}

void YSeparator::setAutoResize(bool enable)
{
    d->autoResize = enable;
    refresh();
}

bool YSeparator::isYEnabled() const
{
    return d->enabled;
}

QSize YSeparator::sizeHint() const
{
    return QSize(width(), heightForWidth(width()));
}

int YSeparator::heightForWidth(int width) const
{
    const YTheme& theme = YTheme::current();
    const int caption =
        d->label && !d->label->text().isEmpty()
            ? theme.belowSeparator + d->label->heightForWidth(width - 2 * theme.margin)
            : 0;
    return theme.aboveSeparator + caption + theme.line + theme.belowSeparator;
}

bool YSeparator::event(QEvent* event)
{
    // The caption has a new text.
    if (event->type() == QEvent::LayoutRequest)
        refresh();
    return QWidget::event(event);
}

void YSeparator::setEnabled(bool enabled)
{
    if (enabled == d->enabled)
        return;
    d->enabled = enabled;
    if (d->label)
        d->label->setEnabled(enabled);
    update();
    YTell::enabled(this);
}

void YSeparator::paintEvent(QPaintEvent*)
{
    const YTheme& theme = YTheme::current();
    QPainter painter(this);
    painter.fillRect(theme.margin, height() - theme.belowSeparator - theme.line,
                     width() - 2 * theme.margin, theme.line, theme.border);
}

void YSeparator::resizeEvent(QResizeEvent*)
{
    const YTheme& theme = YTheme::current();
    if (d->label)
        d->label->setGeometry(theme.margin, theme.aboveSeparator, width() - 2 * theme.margin,
                              height() - theme.aboveSeparator - 2 * theme.belowSeparator -
                                  theme.line);
}

void YSeparator::refresh()
{
    if (d->label) {
        d->label->setFont(captionFont());
        setAccessibleName(d->label->text());
    }
    if (d->autoResize)
        resize(width(), heightForWidth(width()));
    updateGeometry();
    update();
}
