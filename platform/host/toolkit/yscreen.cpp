#include "yscreen.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <QApplication>
#include <QCloseEvent>
#include <QHideEvent>
#include <QPainter>
#include <QPointer>

#include "toolkit/look/ydress.h"
#include "toolkit/look/ytheme.h"
#include "toolkit/theme/ychoice.h"
#include "toolkit/ybody.h"
#include "yenvironment.h"

namespace {

YScreen* theScreen = nullptr;

bool applicationEnds = false;

// Dims what lies below a modal popup and takes the finger's input for it.
class Shade : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter(this).fillRect(rect(), YTheme::current().shade);
    }
    void mousePressEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent*) override {}
    void mouseMoveEvent(QMouseEvent*) override {}
    void wheelEvent(QWheelEvent* event) override { event->accept(); }
};

// Sits among the children of a layer's owner, so that the layer goes with them.
class Anchor : public QObject
{
public:
    Anchor(QObject* owner, QWidget* layer) : QObject(owner), m_held(layer) {}
    ~Anchor() override { delete take(); }
    // False when the anchor itself is the one who deletes the layer.
    bool release() { return take() != nullptr; }

private:
    QWidget* take()
    {
        QWidget* layer = m_held;
        m_held = nullptr;
        return layer;
    }

    // Where the screen has gone before the layer, nobody releases the anchor.
    QPointer<QWidget> m_held;
};

// What a user does first; that a key or a finger goes up again is never held back.
bool byUser(const QEvent& event)
{
    switch (static_cast<int>(event.type())) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
        return true;
    default:
        return false;
    }
}

} // namespace

struct YScreen::Layer
{
    QWidget* widget;
    Kind kind;
    bool modal;
    QPointer<Anchor> anchor;
};

YScreen* YScreen::instance()
{
    if (!theScreen) {
        theScreen = new YScreen;
        qAddPostRoutine(end);
    }
    return theScreen;
}

// A body goes with its screen.
void YScreen::end()
{
    applicationEnds = true;
    delete (theScreen->m_body ? theScreen->m_body.data() : theScreen);
    applicationEnds = false;
}

YScreen::YScreen() : m_shade(new Shade(this))
{
    YDress::wear(this);
    setFixedSize(YEnvironment::screenSize());
    m_size = size();
    setWindowTitle(QCoreApplication::applicationName());
    m_shade->hide();
    qApp->installEventFilter(this);
    connect(qApp, SIGNAL(focusChanged(QWidget*, QWidget*)), this,
            SLOT(keepFocus(QWidget*, QWidget*)));
}

YScreen::~YScreen()
{
    // Whoever waits for a layer in a loop of its own is to hear that it goes.
    if (!applicationEnds)
        closeLayers();
    qRemovePostRoutine(end);
    theScreen = nullptr;
    qApp->removeEventFilter(this);
    m_stack.clear();
    for (Layer* layer : m_layers) {
        layer->widget->removeEventFilter(this);
        layer->widget->setParent(nullptr);
        delete layer;
    }
}

void YScreen::addLayer(QWidget* layer, QWidget* owner, Kind kind, bool modal)
{
    layer->setParent(this);
    layer->hide();
    auto entry = std::make_unique<Layer>(Layer{layer, kind, modal, nullptr});
    if (owner && owner != this)
        entry->anchor = new Anchor(owner, layer);
    layer->installEventFilter(this);
    // The last step that may fail: what is on the list is a whole layer.
    m_layers.push_back(entry.get());
    entry.release();
}

void YScreen::removeLayer(QWidget* layer)
{
    if (theScreen)
        theScreen->forget(layer);
}

void YScreen::forget(QWidget* widget)
{
    Layer* layer = find(widget);
    if (!layer)
        return;
    widget->removeEventFilter(this);
    hidden(layer);
    m_layers.erase(std::find(m_layers.begin(), m_layers.end(), layer));
    if (layer->anchor && layer->anchor->release())
        delete layer->anchor;
    delete layer;
}

QWidget* YScreen::activeLayer() const
{
    return m_stack.empty() ? nullptr : m_stack.back()->widget;
}

bool YScreen::walkFocus(QWidget* layer, bool next)
{
    QWidget* start = layer->focusWidget() ? layer->focusWidget() : layer;
    QWidget* at = start;
    do {
        at = next ? at->nextInFocusChain() : at->previousInFocusChain();
        if (at != layer && layer->isAncestorOf(at) && at->isEnabled() && at->isVisible() &&
            (at->focusPolicy() & Qt::TabFocus)) {
            at->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    } while (at != start);
    return false;
}

// A widget below the active layer may be given the focus for later; it hears of it only when its
// layer is active again.
bool YScreen::isBelowActive(const QWidget* widget) const
{
    const QWidget* active = activeLayer();
    return widget && active && isAncestorOf(widget) && widget != active &&
           !active->isAncestorOf(widget);
}

bool YScreen::eventFilter(QObject* watched, QEvent* event)
{
    if (blocked(watched, *event)) {
        if (event->type() == QEvent::MouseButtonPress)
            window()->activateWindow();
        return true;
    }
    switch (static_cast<int>(event->type())) {
    case QEvent::ShowToParent:
        if (Layer* layer = find(watched))
            shown(layer);
        break;
    case QEvent::HideToParent:
        if (Layer* layer = find(watched))
            hidden(layer);
        break;
    case QEvent::FocusIn:
        return isBelowActive(qobject_cast<QWidget*>(watched));
    default:
        break;
    }
    return false;
}

// A modal popup has the program's other windows to itself, too, but for a modal dialog that was
// opened above it and for the windows that the widget around the screen belongs to.
bool YScreen::blocked(const QObject* watched, const QEvent& event) const
{
    if (!m_isModal || !isVisible() || !byUser(event) || !watched->isWidgetType())
        return false;
    const QWidget* own = window();
    const QWidget* other = static_cast<const QWidget*>(watched)->window();
    const QWidget* dialog = QApplication::activeModalWidget();
    return other != own && (!dialog || dialog == own) && !QApplication::activePopupWidget();
}

void YScreen::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), YTheme::current().background);
}

