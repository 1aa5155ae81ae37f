#include <ykbmainwidget.h>

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>

#include <ysoftkey.h>

#include "toolkit/look/ytheme.h"
#include "toolkit/look/ytitle.h"
#include "yscreen.h"

struct YKbMainWidget::Private
{
    QString title;
    QWidget* content = nullptr;
    QWidget* titleBar = nullptr;
    YSoftKey* softKey = nullptr;
    int morphMode = NoMorph;

    int titleBarWidth() const { return titleBar ? titleBar->sizeHint().width() : 0; }
};

YKbMainWidget::YKbMainWidget(QWidget* parent, const char* name, YWidgetFlags /*flags*/)
    : QWidget(YScreen::instance()), d(new Private)
{
    // As in a popup: the screen must not keep a layer that is not whole.
    try {
        if (name)
            setObjectName(QString::fromUtf8(name));
        YScreen* screen = YScreen::instance();
        screen->addLayer(this, parent, YScreen::Kind::Page, false);
        setGeometry(screen->rect());
        connect(screen, &YScreen::resized, this, [this, screen] { setGeometry(screen->rect()); });
        setAutoFillBackground(true);
    } catch (...) {
        YScreen::removeLayer(this);
        throw;
    }
}

YKbMainWidget::~YKbMainWidget()
{
    YScreen::removeLayer(this);
}

void YKbMainWidget::setMorphMode(int mode)
{
    d->morphMode = mode;
}

int YKbMainWidget::morphMode() const
{
    return d->morphMode;
}

void YKbMainWidget::setMainWidgetTitle(const QString& title)
{
    d->title = title;
    setAccessibleName(title);
    update();
}

QString YKbMainWidget::mainWidgetTitle() const
{
    return d->title;
}

void YKbMainWidget::setContentWidget(QWidget* widget)
{
    adopt(d->content, widget);
    d->content = widget;
    layoutParts();
}

QWidget* YKbMainWidget::contentWidget() const
{
    return d->content;
}

void YKbMainWidget::setTitleBarWidget(QWidget* widget)
{
    adopt(d->titleBar, widget);
    d->titleBar = widget;
    layoutParts();
}

QWidget* YKbMainWidget::titleBarWidget() const
{
    return d->titleBar;
}

void YKbMainWidget::setSoftKey(YSoftKey* softKey)
{
    adopt(d->softKey, softKey);
    d->softKey = softKey;
    layoutParts();
}

YSoftKey* YKbMainWidget::softKey() const
{
    return d->softKey;
}

void YKbMainWidget::show()
{
    QWidget::show();
}

void YKbMainWidget::hide()
{
    QWidget::hide();
}

bool YKbMainWidget::event(QEvent* event)
{
    // A part with a new size hint asks for it.
    if (event->type() == QEvent::LayoutRequest)
        layoutParts();
    return QWidget::event(event);
}

void YKbMainWidget::closeEvent(QCloseEvent* event)
{
    // What a page does when it goes stands in its own hide().
    event->ignore();
    hide();
}

void YKbMainWidget::keyPressEvent(QKeyEvent* event)
{
    // No key reaches what lies below.
    event->accept();
}

void YKbMainWidget::paintEvent(QPaintEvent*)
{
    const YTheme& theme = YTheme::current();
    QPainter painter(this);
    painter.fillRect(0, 0, width(), YTheme::current().titleHeight, theme.bar);
    painter.fillRect(0, YTheme::current().titleHeight - 1, width(), 1, theme.border);
    painter.setPen(theme.text);
    YTitle::draw(painter, d->title,
                 QRect(YTheme::current().margin, 0,
                       width() - 2 * YTheme::current().margin - d->titleBarWidth(),
                       YTheme::current().titleHeight - 1));
}

void YKbMainWidget::resizeEvent(QResizeEvent*)
{
    layoutParts();
}

void YKbMainWidget::showEvent(QShowEvent*)
{
    setGeometry(YScreen::instance()->rect());
    layoutParts();
}

bool YKbMainWidget::focusNextPrevChild(bool next)
{
    YScreen::walkFocus(this, next);
    return true;
}

// Makes `widget` a part of the page in the place of another.
void YKbMainWidget::adopt(QWidget* old, QWidget* widget)
{
    if (old != widget)
        delete old;
    if (!widget)
        return;
    if (widget->parentWidget() != this)
        widget->setParent(this);
    widget->setVisible(true);
}

void YKbMainWidget::layoutParts()
{
    const int info = d->titleBarWidth();
    if (d->titleBar)
        d->titleBar->setGeometry(width() - info, 0, info, YTheme::current().titleHeight - 1);
    const int bar = d->softKey && !d->softKey->isHidden() ? YTheme::current().softKeyHeight : 0;
    if (d->softKey)
        d->softKey->setGeometry(0, height() - YTheme::current().softKeyHeight, width(),
                                YTheme::current().softKeyHeight);
    if (d->content)
        d->content->setGeometry(0, YTheme::current().titleHeight, width(),
                                height() - YTheme::current().titleHeight - bar);
    update(0, 0, width(), YTheme::current().titleHeight);
}
