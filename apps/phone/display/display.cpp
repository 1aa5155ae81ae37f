#include "display/display.h"

#include <toolkit/yscreen.h>

#include "display/statusbar.h"

namespace phone {

Display::Display(QWidget* parent)
    : QWidget(parent), m_bar(new StatusBar(this)), m_usual(YScreen::instance()->size())
{
    YScreen* screen = YScreen::instance();
    screen->setMinimumSize(0, 0);
    screen->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    screen->setParent(this);
    screen->show();
}

Display::~Display()
{
    YScreen* screen = YScreen::instance();
    if (screen->parentWidget() != this)
        return;
    screen->hide();
    screen->setParent(nullptr);
    screen->setFixedSize(m_usual);
}

void Display::setScreenSize(const QString& size)
{
    const int width = size.section('x', 0, 0).toInt();
    const int height = size.section('x', 1, 1).toInt();
    if (width <= 0 || height <= 0)
        return;
    m_usual = QSize(width, height);
    updateGeometry();
}

QSize Display::sizeHint() const
{
    return m_usual + QSize(0, StatusBar::barHeight());
}

void Display::resizeEvent(QResizeEvent*)
{
    const int bar = StatusBar::barHeight();
    m_bar->setGeometry(0, 0, width(), bar);
    YScreen::instance()->setGeometry(0, bar, width(), height() - bar);
}

} // namespace phone
