#include <yseparator.h>

#include <QEvent>
#include <QPainter>

#include <ylabel.h>

#include "toolkit/accessible/ytell.h"
#include "toolkit/look/yrowlook.h"
#include "toolkit/look/ytheme.h"

namespace {

constexpr int above = 9;
constexpr int below = 3;
constexpr int lineHeight = 1;

QFont captionFont()
{
    QFont font = YTheme::smallFont();
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
    const int caption = d->label && !d->label->text().isEmpty()
                            ? below + d->label->heightForWidth(width - 2 * YTheme::margin)
                            : 0;
    return above + caption + lineHeight + below;
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
    QPainter painter(this);
    painter.fillRect(YTheme::margin, height() - below - lineHeight, width() - 2 * YTheme::margin,
                     lineHeight, YTheme::current().border);
}

void YSeparator::resizeEvent(QResizeEvent*)
{
    if (d->label)
        d->label->setGeometry(YTheme::margin, above, width() - 2 * YTheme::margin,
                              height() - above - 2 * below - lineHeight);
}

void YSeparator::refresh()
{
    if (d->label)
        setAccessibleName(d->label->text());
    if (d->autoResize)
        resize(width(), heightForWidth(width()));
    updateGeometry();
    update();
}
