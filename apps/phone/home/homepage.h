// The home page: the stored profiles, and what can be done with one.
#ifndef PHONE_HOME_HOMEPAGE_H
#define PHONE_HOME_HOMEPAGE_H

#include <QFileSystemWatcher>
#include <QPointer>

#include "page.h"

class QStackedWidget;

namespace phone {

class CardList;
class LinkBook;
class ProfileModel;

class HomePage : public Page
{
    Q_OBJECT

public:
    HomePage(QWidget* owner, LinkBook& links);
    ~HomePage() override;

    ProfileModel& profiles() { return *m_profiles; }

public slots:
    // Lists the profiles anew; the cursor stays on its profile, or its place.
    void refresh();

signals:
    // The user has made a choice of settingnames.
    void chosen(const QString& name);
    void exitChosen();

protected:
    void showEvent(QShowEvent* event) override;

private slots:
    void openOptions();
    void openMenuOfPhone();
    void activate();
    void connectCurrent();
    void disconnectCurrent();
    void chooseAndConnect();
    void create();
    void edit();
    void copy();
    void remove();
    void mark();
    void importSome();
    void exportSome();
    void openLinks();
    void openSettings();
    void openLog();
    void quit();
    void cardChanged();

private:
    QString current() const;
    void open(const QString& name);
    void runWizard(const QString& name, int (*wizard)(QString& name));
    void showListOrHint();
    void watchStore();
    void openPage(Page* page);

    LinkBook& m_links;
    ProfileModel* m_profiles;
    CardList* m_list;
    QStackedWidget* m_stack;
    QFileSystemWatcher m_watcher;
    QPointer<Page> m_page; // what was opened last from here
};

} // namespace phone

#endif
