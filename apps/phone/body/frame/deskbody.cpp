#include "deskbody.h"

#include <QGuiApplication>
#include <QIcon>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <toolkit/input/ykeypad.h>

#include "caselook.h"
#include "keybutton.h"
#include "phonekeys.h"

namespace phone {

namespace {

constexpr double bodyRadius = 36;
constexpr double glassRadius = 14;

// What a window's own frame may take of the desk.
constexpr int windowFrame = 40;

// Return and Enter are one key here, and so is a digit of either block of the keyboard.
int phoneKeyOf(int key)
{
    return key == Qt::Key_Enter ? Qt::Key_Return : key;
}

// Below, unless only the keys beside the screen leave the whole phone in sight.
CaseLayout::Keys keysFor(const QSize& display)
{
    const QSize desk = QGuiApplication::primaryScreen()->availableGeometry().size();
    const QSize below = CaseLayout::usualSize(display, CaseLayout::Keys::Below);
    const QSize beside = CaseLayout::usualSize(display, CaseLayout::Keys::Beside);
    const bool isLow = below.height() + windowFrame > desk.height();
    return isLow && beside.width() <= desk.width() ? CaseLayout::Keys::Beside
                                                   : CaseLayout::Keys::Below;
}

QSize usualSizeOf(const QWidget& display)
{
    const QSize hint = display.sizeHint();
    return hint.isValid() && !hint.isEmpty() ? hint : display.size();
}

} // namespace

DeskBody::DeskBody(QWidget* display, Room room) : m_display(display), m_usual(usualSizeOf(*display))
{
    if (room == Room::Window)
        m_keys = keysFor(m_usual);
    setObjectName(QStringLiteral("DeskBody"));
    setWindowIcon(QIcon(QStringLiteral(":/vornbody/vornphone.svg")));
    setWindowTitle(QGuiApplication::applicationDisplayName());
    YKeypad::setPresent(true);
    display->setParent(this);
    display->setMinimumSize(0, 0);
    display->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    display->show();
    addKeys();
    const QSize usual = CaseLayout::usualSize(m_usual, m_keys);
    resize(usual);
    if (room == Room::Window)
        setMinimumSize(usual);
    else
        setWindowState(Qt::WindowFullScreen);
    qApp->installEventFilter(this);
}

void DeskBody::addKeys()
{
    for (const CaseKey& entry : phoneKeys) {
        auto* key = new KeyButton(this, entry);
        connect(key, &KeyButton::wentDown, this,
                [this, key](bool repeated) { send(*key, QEvent::KeyPress, repeated); });
        connect(key, &KeyButton::wentUp, this,
                [this, key] { send(*key, QEvent::KeyRelease, false); });
        m_buttons.push_back(key);
    }
}

// The key takes the way of the keyboard's: to the window that has the input, which may be another
// one of the program's. It is posted, since what it does may last as long as a dialog is open.
void DeskBody::send(const KeyButton& key, QEvent::Type type, bool repeated)
{
    QWindow* window = QGuiApplication::focusWindow();
    if (!window)
        window = windowHandle();
    if (!window)
        return;
    const CaseKey& entry = key.entry();
    const QString text = entry.keypad ? QString::fromUtf8(entry.face) : QString();
    QCoreApplication::postEvent(
        window, new QKeyEvent(type, entry.key, entry.keypad ? Qt::KeypadModifier : Qt::NoModifier,
                              text, repeated));
}

void DeskBody::showPressed(int key, bool pressed)
{
    for (KeyButton* button : m_buttons)
        if (button->entry().key == phoneKeyOf(key))
            button->setShownPressed(pressed);
}

void DeskBody::showNonePressed()
{
    for (KeyButton* button : m_buttons)
        button->setShownPressed(false);
}

bool DeskBody::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if ((type == QEvent::KeyPress || type == QEvent::KeyRelease) && watched->isWindowType())
        showPressed(static_cast<QKeyEvent*>(event)->key(), type == QEvent::KeyPress);
    // The case goes with the theme of what it shows.
    if (type == QEvent::PaletteChange && watched == m_display) {
        update();
        for (KeyButton* button : m_buttons)
            button->update();
    }
    return false;
}

void DeskBody::changeEvent(QEvent* event)
{
    // Where a key goes up in another window, nobody tells this one.
    if (event->type() == QEvent::ActivationChange && !isActiveWindow())
        showNonePressed();
    QWidget::changeEvent(event);
}

void DeskBody::resizeEvent(QResizeEvent*)
{
    m_layout = CaseLayout::in(size(), m_usual, m_keys);
    m_display->setGeometry(m_layout.display);
    for (KeyButton* key : m_buttons) {
        key->setGeometry(m_layout.onField(key->entry().place).toAlignedRect());
        key->setScale(m_layout.scale);
    }
}

void DeskBody::showEvent(QShowEvent*)
{
    showNonePressed();
}

void DeskBody::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), CaseLook::current().ground);
    painter.setRenderHint(QPainter::Antialiasing);
    paintCase(painter);
}

void DeskBody::paintCase(QPainter& painter) const
{
    const CaseLook look = CaseLook::current();
    const double scale = m_layout.scale;
    QLinearGradient metal(m_layout.body.topLeft(), m_layout.body.bottomLeft());
    metal.setColorAt(0, look.caseTop);
    metal.setColorAt(1, look.caseBottom);
    painter.setPen(QPen(look.rim, 1.5 * scale));
    painter.setBrush(metal);
    painter.drawRoundedRect(m_layout.body, bodyRadius * scale, bodyRadius * scale);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.slot);
    painter.drawRoundedRect(m_layout.ear, m_layout.ear.height() / 2, m_layout.ear.height() / 2);
    painter.setBrush(look.glass);
    painter.drawRoundedRect(m_layout.glass, glassRadius * scale, glassRadius * scale);
    const QRectF plate = m_layout.onField(keyPlate);
    QLinearGradient rise(plate.topLeft(), plate.bottomLeft());
    rise.setColorAt(0, look.keyTop);
    rise.setColorAt(1, look.keyBottom);
    painter.setPen(QPen(look.keyRim, 1));
    painter.setBrush(rise);
    painter.drawEllipse(plate);
}

} // namespace phone
