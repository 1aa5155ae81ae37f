#include <yscrollpanel.h>

#include <algorithm>

#include <QApplication>
#include <QChildEvent>
#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>

#include "toolkit/input/yfinger.h"
#include "toolkit/look/ydress.h"
#include "toolkit/look/ytheme.h"

// The widget that is scrolled.
class YScrollContents : public QWidget
{
public:
    explicit YScrollContents(YScrollPanel* owner) : m_panel(owner) {}

protected:
    bool event(QEvent* event) override
    {
        // A child with a new size hint asks for it, and so does one that is shown or hidden.
        if (event->type() == QEvent::LayoutRequest)
            m_panel->updateContents();
        return QWidget::event(event);
    }
    void keyPressEvent(QKeyEvent* event) override { m_panel->contentsKeyPressEvent(event); }
    void childEvent(QChildEvent* event) override
    {
        if (event->removed())
            m_panel->contentsChildRemoved(event->child());
    }
    bool focusNextPrevChild(bool next) override { return m_panel->focusNextPrevChild(next); }

private:
    YScrollPanel* m_panel;
};

struct YScrollPanel::Private
{
    QScrollArea* area = nullptr;
    YFinger* finger = nullptr;
    YScrollContents* contents = nullptr;
    int wantedY = -1; // to be gone to when the panel is shown
    bool updating = false;

    QScrollBar* bar() const { return area->verticalScrollBar(); }
};

YScrollPanel::YScrollPanel(QWidget* parent, const char* name, int /*widgetClassId*/)
    : QWidget(parent), d(new Private)
{
    if (name)
        setObjectName(QString::fromUtf8(name));
    YDress::wear(this);
    d->area = new QScrollArea(this);
    d->area->setFrameShape(QFrame::NoFrame);
    d->area->setFocusPolicy(Qt::NoFocus);
    d->area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    d->contents = new YScrollContents(this);
    d->area->setWidget(d->contents);
    d->finger = new YFinger(d->area);
    d->bar()->setFocusPolicy(Qt::NoFocus);
    d->bar()->setSingleStep(YTheme::current().scrollStep);
    // The page shows beside the bar's handle.
    d->bar()->setAttribute(Qt::WA_OpaquePaintEvent, false);
    connect(d->bar(), &QScrollBar::valueChanged, this,
            [this](int value) { emit contentsMoving(0, value); });
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { followFocus(now); });
}

YScrollPanel::~YScrollPanel()
{
    // The children go with the panel; none of them is to ask it for anything now.
    delete d->area;
}

QWidget* YScrollPanel::viewport() const
{
    return d->contents;
}

int YScrollPanel::contentsX() const
{
    return 0;
}

int YScrollPanel::contentsY() const
{
    return d->wantedY >= 0 ? d->wantedY : d->bar()->value();
}

int YScrollPanel::contentsHeight() const
{
    const_cast<YScrollPanel*>(this)->updateContents();
    return d->contents->height();
}

int YScrollPanel::childX(QWidget* child) const
{
    return child && child->parentWidget() == d->contents ? child->x() : 0;
}

int YScrollPanel::childY(QWidget* child) const
{
    if (!child || child->parentWidget() != d->contents)
        return 0;
    const_cast<YScrollPanel*>(this)->updateContents();
    return child->y();
}

void YScrollPanel::setContentsPos(int /*x*/, int y)
{
    updateContents();
    d->wantedY = std::clamp(y, 0, std::max(0, d->contents->height() - visibleHeight()));
    if (isVisible())
        applyPosition();
}

void YScrollPanel::ensureChildVisible(QWidget* child)
{
    if (child && child->parentWidget() == d->contents)
        ensureRangeVisible(child->y(), child->geometry().bottom() + 1);
}

int YScrollPanel::layoutContents(int /*width*/)
{
    return d->contents->childrenRect().bottom() + 1;
}

void YScrollPanel::contentsKeyPressEvent(QKeyEvent* event)
{
    const int before = d->bar()->value();
    if (event->key() == Qt::Key_Down)
        d->bar()->triggerAction(QScrollBar::SliderSingleStepAdd);
    else if (event->key() == Qt::Key_Up)
        d->bar()->triggerAction(QScrollBar::SliderSingleStepSub);
    event->setAccepted(d->bar()->value() != before);
}

void YScrollPanel::contentsChildRemoved(QObject* /*child*/) {}

int YScrollPanel::visibleHeight() const
{
    return height();
}

void YScrollPanel::ensureRangeVisible(int top, int bottom)
{
    const int now = contentsY();
    if (top < now || bottom - top > visibleHeight())
        setContentsPos(0, top);
    else if (bottom > now + visibleHeight())
        setContentsPos(0, bottom - visibleHeight());
}

// The bar takes its room only where it is needed, which may in turn make the contents higher.
void YScrollPanel::updateContents()
{
    if (d->updating || width() <= 0)
        return;
    d->updating = true;
    int room = width();
    int wanted = layoutContents(room);
    if (wanted > height()) {
        room -= d->bar()->sizeHint().width();
        wanted = layoutContents(room);
    }
    d->contents->resize(room, wanted);
    d->updating = false;
}

void YScrollPanel::resizeEvent(QResizeEvent*)
{
    d->area->setGeometry(rect());
    updateContents();
    QWidget* focused = d->contents->focusWidget();
    if (focused && isVisible())
        followFocus(focused);
}

void YScrollPanel::showEvent(QShowEvent*)
{
    updateContents();
    applyPosition();
}

void YScrollPanel::hideEvent(QHideEvent*)
{
    d->finger->stop();
    d->wantedY = d->bar()->value();
}

void YScrollPanel::applyPosition()
{
    if (d->wantedY < 0)
        return;
    const int target = d->wantedY;
    d->wantedY = -1;
    // A flick that is under way would take the contents elsewhere.
    d->finger->stop();
    d->bar()->setValue(target);
}

// A row that is touched stays below the finger; it comes in sight whole when it is let go.
void YScrollPanel::followFocus(QWidget* now)
{
    if (QApplication::mouseButtons() != Qt::NoButton)
        return;
    if (!now || now == d->contents || !isVisible() || !d->contents->isAncestorOf(now))
        return;
    QWidget* child = now;
    while (child->parentWidget() != d->contents)
        child = child->parentWidget();
    ensureChildVisible(child);
}
