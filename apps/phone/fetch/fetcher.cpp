#include "fetch/fetcher.h"

#include <QHostAddress>
#include <QTextDocumentFragment>
#include <QTimerEvent>

#include "links/linkbook.h"
#include "messages/failures.h"
#include "texts/phone_text.h"

namespace phone {

namespace {

constexpr int silenceMs = 30 * 1000;

QByteArray valueIn(const QByteArray& head, const char* name)
{
    for (const QByteArray& line : head.split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0 && line.left(colon).trimmed().toLower() == name)
            return line.mid(colon + 1).trimmed();
    }
    return QByteArray();
}

QString brokenText()
{
    return text("TXT_RID_PHONE_FETCH_BROKEN", "The link broke before the page was there.");
}

} // namespace

Fetcher::Fetcher(LinkBook& book, int link, const QUrl& url) : m_book(book), m_link(link), m_url(url)
{
    connect(&m_socket, SIGNAL(connected()), SLOT(request()));
    connect(&m_socket, SIGNAL(readyRead()), SLOT(receive()));
    // The server ends its answer by closing the connection, which a socket reports as an error.
    connect(&m_socket, SIGNAL(errorOccurred(QAbstractSocket::SocketError)), SLOT(ended()));
    connect(&m_book, SIGNAL(broken(QString, int)), SLOT(linkBroken(QString, int)));
}

// A socket gets its descriptor with bind(); it must belong to the link before it connects.
void Fetcher::start()
{
    m_silence.start(silenceMs, this);
    m_socket.bind(QHostAddress(QHostAddress::AnyIPv4));
    const int result = m_book.bindSocket(m_link, int(m_socket.socketDescriptor()));
    if (result < 0) {
        const QString why = resultMessage(result);
        QMetaObject::invokeMethod(
            this, [this, why] { fail(why); }, Qt::QueuedConnection);
        return;
    }
    m_socket.connectToHost(m_url.host(), quint16(m_url.port(80)), QIODevice::ReadWrite,
                           QAbstractSocket::IPv4Protocol);
}

void Fetcher::request()
{
    const QUrl::FormattingOptions pathAndQuery(QUrl::RemoveScheme | QUrl::RemoveAuthority |
                                               QUrl::RemoveFragment);
    const QByteArray path = m_url.toEncoded(pathAndQuery);
    QByteArray host = m_url.host(QUrl::FullyEncoded).toLatin1();
    if (m_url.port() > 0)
        host += ':' + QByteArray::number(m_url.port());
    m_socket.write("GET " + (path.startsWith('/') ? path : '/' + path) +
                   " HTTP/1.0\r\nHost: " + host + "\r\n\r\n");
}

void Fetcher::receive()
{
    m_silence.start(silenceMs, this);
    m_answer += m_socket.read(largest + 1 - m_answer.size());
    if (m_head < 0)
        readHead();
    if (m_head >= 0)
        emit progressed(m_answer.size() - m_head, m_announced);
    if (m_answer.size() > largest)
        ended();
}

void Fetcher::readHead()
{
    const qsizetype end = m_answer.indexOf("\r\n\r\n");
    if (end < 0)
        return;
    m_head = end + 4;
    bool isNumber = false;
    const qint64 length = valueIn(m_answer.left(end), "content-length").toLongLong(&isNumber);
    m_announced = isNumber && length >= 0 ? length : -1;
}

void Fetcher::ended()
{
    if (m_isEnded)
        return;
    if (m_answer.size() <= largest)
        m_answer += m_socket.read(largest + 1 - m_answer.size());
    if (m_head < 0)
        readHead();
    if (m_head < 0)
        return fail(m_answer.isEmpty()
                        ? m_socket.errorString()
                        : text("TXT_RID_PHONE_FETCH_NO_HTTP", "The answer is no page."));
    const QByteArray status = m_answer.left(m_answer.indexOf("\r\n"));
    if (!status.contains(" 200"))
        return fail(text("TXT_RID_PHONE_FETCH_STATUS", "The server says: %1")
                        .arg(QString::fromLatin1(status).section(' ', 1)));
    const qint64 size = m_answer.size() - m_head;
    if (size < m_announced && m_answer.size() <= largest)
        return fail(text("TXT_RID_PHONE_FETCH_PART", "Only %1 of %2 bytes came.")
                        .arg(size)
                        .arg(m_announced));
    if (end())
        emit finished(shown());
}

// A page in HTML as its text alone; any other one as it is.
QString Fetcher::shown() const
{
    const QByteArray type = valueIn(m_answer.left(m_head), "content-type").toLower();
    const QString body = QString::fromUtf8(m_answer.mid(m_head));
    return type.contains("html") ? QTextDocumentFragment::fromHtml(body).toPlainText() : body;
}

void Fetcher::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_silence.timerId())
        fail(text("TXT_RID_PHONE_FETCH_SILENT", "The server does not answer."));
}

void Fetcher::linkBroken(const QString&, int id)
{
    if (id == m_link)
        fail(brokenText());
}

bool Fetcher::end()
{
    if (m_isEnded)
        return false;
    m_isEnded = true;
    m_silence.stop();
    m_socket.disconnect(this);
    m_socket.abort();
    return true;
}

void Fetcher::fail(const QString& why)
{
    if (end())
        emit failed(why);
}

} // namespace phone
