#include "display/statusbar.h"

#include <QLocale>
#include <QPainter>
#include <QTime>
#include <QTimerEvent>

#include <napi.h>
#include <toolkit/look/ytheme.h>

#include "texts/phone_text.h"

namespace phone {

namespace {

constexpr int minuteMs = 60 * 1000;
constexpr int bars = 4;

// Four bars of rising height; as many are lit as the signal says, all where it says nothing.
void paintBars(QPainter& painter, const QRect& place, int signal)
{
    const QColor lit = YTheme::current().text;
    QColor unlit = lit;
    unlit.setAlphaF(0.28F);
    const int strong = signal < 0 ? bars : (signal * bars + 99) / 100;
    for (int bar = 0; bar < bars; ++bar) {
        const double height = place.height() * (bar + 1.0) / bars;
        const QRectF shape(place.left() + bar * 4.0, place.bottom() + 1 - height, 3, height);
        painter.setBrush(bar < strong ? lit : unlit);
        painter.drawRoundedRect(shape, 1, 1);
    }
}

void paintWaves(QPainter& painter, const QRect& place)
{
    const QColor lit = YTheme::current().text;
    const QPointF foot(place.center().x() + 0.5, place.bottom());
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(lit, 1.6, Qt::SolidLine, Qt::RoundCap));
    for (const double radius : {4.5, 8.5}) {
        const QRectF circle(foot.x() - radius, foot.y() - radius, 2 * radius, 2 * radius);
        painter.drawArc(circle, 45 * 16, 90 * 16);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(lit);
    painter.drawEllipse(foot, 1.6, 1.6);
}

void paintArrows(QPainter& painter, const QRect& place, bool isActive)
{
    QColor colour = isActive ? YTheme::current().accent : YTheme::current().text;
    if (!isActive)
        colour.setAlphaF(0.45F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    const double x = place.left();
    const double top = place.top();
    painter.drawPolygon(QPolygonF({{x, top + 5}, {x + 3.5, top}, {x + 7, top + 5}}));
    painter.drawPolygon(QPolygonF({{x, top + 7}, {x + 3.5, top + 12}, {x + 7, top + 7}}));
}

} // namespace

StatusBar::StatusBar(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("status"));
    startTimer();
    tell();
}

int StatusBar::barHeight()
{
    return YTheme::current().small ? 18 : 22;
}

void StatusBar::setSigns(const LinkSigns& signs)
{
    m_signs = signs;
    tell();
}

// A little into the minute, so that a timer that comes early does not show the old time.
void StatusBar::startTimer()
{
    const QTime now = QTime::currentTime();
    const int passed = now.second() * 1000 + now.msec();
    m_minute.start(minuteMs - passed + 20, Qt::CoarseTimer, this);
}

void StatusBar::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_minute.timerId())
        return QWidget::timerEvent(event);
    startTimer();
    tell();
    emit minutePassed();
}

void StatusBar::tell()
{
    m_time = QLocale().toString(QTime::currentTime(), QLocale::ShortFormat);
    const QString state = m_signs.bearer < 0 ? text("TXT_RID_PHONE_STATUS_OFFLINE", "Not connected")
                                             : text("TXT_RID_PHONE_STATUS_ONLINE", "Connected");
    setAccessibleName(m_time + QStringLiteral(", ") + state);
    update();
}

void StatusBar::paintEvent(QPaintEvent*)
{
    const YTheme& theme = YTheme::current();
    QPainter painter(this);
    painter.fillRect(rect(), theme.bar);
    painter.setFont(YTheme::current().smallFont());
    painter.setPen(theme.text);
    const QRect inner = rect().adjusted(YTheme::current().margin, 0, -YTheme::current().margin, 0);
    painter.drawText(inner, Qt::AlignRight | Qt::AlignVCenter, m_time);
    if (m_signs.bearer < 0) {
        painter.setPen(theme.mutedText);
        painter.drawText(inner, Qt::AlignLeft | Qt::AlignVCenter,
                         text("TXT_RID_PHONE_STATUS_OFFLINE", "Not connected"));
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRect sign(inner.left(), (height() - 12) / 2, 16, 12);
    if (m_signs.bearer == NAPI_BEARER_WIFI)
        paintWaves(painter, sign);
    else
        paintBars(painter, sign, m_signs.signal);
    paintArrows(painter, QRect(sign.right() + 6, sign.top(), 7, 12), m_signs.isActive);
}

} // namespace phone
