#include "exchange/exportpage.h"

#include <QFileInfo>

#include <ycombobox.h>
#include <yformcontainer.h>
#include <ylineedit.h>
#include <ypressbutton.h>

#include "exchange/exchange.h"
#include "messages/messages.h"
#include "texts/phone_text.h"

namespace phone {

namespace {

YComboBox* addChoice(YFormContainer* form, const char* name, const QString& title,
                     const QStringList& items)
{
    auto* box = new YComboBox(form->viewport(), name, true);
    box->setTitle(title);
    for (const QString& item : items)
        box->insertItem(item);
    form->addChild(box, true, nullptr);
    return box;
}

YLineEdit* addFile(YFormContainer* form, const QString& usual)
{
    auto* edit = new YLineEdit(form->viewport(), "file", YSkinService::FormLineEdit);
    edit->setLabel(text("TXT_RID_PHONE_EXPORT_FILE", "File"));
    edit->setMaxLength(1000);
    edit->setText(usual);
    form->addChild(edit, true, nullptr);
    return edit;
}

} // namespace

ExportPage::ExportPage(QWidget* owner, const QString& current, const QStringList& all,
                       const QString& folder)
    : Page(owner, "export", text("TXT_RID_PHONE_MENU_EXPORT", "Export")),
      m_current(current),
      m_all(all)
{
    auto* form = new YFormContainer(this, "form", YSkinService::FormContainer);
    QStringList which = {text("TXT_RID_PHONE_EXPORT_ALL", "All connections")};
    if (!current.isEmpty())
        which << current;
    m_which = addChoice(form, "which", text("TXT_RID_PHONE_EXPORT_WHICH", "What"), which);
    m_passwords =
        addChoice(form, "passwords", text("TXT_RID_PHONE_EXPORT_PASSWORDS", "Passwords"),
                  {text("TXT_RID_PHONE_EXPORT_WITHOUT", "Leave out"),
                   text("TXT_RID_PHONE_EXPORT_WITH", "Write, readable for who has the file")});
    m_file = addFile(form, folder + QStringLiteral("/connections.json"));
    auto* button = new YPressButton(form->viewport(), "write", YSkinService::FormPressButton);
    button->setText(mainWidgetTitle());
    connect(button, SIGNAL(clicked()), SLOT(write()));
    form->addChild(button, true, nullptr);
    setContentWidget(form);
    setKey(0, mainWidgetTitle(), SLOT(write()));
    setKey(1, text("TXT_RID_PHONE_KEY_BACK", "Back"), SLOT(goBack()));
}

void ExportPage::write()
{
    const QString file = m_file->text().trimmed();
    if (file.isEmpty() || QFileInfo(file).isDir())
        return tell(mainWidgetTitle(),
                    text("TXT_RID_PHONE_EXPORT_NO_FILE", "Type the name of a file."));
    if (QFileInfo::exists(file) &&
        !ask(mainWidgetTitle(),
             text("TXT_RID_PHONE_EXPORT_REPLACE", "Replace %1?").arg(QFileInfo(file).fileName())))
        return;
    const QStringList names = m_which->currentItem() == 0 ? m_all : QStringList{m_current};
    exportProfiles(names, file, m_passwords->currentItem() == 1);
}

} // namespace phone