void YScreen::closeEvent(QCloseEvent* event)
{
    closeLayers();
    event->accept();
}

// Nobody can answer what lies on a screen that the program has hidden, by itself or with the window
// around it. One that has only been given another place is shown again by then, and a window that
// the user has put aside is not hidden.
void YScreen::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous() && !m_stack.empty())
        QMetaObject::invokeMethod(this, "closeIfHidden", Qt::QueuedConnection);
}

void YScreen::closeIfHidden()
{
    if (!isVisible())
        closeLayers();
}

// Closing is how a desktop says no to everything that is on the screen.
void YScreen::closeLayers()
{
    QPointer<YScreen> self(this);
    while (self && !m_stack.empty()) {
        QPointer<QWidget> top(m_stack.back()->widget);
        top->close();
        if (self && top && activeLayer() == top)
            top->hide();
    }
}

// A window that is shown first is told of its size, which is none other for what lies on it.
void YScreen::resizeEvent(QResizeEvent*)
{
    m_shade->setGeometry(rect());
    YChoice::setScreen(size());
    const QSize before = std::exchange(m_size, size());
    if (before != size())
        emit resized(before);
}

void YScreen::keepFocus(QWidget*, QWidget* now)
{
    QWidget* active = activeLayer();
    if (!now || !active || !isAncestorOf(now) || now == active || active->isAncestorOf(now))
        return;
    focusActive();
}

void YScreen::closeWhenEmpty()
{
    if (!m_stack.empty() || !isWindow())
        return;
    hide();
    // A platform without a window manager still takes a hidden window for the active one; with a
    // new window the focus starts afresh. A hidden screen needs no window's memory either.
    destroy();
}

YScreen::Layer* YScreen::find(const QObject* widget) const
{
    const auto found = std::find_if(m_layers.begin(), m_layers.end(), [widget](const Layer* layer) {
        return layer->widget == widget;
    });
    return found == m_layers.end() ? nullptr : *found;
}

void YScreen::shown(Layer* layer)
{
    m_stack.erase(std::remove(m_stack.begin(), m_stack.end(), layer), m_stack.end());
    auto place = m_stack.end();
    if (layer->kind == Kind::Page)
        place = std::find_if(m_stack.begin(), m_stack.end(),
                             [](const Layer* other) { return other->kind == Kind::Popup; });
    m_stack.insert(place, layer);
    restack();
    open();
    focusActive();
}

// A screen in a widget of the program's own is opened by the program.
void YScreen::open()
{
    if (isWindow() && !m_bodyIsAskedFor) {
        m_bodyIsAskedFor = true;
        m_body = YBody::around(this);
    }
    QWidget* top = isWindow() ? this : m_body.data();
    if (!top || top->isVisible())
        return;
    // A modal dialog blocks every window that is opened later and not modal itself.
    top->setWindowModality(QApplication::activeModalWidget() ? Qt::ApplicationModal : Qt::NonModal);
    top->show();
    top->activateWindow();
}

void YScreen::hidden(Layer* layer)
{
    const auto found = std::find(m_stack.begin(), m_stack.end(), layer);
    if (found == m_stack.end())
        return;
    m_stack.erase(found);
    restack();
    focusActive();
    // One dialog often follows another at once, so that the window waits for the next pass of the
    // event loop before it goes.
    if (m_stack.empty())
        QMetaObject::invokeMethod(this, "closeWhenEmpty", Qt::QueuedConnection);
}

void YScreen::restack()
{
    const Layer* topModal = nullptr;
    for (const Layer* layer : m_stack) {
        layer->widget->raise();
        if (layer->modal && layer->kind == Kind::Popup)
            topModal = layer;
    }
    m_isModal = topModal;
    m_shade->setVisible(m_isModal);
    if (topModal)
        m_shade->stackUnder(topModal->widget);
}

void YScreen::focusActive()
{
    QWidget* active = activeLayer();
    if (!active)
        return;
    QWidget* last = active->focusWidget();
    if (last && last != active && last->isVisible() && last->isEnabled())
        last->setFocus();
    else if (!walkFocus(active, true))
        active->setFocus();
}
