#include "screenbody.h"

#include <QGuiApplication>
#include <QIcon>
#include <QInputMethod>
#include <QScreen>

namespace phone {

namespace {

// A display with less room than this is of no use; then the keyboard may cover a part of it.
constexpr int leastHeight = 120;

} // namespace

ScreenBody::ScreenBody(QWidget* display) : m_display(display)
{
    setObjectName(QStringLiteral("ScreenBody"));
    // A window without a size would take that of what lies in it.
    resize(QGuiApplication::primaryScreen()->size());
    setWindowState(Qt::WindowFullScreen);
    setWindowIcon(QIcon(QStringLiteral(":/vornbody/vornphone.svg")));
    setWindowTitle(QGuiApplication::applicationDisplayName());
    display->setParent(this);
    display->setMinimumSize(0, 0);
    display->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    display->show();
    const QInputMethod* method = QGuiApplication::inputMethod();
    connect(method, SIGNAL(keyboardRectangleChanged()), SLOT(askForKeyboard()));
    connect(method, SIGNAL(visibleChanged()), SLOT(askForKeyboard()));
}

void ScreenBody::askForKeyboard()
{
    const QInputMethod* method = QGuiApplication::inputMethod();
    keepClearOf(method->isVisible() ? method->keyboardRectangle() : QRectF());
}

void ScreenBody::keepClearOf(const QRectF& keyboard)
{
    m_keyboard = keyboard;
    layoutDisplay();
}

void ScreenBody::resizeEvent(QResizeEvent*)
{
    layoutDisplay();
}

void ScreenBody::layoutDisplay()
{
    QRect room = rect();
    const QRect covered = m_keyboard.toAlignedRect().intersected(room);
    // One that floats somewhere else is moved away by the person.
    if (!covered.isEmpty() && covered.bottom() == room.bottom() && covered.top() >= leastHeight)
        room.setBottom(covered.top() - 1);
    m_display->setGeometry(room);
}

} // namespace phone
