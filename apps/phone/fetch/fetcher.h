// One page on its way through a link.
#ifndef PHONE_FETCH_FETCHER_H
#define PHONE_FETCH_FETCHER_H

#include <QBasicTimer>
#include <QTcpSocket>
#include <QUrl>

namespace phone {

class LinkBook;

// Fetches one page with HTTP/1.0 over a socket that is bound to the link before it connects. Tells
// either finished() or failed(), once, and nothing after it was deleted.
class Fetcher : public QObject
{
    Q_OBJECT

public:
    // `url` is one of http with a host.
    Fetcher(LinkBook& book, int link, const QUrl& url);

    // The outcome comes as a signal, never from within.
    void start();

    // A page is cut behind so many bytes.
    static constexpr qint64 largest = 1024 * 1024;

signals:
    // `all` is -1 where the server has not said it.
    void progressed(qint64 received, qint64 all);
    void finished(const QString& text);
    void failed(const QString& why);

protected:
    void timerEvent(QTimerEvent* event) override;

private slots:
    void request();
    void receive();
    void ended();
    void linkBroken(const QString& profile, int id);

private:
    void fail(const QString& why);
    bool end();
    void readHead();
    QString shown() const;

    LinkBook& m_book;
    int m_link;
    QUrl m_url;
    QTcpSocket m_socket;
    QBasicTimer m_silence;
    QByteArray m_answer;
    qsizetype m_head = -1;   // the length of the answer's head with the empty line behind it
    qint64 m_announced = -1; // bytes of the page, as its head says
    bool m_isEnded = false;
};

} // namespace phone

#endif
