#include "links/linkspage.h"

#include <algorithm>

#include <QStackedWidget>
#include <QTimerEvent>

#include <network/napi_host.h>
#include <ysoftkey.h>

#include "cards/cardlist.h"
#include "cards/emptyhint.h"
#include "fetch/fetchpage.h"
#include "links/linkbook.h"
#include "links/linkmodel.h"
#include "messages/failures.h"
#include "messages/messages.h"
#include "texts/phone_text.h"

namespace phone {

namespace {

constexpr int secondMs = 1000;

QString title()
{
    return text("TXT_RID_PHONE_TITLE_LINKS", "Links");
}

} // namespace

LinksPage::LinksPage(QWidget* owner, LinkBook& book)
    : Page(owner, "links", title()),
      m_book(book),
      m_model(new LinkModel(this, book)),
      m_list(new CardList(this, LinkModel::lines)),
      m_stack(new QStackedWidget(this))
{
    m_list->setModel(m_model);
    m_list->setAccessibleName(title());
    m_stack->addWidget(m_list);
    m_stack->addWidget(new EmptyHint(
        m_stack, text("TXT_RID_PHONE_LINKS_EMPTY", "No open links"),
        text("TXT_RID_PHONE_LINKS_EMPTY_HINT", "Go back and choose a connection to open one.")));
    setContentWidget(m_stack);
    setKey(0, text("TXT_RID_PHONE_KEY_OPTIONS", "Options"), SLOT(openOptions()));
    setKey(1, text("TXT_RID_PHONE_KEY_BACK", "Back"), SLOT(goBack()));
    connect(m_list, SIGNAL(activated(QModelIndex)), SLOT(openOptions()));
    connect(&m_book, SIGNAL(changed()), SLOT(refresh()));
    refresh();
}

LinksPage::~LinksPage() = default;

void LinksPage::select(const QString& profile)
{
    for (const Link& link : m_book.links())
        if (link.profile == profile)
            m_selected = link.id;
    refresh();
}

int LinksPage::current() const
{
    return m_model->id(m_list->currentRow());
}

// The model has forgotten the cursor; it stays on its link, or its place.
void LinksPage::refresh()
{
    int row = 0;
    for (int i = 0; i < m_model->rowCount(); ++i)
        if (m_model->id(i) == m_selected)
            row = i;
    m_list->setCurrentRow(row);
    const bool isEmpty = m_model->rowCount() == 0;
    m_stack->setCurrentIndex(isEmpty ? 1 : 0);
    softKey()->showButton(0, !isEmpty);
}

void LinksPage::showEvent(QShowEvent* event)
{
    Page::showEvent(event);
    m_second.start(secondMs, this);
}

void LinksPage::hideEvent(QHideEvent* event)
{
    Page::hideEvent(event);
    m_second.stop();
    m_book.setActive(false);
}

void LinksPage::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_second.timerId())
        return Page::timerEvent(event);
    m_model->tick();
    qint64 bytes = 0;
    for (const Link& link : m_book.links()) {
        const Traffic traffic = LinkBook::traffic(link);
        bytes += traffic.received + traffic.sent;
    }
    m_book.setActive(bytes != m_bytes);
    m_bytes = bytes;
}

void LinksPage::openOptions()
{
    m_selected = current();
    std::vector<MenuItem> items = {
        {text("TXT_RID_PHONE_MENU_FETCH", "Fetch a page"), SLOT(fetch())},
        {text("TXT_RID_PHONE_MENU_CLOSE", "Disconnect"), SLOT(closeLink())}};
    if (napihost::playsScenario()) {
        items.push_back({text("TXT_RID_PHONE_MENU_BREAK", "Break it"), SLOT(breakLink())});
        items.push_back({text("TXT_RID_PHONE_MENU_FAIL", "Fail the next one"), SLOT(failNext())});
    }
    openMenu(items);
}

void LinksPage::closeLink()
{
    const int result = m_book.close(m_selected);
    if (result < 0)
        tell(title(), resultMessage(result));
}

void LinksPage::breakLink()
{
    const int result = napihost::breakLink(m_selected);
    if (result < 0)
        tell(title(), resultMessage(result));
}

void LinksPage::failNext()
{
    napihost::failNextOpening(NAPI_CAUSE_NO_SERVICE, 0);
    notice(text("TXT_RID_PHONE_LINK_WILL_FAIL", "The next connection will fail."));
}

void LinksPage::fetch()
{
    m_fetch = std::make_unique<FetchPage>(nullptr, m_book, m_selected);
    m_fetch->show();
}

} // namespace phone
