// Opens a link for a stored profile, fetches a page over it, and closes it again:
//     vorn-example PROFILE URL

#include <QHostAddress>
#include <QTcpSocket>
#include <QTextStream>
#include <QTimer>
#include <QUrl>

#include <yapplication.h>
#include <ydatasessionmanager.h>

class Fetcher : public QObject
{
    Q_OBJECT

public:
    explicit Fetcher(const QUrl& page) : url(page)
    {
        connect(&manager, SIGNAL(connected(int, YLinkInfo&)), SLOT(online(int, YLinkInfo&)));
        connect(&manager, SIGNAL(openFailed(int, unsigned short, unsigned short)),
                SLOT(failed(int, unsigned short, unsigned short)));
        connect(&manager, SIGNAL(broken(int, YLinkInfo&)), SLOT(broken(int)));
        connect(&socket, SIGNAL(connected()), SLOT(request()));
        connect(&socket, SIGNAL(disconnected()), SLOT(received()));
        connect(&socket, SIGNAL(errorOccurred(QAbstractSocket::SocketError)), SLOT(noPage()));
    }

    bool start(const QString& profile)
    {
        int result = manager.init(false);
        if (result >= 0)
            result = link = manager.openLink(profile);
        if (result < 0)
            say(QString("cannot open a link for \"%1\": result %2").arg(profile).arg(result));
        else
            say(QString("opening link %1 for \"%2\"").arg(link).arg(profile));
        return result >= 0;
    }

private slots:
    void online(int id, YLinkInfo& info)
    {
        QString device;
        unsigned long address = 0;
        manager.getDeviceInfo(id, device, &address);
        const char* const bearers[] = {"unknown", "GPRS", "CSD", "WiFi"};
        say(QString("connected: link %1, device %2, address %3, bearer %4")
                .arg(id)
                .arg(device, QHostAddress(quint32(address)).toString(),
                     bearers[info.infoByte < 4 ? info.infoByte : 0]));
        if (int result = manager.dnsResolverConfig(id); result != 0)
            say(QString("the name servers could not be set: result %1").arg(result));

        // A socket gets its descriptor with bind(); it must belong to the link before it connects.
        socket.bind(QHostAddress(QHostAddress::AnyIPv4));
        const int result = manager.bindSocket2Link(id, int(socket.socketDescriptor()));
        if (result != 0)
            return finish(QString("the socket could not be bound: result %1").arg(result), 1);
        say(QString("socket bound to link %1").arg(id));
        socket.connectToHost(url.host(), quint16(url.port(80)), QIODevice::ReadWrite,
                             QAbstractSocket::IPv4Protocol);
        QTimer::singleShot(pageLimitMs, this, SLOT(tooLate()));
    }

    void failed(int id, unsigned short cause1, unsigned short cause2)
    {
        // The causes have names in napi.h: NapiCause.
        say(QString("opening link %1 failed: cause %2, detail %3").arg(id).arg(cause1).arg(cause2));
        qApp->exit(1);
    }

    void broken(int id) { finish(QString("link %1 broke").arg(id), 1); }

    void request()
    {
        const QUrl::FormattingOptions pathAndQuery(QUrl::RemoveScheme | QUrl::RemoveAuthority |
                                                   QUrl::RemoveFragment);
        const QByteArray path = url.toEncoded(pathAndQuery);
        QByteArray host = url.host(QUrl::FullyEncoded).toLatin1();
        if (url.port() > 0)
            host += ':' + QByteArray::number(url.port());
        socket.write("GET " + (path.startsWith('/') ? path : '/' + path) +
                     " HTTP/1.0\r\nHost: " + host + "\r\n\r\n");
    }

    void received()
    {
        const QByteArray answer = socket.readAll();
        const qsizetype head = answer.indexOf("\r\n\r\n");
        const QString status = QString::fromLatin1(answer.left(answer.indexOf("\r\n")));
        if (head < 0 || !status.contains(" 200 "))
            return finish(QString("no page: \"%1\"").arg(status), 1);
        finish(QString("fetched %1: %2 bytes").arg(url.toString()).arg(answer.size() - head - 4),
               0);
    }

    void tooLate() { finish(QString("no page within %1 s").arg(pageLimitMs / 1000), 1); }

    void noPage()
    {
        if (socket.error() != QAbstractSocket::RemoteHostClosedError)
            finish(QString("no page: %1").arg(socket.errorString()), 1);
    }

private:
    void finish(const QString& text, int status)
    {
        say(text);
        const int result = manager.closeLink(link);
        say(result == 0 ? QString("link %1 closed").arg(link)
                        : QString("link %1 could not be closed: result %2").arg(link).arg(result));
        qApp->exit(status);
    }

    void say(const QString& text) { QTextStream(stdout) << text << Qt::endl; }

    static const int pageLimitMs = 30000;

    QUrl url;
    YDataSessionManager manager;
    QTcpSocket socket;
    int link = -1;
};

int main(int argc, char** argv)
{
    YApplication app(argc, argv);
    const QUrl url(app.arguments().value(2));
    if (argc != 3 || url.scheme() != "http" || url.host().isEmpty()) {
        QTextStream(stderr) << "usage: vorn-example PROFILE http://HOST[:PORT]/PATH (http only)"
                            << Qt::endl;
        return 2;
    }
    Fetcher fetcher(url);
    return fetcher.start(app.arguments().at(1)) ? app.exec() : 1;
}

#include "main.moc"
