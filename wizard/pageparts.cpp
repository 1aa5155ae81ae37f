#include "wizard/pageparts.h"

#include <qrect.h>

#include <yappinfoarea.h>
#include <yformcontainer.h>
#include <yglobal.h>
#include <ykbmainwidget.h>
#include <yoptionsmenu.h>
#include <ysoftkey.h>

#include "support/toolkitnumbers.h"
#include "support/translate.h"

using support::translate;

namespace wizard {

namespace {

const int optionsMenuWidth = 200;

// The screen without its soft keys, from the left edge.
QRect optionsMenuRect()
{
    const QRect home = YGlobal::getHomeR(false);
    const QRect softKeys = YGlobal::getCstR();
    const int height = (home.bottom() - home.top()) - (softKeys.bottom() - softKeys.top());
    return QRect(home.left(), home.top(), optionsMenuWidth, height);
}

QString cancelText()
{
    return translate("TXT_RID_SOFTKEY_CANCEL", "Cancel");
}

} // namespace

YFormContainer* addForm(YKbMainWidget* page)
{
    YFormContainer* form = new YFormContainer(page, nullptr, toolkit::FormContainer);
    page->setContentWidget(form);
    YAppInfoArea* area = new YAppInfoArea(page, "T", nullptr, toolkit::AppInfoArea);
    area->appendText(toolkit::TextArea, "", QString());
    page->setTitleBarWidget(area);
    return form;
}

YOptionsMenu* addOptionsMenu(YKbMainWidget* page, const PhoneText& item, const char* member)
{
    YOptionsMenu* menu =
        new YOptionsMenu(optionsMenuRect(), page, nullptr, 0, toolkit::OptionsMenu);
    menu->insertItem(translate(item.id, item.text), nullptr, page, member, true, false, false, -1,
                     -1, false);
    return menu;
}

YSoftKey* addSoftKeys(YKbMainWidget* page, YOptionsMenu* menu, const char* member)
{
    YSoftKey* softKeys = new YSoftKey("CST_2A", page, page);
    softKeys->setText(toolkit::LeftKey, translate("TXT_RID_SOFTKEY_OPTIONS", "Options"), 0);
    softKeys->setText(toolkit::RightKey, cancelText(), 0);
    softKeys->setOptionsMenu(toolkit::LeftKey, menu);
    softKeys->setClickedSlot(toolkit::RightKey, page, member);
    page->setSoftKey(softKeys);
    return softKeys;
}

void offerCancel(YSoftKey* softKeys, QObject* page, const char* member)
{
    softKeys->setText(toolkit::RightKey, cancelText(), 0);
    softKeys->setClickedSlot(toolkit::RightKey, page, member);
}

void offerSave(YSoftKey* softKeys, QObject* page, const char* member)
{
    softKeys->setText(toolkit::RightKey, translate("TXT_RID_SOFTKEY_SAVE", "Save"), 0);
    softKeys->setClickedSlot(toolkit::RightKey, page, member);
}

} // namespace wizard
