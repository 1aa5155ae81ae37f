#include "exchange/importpage.h"

#include <QFileInfo>

#include "cards/cardlist.h"
#include "exchange/exchange.h"
#include "exchange/filemodel.h"
#include "texts/phone_text.h"

namespace phone {

ImportPage::ImportPage(QWidget* owner, const QString& folder)
    : Page(owner, "import", QString()), m_files(new FileModel(this)), m_list(new CardList(this, 1))
{
    m_list->setModel(m_files);
    setContentWidget(m_list);
    setKey(0, text("TXT_RID_PHONE_KEY_CHOOSE", "Choose"), SLOT(choose()));
    setKey(1, text("TXT_RID_PHONE_KEY_BACK", "Back"), SLOT(goBack()));
    connect(m_list, SIGNAL(activated(QModelIndex)), SLOT(choose()));
    enter(folder);
}

void ImportPage::enter(const QString& folder)
{
    m_files->setFolder(QDir(QDir::cleanPath(QFileInfo(folder).absoluteFilePath())));
    const QString name = m_files->folder().dirName();
    const QString title = name.isEmpty() ? QStringLiteral("/") : name;
    setMainWidgetTitle(text("TXT_RID_PHONE_IMPORT_TITLE", "Import from %1").arg(title));
    m_list->setAccessibleName(title);
    m_list->setCurrentRow(0);
}

void ImportPage::choose()
{
    const QFileInfo entry = m_files->entry(m_list->currentRow());
    if (entry.filePath().isEmpty())
        return;
    if (entry.isDir())
        return enter(entry.absoluteFilePath());
    if (!importProfiles(entry.absoluteFilePath()))
        return;
    emit imported();
    hide();
}

} // namespace phone
