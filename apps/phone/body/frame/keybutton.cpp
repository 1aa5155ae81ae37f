#include "keybutton.h"

#include <utility>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QTimerEvent>

#include "caselook.h"

namespace phone {

namespace {

constexpr int untilRepeat = 500; // milliseconds that a key is held
constexpr int betweenRepeats = 90;

constexpr double keyRadius = 10;
constexpr double faceLetters = 17;
constexpr double smallLetters = 10.5;

} // namespace

KeyButton::KeyButton(QWidget* parent, const CaseKey& entry)
    : QAbstractButton(parent), m_entry(entry)
{
    setObjectName(QString::fromUtf8(entry.name));
    setAccessibleName(QString::fromUtf8(entry.name));
    setAccessibleDescription(QString::fromUtf8(entry.hint));
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    connect(this, &QAbstractButton::pressed, this, &KeyButton::goDown);
    connect(this, &QAbstractButton::released, this, &KeyButton::goUp);
}

void KeyButton::setScale(double scale)
{
    m_scale = scale;
    update();
}

void KeyButton::setShownPressed(bool pressed)
{
    if (std::exchange(m_isShownPressed, pressed) != pressed)
        update();
}

// The arrows share the corners of the plate, which belong to none of them.
bool KeyButton::hitButton(const QPoint& point) const
{
    if (m_entry.shape != KeyShape::Disc)
        return rect().contains(point);
    QPainterPath disc;
    disc.addEllipse(rect());
    return disc.contains(point);
}

void KeyButton::goDown()
{
    if (std::exchange(m_isHeld, true))
        return;
    m_isRepeating = false;
    m_timer.start(untilRepeat, this);
    emit wentDown(false);
}

void KeyButton::goUp()
{
    m_timer.stop();
    if (std::exchange(m_isHeld, false))
        emit wentUp();
}

void KeyButton::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId())
        return QAbstractButton::timerEvent(event);
    if (!std::exchange(m_isRepeating, true))
        m_timer.start(betweenRepeats, this);
    emit wentDown(true);
}

void KeyButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGround(painter);
    if (m_entry.shape == KeyShape::Arrow)
        paintArrow(painter);
    else
        paintFace(painter);
}

void KeyButton::paintGround(QPainter& painter) const
{
    const CaseLook look = CaseLook::current();
    const bool pressed = isDown() || m_isShownPressed;
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    if (m_entry.shape == KeyShape::Arrow) {
        const double side = std::min(area.width(), area.height()) - 2;
        QRectF spot(0, 0, side, side);
        spot.moveCenter(area.center());
        if (pressed)
            painter.setBrush(look.pressed);
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(spot);
        return;
    }
    QLinearGradient gradient(area.topLeft(), area.bottomLeft());
    gradient.setColorAt(0, pressed ? look.pressed : look.keyTop);
    gradient.setColorAt(1, pressed ? look.pressed : look.keyBottom);
    painter.setBrush(gradient);
    painter.setPen(QPen(pressed ? look.pressed : look.keyRim, 1));
    const double radius = m_entry.shape == KeyShape::Disc ? area.height() / 2 : keyRadius * m_scale;
    painter.drawRoundedRect(area, radius, radius);
}

void KeyButton::paintFace(QPainter& painter) const
{
    const CaseLook look = CaseLook::current();
    const bool pressed = isDown() || m_isShownPressed;
    const QRectF area = rect();
    const QString face = QString::fromUtf8(m_entry.face);
    const QString small = QString::fromUtf8(m_entry.keypad ? m_entry.letters : m_entry.hint);
    const bool disc = m_entry.shape == KeyShape::Disc;
    QRectF faceArea = area;
    QRectF smallArea = area;
    if (m_entry.keypad) { // side by side
        faceArea.setRight(area.width() * 0.46);
        smallArea.setLeft(area.width() * 0.46);
    } else { // one above the other
        faceArea.setBottom(area.height() * 0.6);
        smallArea.setTop(area.height() * 0.5);
        smallArea.setBottom(area.height() * (disc ? 0.86 : 0.94));
    }
    painter.setFont(CaseLook::font((disc ? 14 : faceLetters) * m_scale, QFont::DemiBold));
    painter.setPen(pressed ? look.onPressed : look.face);
    painter.drawText(faceArea, Qt::AlignCenter, face);
    painter.setFont(CaseLook::font((disc ? 9.5 : smallLetters) * m_scale, QFont::Normal));
    painter.setPen(pressed ? look.onPressed : look.hint);
    painter.drawText(smallArea, Qt::AlignCenter, small);
}

void KeyButton::paintArrow(QPainter& painter) const
{
    const CaseLook look = CaseLook::current();
    const int turns[] = {270, 0, 90, 180}; // Left, Up, Right, Down, from the one that points up
    painter.translate(QRectF(rect()).center());
    painter.rotate(turns[m_entry.key - Qt::Key_Left]);
    painter.scale(m_scale, m_scale);
    QPainterPath path(QPointF(-5, 2.5));
    path.lineTo(0, -2.5);
    path.lineTo(5, 2.5);
    const bool pressed = isDown() || m_isShownPressed;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(
        QPen(pressed ? look.onPressed : look.face, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
}

} // namespace phone
