// The page on which an address is typed, and from which its page is fetched.
#ifndef PHONE_FETCH_FETCHPAGE_H
#define PHONE_FETCH_FETCHPAGE_H

#include <memory>

#include "page.h"

class YLineEdit;
class YStateDialog;

namespace phone {

class Fetcher;
class LinkBook;
class TextPage;

class FetchPage : public Page
{
    Q_OBJECT

public:
    // The page is fetched through the link `link`.
    FetchPage(QWidget* owner, LinkBook& book, int link);
    ~FetchPage() override;

public slots:
    void hide() override;

private slots:
    void fetch();
    void cancel();
    void progressed(qint64 received, qint64 all);
    void finished(const QString& text);
    void failed(const QString& why);

private:
    void end();

    LinkBook& m_book;
    int m_link;
    YLineEdit* m_address;
    std::unique_ptr<Fetcher> m_fetcher;
    std::unique_ptr<YStateDialog> m_popup;
    std::unique_ptr<TextPage> m_text;
};

} // namespace phone

#endif
