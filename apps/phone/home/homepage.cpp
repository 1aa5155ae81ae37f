#include "home/homepage.h"

#include <algorithm>

#include <QDir>
#include <QFileInfo>
#include <QStackedWidget>

#include <napi.h>
#include <network/napi_host.h>
#include <profilefunctions.h>
#include <vornqtnapi_texts.h>

#include "cards/cardlist.h"
#include "cards/emptyhint.h"
#include "exchange/exportpage.h"
#include "exchange/importpage.h"
#include "fetch/textpage.h"
#include "home/profilemodel.h"
#include "links/linkbook.h"
#include "links/linkspage.h"
#include "log/logfile.h"
#include "messages/failures.h"
#include "messages/messages.h"
#include "messages/work.h"
#include "settings/settings.h"
#include "settings/settingspage.h"
#include "texts/phone_text.h"

namespace phone {

namespace {

QString title()
{
    return text("TXT_RID_PHONE_TITLE_HOME", "Connections");
}

} // namespace

HomePage::HomePage(QWidget* owner, LinkBook& links)
    : Page(owner, "home", title()),
      m_links(links),
      m_profiles(new ProfileModel(this)),
      m_list(new CardList(this, 2)),
      m_stack(new QStackedWidget(this))
{
    m_list->setModel(m_profiles);
    m_list->setAccessibleName(title());
    m_stack->addWidget(m_list);
    m_stack->addWidget(new EmptyHint(m_stack, QString(), QString()));
    setContentWidget(m_stack);
    setKey(0, text("TXT_RID_PHONE_KEY_OPTIONS", "Options"), SLOT(openOptions()));
    setKey(1, text("TXT_RID_PHONE_KEY_MENU", "Menu"), SLOT(openMenuOfPhone()));
    m_profiles->setDefaultName(Settings::instance().text(settingnames::chosen));
    refresh();
    const int marked = m_profiles->row(Settings::instance().text(settingnames::chosen));
    m_list->setCurrentRow(std::max(0, marked));
    connect(m_list, SIGNAL(activated(QModelIndex)), SLOT(activate()));
    connect(&m_links, SIGNAL(changed()), SLOT(cardChanged()));
    connect(&m_watcher, SIGNAL(directoryChanged(QString)), SLOT(refresh()));
    cardChanged();
}

HomePage::~HomePage()
{
    delete m_page;
}

void HomePage::showEvent(QShowEvent* event)
{
    Page::showEvent(event);
    // Nothing could have the focus before.
    m_stack->currentWidget()->setFocus();
    watchStore();
}

// Other programs make and remove profiles, too.
void HomePage::watchStore()
{
    const QString folder = QString::fromStdString(napihost::profilesFolder());
    if (m_watcher.directories().isEmpty() && QFileInfo(folder).isDir())
        m_watcher.addPath(folder);
}

void HomePage::refresh()
{
    const int row = m_list->currentRow();
    const QString name = m_profiles->name(row);
    const int result = m_profiles->refresh();
    const int same = m_profiles->row(name);
    const int last = m_profiles->rowCount() - 1;
    m_list->setCurrentRow(same >= 0 ? same : std::max(0, std::min(row, last)));
    auto* hint = static_cast<EmptyHint*>(m_stack->widget(1));
    if (result < 0)
        hint->setTexts(text("TXT_RID_PHONE_HOME_NOT_LISTED", "Connections cannot be listed"),
                       resultMessage(result));
    else
        hint->setTexts(
            text("TXT_RID_PHONE_HOME_EMPTY", "No connections yet"),
            text("TXT_RID_PHONE_HOME_EMPTY_HINT", "Press Options and choose New to make one."));
    showListOrHint();
    watchStore();
}

void HomePage::showListOrHint()
{
    m_stack->setCurrentIndex(m_profiles->rowCount() > 0 ? 0 : 1);
    m_stack->currentWidget()->setFocus();
}

void HomePage::cardChanged()
{
    m_profiles->setConnected(m_links.profiles());
}

QString HomePage::current() const
{
    return m_profiles->name(m_list->currentRow());
}

void HomePage::openOptions()
{
    const int row = m_list->currentRow();
    const bool isThere = row >= 0 && m_profiles->rowCount() > 0;
    const bool isUsable = isThere && !m_profiles->isDamaged(row);
    const bool isUp = isThere && m_profiles->isConnected(row);
    openMenu(
        {isUp ? MenuItem{text("TXT_RID_PHONE_MENU_CLOSE", "Disconnect"), SLOT(disconnectCurrent())}
              : MenuItem{text("TXT_RID_PHONE_MENU_CONNECT", "Connect"), SLOT(connectCurrent()),
                         isUsable || !isThere},
         {text("TXT_RID_PHONE_MENU_CHOOSE", "Choose and connect"), SLOT(chooseAndConnect())},
         {text("TXT_RID_PHONE_MENU_NEW", "New"), SLOT(create())},
         {text("TXT_RID_PHONE_MENU_EDIT", "Edit"), SLOT(edit()), isUsable},
         {text("TXT_RID_PHONE_MENU_COPY", "Copy"), SLOT(copy()), isUsable},
         {text("TXT_RID_PHONE_MENU_DELETE", "Delete"), SLOT(remove()), isThere},
         {text("TXT_RID_PHONE_MENU_MARK", "Make default"), SLOT(mark()), isUsable}});
}

void HomePage::openMenuOfPhone()
{
    openMenu({{text("TXT_RID_PHONE_TITLE_LINKS", "Links"), SLOT(openLinks())},
              {text("TXT_RID_PHONE_MENU_IMPORT", "Import"), SLOT(importSome())},
              {text("TXT_RID_PHONE_MENU_EXPORT", "Export"), SLOT(exportSome()),
               m_profiles->rowCount() > 0},
              {text("TXT_RID_PHONE_TITLE_SETTINGS", "Settings"), SLOT(openSettings())},
              {text("TXT_RID_PHONE_TITLE_LOG", "Log"), SLOT(openLog())},
              {text("TXT_RID_PHONE_MENU_EXIT", "Exit"), SLOT(quit())}});
}

// What Return and a tap do: connect, and show the link of what is connected.
void HomePage::activate()
{
    const int row = m_list->currentRow();
    if (m_profiles->isDamaged(row))
        return tell(current(), resultMessage(NAPI_ERR_DAMAGED));
    if (m_profiles->isConnected(row))
        return openLinks();
    connectCurrent();
}

void HomePage::connectCurrent()
{
    QString name = current();
    if (name.isEmpty() && getProfileIfNoFound(name) != 0)
        return;
    refresh();
    open(name);
}

void HomePage::open(const QString& name)
{
    m_list->setCurrentRow(m_profiles->row(name));
    const int result = m_links.open(name);
    if (result < 0)
        tell(name, resultMessage(result));
}

void HomePage::disconnectCurrent()
{
    m_links.closeOf(current());
}

void HomePage::chooseAndConnect()
{
    QString name = current();
    const int result = getProfileNamebySelect(name);
    if (result == 0)
        open(name);
    else if (result != VORN_ERR_NONE_CHOSEN)
        tell(title(), resultMessage(result));
    else if (m_profiles->rowCount() == 0)
        connectCurrent();
}

void HomePage::create()
{
    QString name;
    const int result = createProfilebyUser(name);
    refresh();
    if (result == 0)
        m_list->setCurrentRow(m_profiles->row(name));
}

// The wizard says nothing of a profile that is gone, and closes without a word where it could not
// be stored.
void HomePage::runWizard(const QString& name, int (*wizard)(QString& name))
{
    const int valid = NAPI_IsProfileValid(name.toUtf8().constData());
    QString asked = name;
    const int ended = valid < 0 ? 0 : wizard(asked);
    const int after = ended == 2 ? NAPI_IsProfileValid(name.toUtf8().constData()) : valid;
    refresh();
    if (after < 0)
        return tell(name, resultMessage(after));
    if (ended == 2)
        tell(name, text("TXT_RID_PHONE_NOT_STORED", "Nothing was stored. The log says why."));
}

void HomePage::edit()
{
    runWizard(current(), editProfilebyUser);
}

void HomePage::copy()
{
    runWizard(current(), copyProfilebyUser);
}

void HomePage::remove()
{
    const QString name = current();
    if (name.isEmpty() || !ask(text("TXT_RID_PHONE_MENU_DELETE", "Delete"),
                               text("TXT_RID_PHONE_DELETE_ASKED", "Delete %1?").arg(name)))
        return;
    m_links.closeOf(name);
    int result = 0;
    work(text("TXT_RID_PHONE_MENU_DELETE", "Delete"),
         [&](Progress&) { result = napihost::deleteProfile(name.toUtf8().constData()); });
    refresh();
    if (result < 0)
        tell(name, resultMessage(result));
}

void HomePage::mark()
{
    Settings::instance().setText(settingnames::chosen, current());
    m_profiles->setDefaultName(current());
}

void HomePage::openPage(Page* page)
{
    delete m_page;
    m_page = page;
    page->show();
}

void HomePage::importSome()
{
    auto* page = new ImportPage(nullptr, QDir::homePath());
    connect(page, SIGNAL(imported()), SLOT(refresh()));
    openPage(page);
}

void HomePage::exportSome()
{
    QStringList names;
    for (int row = 0; row < m_profiles->rowCount(); ++row)
        if (!m_profiles->isDamaged(row))
            names << m_profiles->name(row);
    const bool isUsable = !m_profiles->isDamaged(m_list->currentRow());
    openPage(new ExportPage(nullptr, isUsable ? current() : QString(), names, QDir::homePath()));
}

void HomePage::openLinks()
{
    auto* page = new LinksPage(nullptr, m_links);
    page->select(current());
    openPage(page);
}

void HomePage::openSettings()
{
    auto* page = new SettingsPage;
    connect(page, SIGNAL(chosen(QString)), SIGNAL(chosen(QString)));
    openPage(page);
}

void HomePage::openLog()
{
    auto* page = new TextPage(nullptr, "log", text("TXT_RID_PHONE_TITLE_LOG", "Log"));
    page->setText(logText(), text("TXT_RID_PHONE_LOG_EMPTY", "Nothing was logged."));
    openPage(page);
    page->scrollToEnd();
}

void HomePage::quit()
{
    if (m_links.profiles().isEmpty() ||
        ask(text("TXT_RID_PHONE_MENU_EXIT", "Exit"),
            text("TXT_RID_PHONE_EXIT_ASKED", "Open links are closed. Exit?")))
        emit exitChosen();
}

} // namespace phone
