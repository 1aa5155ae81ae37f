#include "toolkit/look/yanswer.h"

#include <QAbstractButton>
#include <QTimerEvent>

#include "toolkit/look/ytheme.h"

void YAnswer::press(QAbstractButton* button)
{
    const YTheme& theme = YTheme::current();
    if (!theme.moves || theme.pressTime <= 0)
        return;
    release();
    m_button = button;
    button->setDown(true);
    m_timer.start(theme.pressTime, this);
}

void YAnswer::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_timer.timerId())
        release();
}

void YAnswer::release()
{
    m_timer.stop();
    if (m_button)
        m_button->setDown(false);
    m_button = nullptr;
}
