#include "fetch/fetchpage.h"

#include <QLocale>
#include <QUrl>

#include <yformcontainer.h>
#include <ylineedit.h>
#include <ypressbutton.h>
#include <ysoftkey.h>
#include <ystatedialog.h>

#include "fetch/fetcher.h"
#include "fetch/textpage.h"
#include "links/linkbook.h"
#include "messages/messages.h"
#include "settings/settings.h"
#include "texts/phone_text.h"

namespace phone {

namespace {

QString title()
{
    return text("TXT_RID_PHONE_MENU_FETCH", "Fetch a page");
}

QString sizeText(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 0, QLocale::DataSizeSIFormat);
}

} // namespace

FetchPage::FetchPage(QWidget* owner, LinkBook& book, int link)
    : Page(owner, "fetch", title()), m_book(book), m_link(link)
{
    auto* form = new YFormContainer(this, "form", YSkinService::FormContainer);
    m_address = new YLineEdit(form->viewport(), "address", YSkinService::FormLineEdit);
    m_address->setLabel(text("TXT_RID_PHONE_FETCH_ADDRESS", "Address"));
    m_address->setMaxLength(2000);
    m_address->setText(Settings::instance().text(settingnames::page, QStringLiteral("http://")));
    form->addChild(m_address, true, nullptr);
    auto* button = new YPressButton(form->viewport(), "fetch", YSkinService::FormPressButton);
    button->setText(title());
    connect(button, SIGNAL(clicked()), SLOT(fetch()));
    form->addChild(button, true, nullptr);
    setContentWidget(form);
    setKey(0, text("TXT_RID_PHONE_KEY_FETCH", "Fetch"), SLOT(fetch()));
    setKey(1, text("TXT_RID_PHONE_KEY_BACK", "Back"), SLOT(goBack()));
}

FetchPage::~FetchPage() = default;

void FetchPage::hide()
{
    end();
    Page::hide();
}

void FetchPage::fetch()
{
    const QUrl url(m_address->text().trimmed(), QUrl::StrictMode);
    if (!url.isValid() || url.scheme() != QLatin1String("http") || url.host().isEmpty())
        return tell(title(),
                    text("TXT_RID_PHONE_FETCH_URL",
                         "Type an address such as http://host/page. Only http is fetched."));
    Settings::instance().setText(settingnames::page, url.toString());
    m_fetcher = std::make_unique<Fetcher>(m_book, m_link, url);
    connect(m_fetcher.get(), SIGNAL(progressed(qint64, qint64)), SLOT(progressed(qint64, qint64)));
    connect(m_fetcher.get(), SIGNAL(finished(QString)), SLOT(finished(QString)),
            Qt::QueuedConnection);
    connect(m_fetcher.get(), SIGNAL(failed(QString)), SLOT(failed(QString)), Qt::QueuedConnection);
    m_popup = std::make_unique<YStateDialog>();
    m_popup->setStateString(text("TXT_RID_PHONE_FETCH_WAITING", "Waiting for %1").arg(url.host()));
    m_popup->getSoftKey()->setClickedSlot(YSoftKey::Right, this, SLOT(cancel()));
    m_popup->show();
    m_book.setActive(true);
    m_fetcher->start();
}

void FetchPage::progressed(qint64 received, qint64 all)
{
    if (!m_popup)
        return;
    m_popup->setStateString(
        all < 0
            ? text("TXT_RID_PHONE_FETCH_SOME", "%1 fetched").arg(sizeText(received))
            : text("TXT_RID_PHONE_FETCH_OF", "%1 of %2").arg(sizeText(received), sizeText(all)));
}

// The popup's key is being pressed, and the fetcher may be what has called.
void FetchPage::cancel()
{
    QMetaObject::invokeMethod(
        this, [this] { end(); }, Qt::QueuedConnection);
}

void FetchPage::end()
{
    if (m_fetcher)
        m_book.setActive(false);
    m_popup.reset();
    m_fetcher.reset();
}

void FetchPage::finished(const QString& page)
{
    if (!m_fetcher)
        return;
    end();
    m_text = std::make_unique<TextPage>(nullptr, "text", QUrl(m_address->text().trimmed()).host());
    m_text->setText(page);
    m_text->show();
}

void FetchPage::failed(const QString& why)
{
    if (!m_fetcher)
        return;
    end();
    tell(title(), why);
}

} // namespace phone
