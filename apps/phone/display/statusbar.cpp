#include "display/statusbar.h"

#include <algorithm>

#include <QFontMetrics>
#include <QLocale>
#include <QPainter>
#include <QStyle>
#include <QTime>
#include <QTimerEvent>

#include <napi.h>
#include <toolkit/look/yicon.h>
#include <toolkit/look/ytheme.h>

#include "texts/phone_text.h"

namespace phone {

namespace {

constexpr int minuteMs = 60 * 1000;
constexpr int iconSize = 16;

// The bearer's sign; how strong its signal is, where that is known.
QString bearerIcon(const LinkSigns& signs)
{
    if (signs.bearer == NAPI_BEARER_WIFI)
        return QStringLiteral("wifi");
    if (signs.bearer == NAPI_BEARER_CSD)
        return QStringLiteral("call");
    const int strength = signs.signal < 0 ? 4 : (signs.signal + 12) / 25;
    return QStringLiteral("signal-%1").arg(strength);
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
    const YTheme& theme = YTheme::current();
    return std::max(theme.small ? 18 : 22, QFontMetrics(theme.smallFont()).height() + 4);
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
    painter.drawText(inner, Qt::AlignTrailing | Qt::AlignVCenter, m_time);
    if (m_signs.bearer < 0) {
        painter.setPen(theme.mutedText);
        painter.drawText(inner, Qt::AlignLeading | Qt::AlignVCenter,
                         text("TXT_RID_PHONE_STATUS_OFFLINE", "Not connected"));
        return;
    }
    const QRect sign(inner.left(), (height() - iconSize) / 2, iconSize, iconSize);
    const QRect beside = sign.translated(iconSize + 4, 0);
    YIcon::draw(painter, bearerIcon(m_signs), QStyle::visualRect(layoutDirection(), inner, sign),
                theme.text);
    YIcon::draw(painter,
                m_signs.isActive ? QStringLiteral("activity") : QStringLiteral("activity-none"),
                QStyle::visualRect(layoutDirection(), inner, beside),
                m_signs.isActive ? theme.accent : theme.mutedText);
}

} // namespace phone
