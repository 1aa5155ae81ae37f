// Opens a link for a stored profile, fetches a page over it, and closes it again:
//     vorn-example PROFILE URL [SECONDS]
// The page must be there SECONDS after the link is (default: 30).

#include <QHostAddress>
#include <QTcpSocket>
#include <QTextStream>
#include <QTimer>
#include <QUrl>

#include <vornqtnapi_texts.h>
#include <yapplication.h>
#include <ydatasessionmanager.h>

class Fetcher : public QObject
{
    Q_OBJECT

public:
    Fetcher(const QUrl& page, int seconds) : m_url(page)
    {
        m_limit.setSingleShot(true);
        m_limit.setInterval(seconds * 1000);
        connect(&m_manager, SIGNAL(connected(int, YLinkInfo&)), SLOT(online(int, YLinkInfo&)));
        connect(&m_manager, SIGNAL(openFailed(int, unsigned short, unsigned short)),
                SLOT(failed(int, unsigned short, unsigned short)));
        connect(&m_manager, SIGNAL(broken(int, YLinkInfo&)), SLOT(broken(int)));
        connect(&m_socket, SIGNAL(connected()), SLOT(request()));
        // The server ends its answer by closing the connection, which a socket reports as an error.
        connect(&m_socket, SIGNAL(errorOccurred(QAbstractSocket::SocketError)), SLOT(ended()));
        connect(&m_limit, SIGNAL(timeout()), SLOT(tooLate()));
    }

    bool start(const QString& profile)
    {
        int result = m_manager.init(false);
        if (result >= 0)
            result = m_link = m_manager.openLink(profile);
        if (result < 0)
            say(QString("cannot open a link for \"%1\": %2").arg(profile, described(result)));
        else
            say(QString("opening link %1 for \"%2\"").arg(m_link).arg(profile));
        return result >= 0;
    }

private slots:
    void online(int id, YLinkInfo& info)
    {
        QString device;
        unsigned long address = 0;
        m_manager.getDeviceInfo(id, device, &address);
        const char* const bearers[] = {"unknown", "GPRS", "CSD", "WiFi"};
        say(QString("connected: link %1, device %2, address %3, bearer %4")
                .arg(id)
                .arg(device, QHostAddress(quint32(address)).toString(),
                     bearers[info.infoByte < 4 ? info.infoByte : 0]));
        if (int result = m_manager.dnsResolverConfig(id); result != 0)
            say("the name servers could not be set: " + described(result));

        // A socket gets its descriptor with bind(); it must belong to the link before it connects.
        m_socket.bind(QHostAddress(QHostAddress::AnyIPv4));
        const int result = m_manager.bindSocket2Link(id, int(m_socket.socketDescriptor()));
        if (result != 0)
            return finish("the socket could not be bound: " + described(result), 1);
        say(QString("socket bound to link %1").arg(id));
        m_socket.connectToHost(m_url.host(), quint16(m_url.port(80)), QIODevice::ReadWrite,
                               QAbstractSocket::IPv4Protocol);
        m_limit.start();
    }

    void failed(int id, unsigned short cause1, unsigned short cause2)
    {
        say(QString("opening link %1 failed: %2 (cause %3, detail %4)")
                .arg(id)
                .arg(vornCauseText(cause1))
                .arg(cause1)
                .arg(cause2));
        qApp->exit(1);
    }

    void broken(int id) { finish(QString("link %1 broke").arg(id), 1); }

    void request()
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

    void ended()
    {
        const QByteArray answer = m_socket.readAll();
        const qsizetype head = answer.indexOf("\r\n\r\n");
        const QString status = QString::fromLatin1(answer.left(answer.indexOf("\r\n")));
        if (answer.isEmpty())
            return finish(QString("no page: %1").arg(m_socket.errorString()), 1);
        if (head < 0 || !status.contains(" 200 "))
            return finish(QString("no page: \"%1\"").arg(status), 1);
        const qsizetype size = answer.size() - head - 4;
        const qsizetype whole = contentLength(answer.left(head), size);
        if (size < whole)
            return finish(QString("no page: only %1 of %2 bytes came").arg(size).arg(whole), 1);
        finish(QString("fetched %1: %2 bytes").arg(m_url.toString()).arg(size), 0);
    }

    void tooLate() { finish(QString("no page within %1 s").arg(m_limit.interval() / 1000), 1); }

private:
    static qsizetype contentLength(const QByteArray& head, qsizetype unknown)
    {
        for (const QByteArray& line : head.split('\n')) {
            if (line.toLower().startsWith("content-length:"))
                return line.mid(line.indexOf(':') + 1).trimmed().toLongLong();
        }
        return unknown;
    }

    // "no such profile (NAPI_ERR_NO_PROFILE, -204)"
    static QString described(int result)
    {
        return QString("%1 (%2, %3)")
            .arg(vornResultText(result), vornResultName(result))
            .arg(result);
    }

    void finish(const QString& text, int status)
    {
        // Whatever ended it, nothing that is still under way may end it again.
        for (QObject* sender : std::initializer_list<QObject*>{&m_manager, &m_socket, &m_limit})
            sender->disconnect(this);
        say(text);
        const int result = m_manager.closeLink(m_link);
        say(result == 0 ? QString("link %1 closed").arg(m_link)
                        : QString("link %1 could not be closed: ").arg(m_link) + described(result));
        qApp->exit(status);
    }

    void say(const QString& text) { QTextStream(stdout) << text << Qt::endl; }

    QUrl m_url;
    YDataSessionManager m_manager;
    QTcpSocket m_socket;
    QTimer m_limit;
    int m_link = -1;
};

int main(int argc, char** argv)
{
    YApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    const QUrl url(arguments.value(2));
    const int seconds = arguments.value(3, "30").toInt();
    if (argc < 3 || argc > 4 || url.scheme() != "http" || url.host().isEmpty() || seconds < 1 ||
        seconds > 3600) {
        QTextStream(stderr)
            << "usage: vorn-example PROFILE http://HOST[:PORT]/PATH [SECONDS] (http only)"
            << Qt::endl;
        return 2;
    }
    Fetcher fetcher(url, seconds);
    return fetcher.start(arguments.at(1)) ? app.exec() : 1;
}

#include "main.moc"
