#include "page.h"

#include <algorithm>

#include <yglobal.h>
#include <yoptionsmenu.h>
#include <ysoftkey.h>

namespace phone {

namespace {

constexpr int menuWidth = 220;

QRect menuRect()
{
    const QRect screen = YGlobal::getHomeR(false);
    const int height = YGlobal::getCstR().top() - screen.top();
    return QRect(screen.left(), screen.top(), std::min(menuWidth, screen.width()), height);
}

} // namespace

Page::Page(QWidget* owner, const char* name, const QString& title) : YKbMainWidget(owner, name, 0)
{
    setMainWidgetTitle(title);
    auto* keys = new YSoftKey("CST_2A", this, this);
    keys->showButton(YSoftKey::Left, false);
    keys->showButton(YSoftKey::Right, false);
    setSoftKey(keys);
}

void Page::setKey(int button, const QString& text, const char* slot)
{
    YSoftKey* keys = softKey();
    keys->setText(button, text, 0);
    keys->showButton(button, !text.isEmpty());
    keys->setClickedSlot(button, this, slot);
}

void Page::openMenu(const std::vector<MenuItem>& items)
{
    delete m_menu;
    m_menu = new YOptionsMenu(menuRect(), this, "menu", 0, YSkinService::OptionsMenu);
    for (const MenuItem& item : items)
        m_menu->insertItem(item.text, nullptr, this, item.slot, item.isEnabled, false, false, -1,
                           -1, false);
    m_menu->show();
}

void Page::goBack()
{
    hide();
}

} // namespace phone
