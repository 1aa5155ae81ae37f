#include "toolkit/look/yslide.h"

#include <algorithm>

#include <QEvent>
#include <QWidget>

#include "toolkit/look/ytheme.h"

YSlide::YSlide(QWidget* sheet) : QVariantAnimation(sheet), m_sheet(sheet)
{
    setEasingCurve(QEasingCurve::OutCubic);
    sheet->installEventFilter(this);
}

void YSlide::begin()
{
    const YTheme& theme = YTheme::current();
    stop();
    m_offset = 0;
    if (!theme.moves || theme.slideTime <= 0)
        return;
    setDuration(theme.slideTime);
    setStartValue(std::min(m_sheet->height(), theme.slide));
    setEndValue(0);
    start();
}

bool YSlide::eventFilter(QObject*, QEvent* event)
{
    const bool placed = event->type() == QEvent::Move || event->type() == QEvent::Resize;
    if (state() == Running && ((placed && !m_moving) || event->type() == QEvent::Hide)) {
        stop();
        // Who places the sheet knows where; one that is hidden goes back to its place.
        if (!placed)
            m_sheet->move(m_sheet->x(), m_sheet->y() - m_offset);
        m_offset = 0;
    }
    return false;
}

void YSlide::updateCurrentValue(const QVariant& value)
{
    if (state() != Running)
        return;
    m_moving = true;
    m_sheet->move(m_sheet->x(), m_sheet->y() + value.toInt() - m_offset);
    m_moving = false;
    m_offset = value.toInt();
}
