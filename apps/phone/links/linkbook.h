// The links that this program has opened.
#ifndef PHONE_LINKS_LINKBOOK_H
#define PHONE_LINKS_LINKBOOK_H

#include <vector>

#include <QDateTime>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <ydatasessionmanager.h>

namespace phone {

struct Traffic
{
    qint64 received = 0; // bytes
    qint64 sent = 0;
};

struct Link
{
    int id = -1;
    QString profile;
    bool isUp = false; // otherwise it is being opened
    // Of a link that is up.
    QString device;
    QString address;
    int bearer = 0; // a NapiBearerKind
    QStringList nameServers;
    QDateTime since;
    Traffic before; // what the device had carried when the link came up
};

// Opens, watches and closes links with the library's manager. Links that are open when the book
// goes are closed.
class LinkBook : public QObject
{
    Q_OBJECT

public:
    explicit LinkBook(QObject* parent = nullptr);
    ~LinkBook() override;

    // Begins to open a link, with the manager's popup. Result: the link id, or the error of
    // YDataSessionManager::openLink() or init().
    int open(const QString& profile);

    // Result: that of YDataSessionManager::closeLink().
    int close(int id);
    void closeOf(const QString& profile);
    void closeAll();

    // Binds a socket to a link. Result: that of YDataSessionManager::bindSocket2Link().
    int bindSocket(int id, int socket);

    const std::vector<Link>& links() const { return m_links; }
    const Link* find(int id) const;
    // The profiles of the links that are up.
    QSet<QString> profiles() const;

    // What the link's device has carried since the link came up.
    static Traffic traffic(const Link& link);

    // Whether bytes are coming or going now, as far as somebody looks.
    bool isActive() const { return m_isActive; }
    void setActive(bool isActive);

signals:
    void activityChanged();
    // Links have come or gone, or one is up now.
    void changed();
    void connected(const QString& profile);
    void failed(const QString& profile, int cause, int detail);
    void broken(const QString& profile, int id);

private slots:
    void linkUp(int id, YLinkInfo& info);
    void linkFailed(int id, unsigned short cause, unsigned short detail);
    void linkBroken(int id, YLinkInfo& info);

private:
    int start();
    Link* findMutable(int id);
    Link take(int id);

    YDataSessionManager* m_manager;
    bool m_isStarted = false;
    bool m_isActive = false;
    std::vector<Link> m_links;
};

} // namespace phone

#endif
