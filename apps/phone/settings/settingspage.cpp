#include "settings/settingspage.h"

#include <algorithm>

#include <ycombobox.h>
#include <yformcontainer.h>

#include "messages/messages.h"
#include "settings/settingrows.h"
#include "settings/settings.h"
#include "texts/phone_text.h"

namespace phone {

SettingsPage::SettingsPage(QWidget* owner)
    : Page(owner, "settings", text("TXT_RID_PHONE_TITLE_SETTINGS", "Settings"))
{
    auto* form = new YFormContainer(this, "form", YSkinService::FormContainer);
    for (const SettingRow& row : settingRows())
        addRow(form, row);
    setContentWidget(form);
    setKey(1, text("TXT_RID_PHONE_KEY_BACK", "Back"), SLOT(goBack()));
    connect(&Settings::instance(), SIGNAL(failed(QString)), SLOT(writeFailed(QString)),
            Qt::QueuedConnection);
}

void SettingsPage::addRow(YFormContainer* form, const SettingRow& row)
{
    auto* box = new YComboBox(form->viewport(), row.id, true);
    box->setTitle(text(row.id, row.english));
    const QString value = settingValue(row);
    const std::vector<SettingItem> items = row.items();
    for (std::size_t i = 0; i < items.size(); ++i) {
        box->insertItem(items[i].text);
        if (items[i].value == value)
            box->setCurrentItem(int(i));
    }
    connect(box, SIGNAL(activated(int)), SLOT(choose(int)));
    form->addChild(box, true, nullptr);
    m_boxes.push_back(box);
}

void SettingsPage::choose(int item)
{
    const auto box = std::find(m_boxes.begin(), m_boxes.end(), sender());
    if (box == m_boxes.end())
        return;
    const SettingRow& row = settingRows()[std::size_t(box - m_boxes.begin())];
    const std::vector<SettingItem> items = row.items();
    if (item < 0 || item >= int(items.size()))
        return;
    storeSetting(row, items[std::size_t(item)].value);
    emit chosen(QString::fromLatin1(row.name));
}

void SettingsPage::writeFailed(const QString& why)
{
    tell(mainWidgetTitle(), why);
}

} // namespace phone
