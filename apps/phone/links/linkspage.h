// The page that shows the links live.
#ifndef PHONE_LINKS_LINKSPAGE_H
#define PHONE_LINKS_LINKSPAGE_H

#include <memory>

#include <QBasicTimer>

#include "page.h"

class QStackedWidget;

namespace phone {

class CardList;
class FetchPage;
class LinkBook;
class LinkModel;

// Looks at the links once a second while it is shown, and never otherwise.
class LinksPage : public Page
{
    Q_OBJECT

public:
    LinksPage(QWidget* owner, LinkBook& book);
    ~LinksPage() override;

    // The cursor goes to the link of this profile, where there is one.
    void select(const QString& profile);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private slots:
    void openOptions();
    void refresh();
    void closeLink();
    void breakLink();
    void failNext();
    void fetch();

private:
    int current() const;

    LinkBook& m_book;
    LinkModel* m_model;
    CardList* m_list;
    QStackedWidget* m_stack;
    std::unique_ptr<FetchPage> m_fetch;
    QBasicTimer m_second;
    int m_selected = -1; // the link under the cursor
    qint64 m_bytes = 0;  // of all links, at the last look
};

} // namespace phone

#endif
