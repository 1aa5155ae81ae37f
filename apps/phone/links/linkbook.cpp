#include "links/linkbook.h"

#include <algorithm>

#include <QFile>
#include <QHostAddress>

#include <napi.h>
#include <network/napi_host.h>
#include <toolkit/yscreen.h>
#include <ystatedialog.h>

#include "texts/phone_text.h"

namespace phone {

namespace {

qint64 counter(const QString& device, const char* name)
{
    QFile file(QStringLiteral("/sys/class/net/%1/statistics/%2").arg(device, QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toLongLong() : 0;
}

Traffic countersOf(const QString& device)
{
    return {counter(device, "rx_bytes"), counter(device, "tx_bytes")};
}

// Those that dnsResolverConfig() has just written.
QStringList resolverServers()
{
    QStringList servers;
    QFile file(QString::fromStdString(napihost::rootFolder()) + QStringLiteral("/etc/resolv.conf"));
    if (!file.open(QIODevice::ReadOnly))
        return servers;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QList<QByteArray> words = line.simplified().split(' ');
        if (words.size() == 2 && words[0] == "nameserver")
            servers << QString::fromLatin1(words[1]);
    }
    return servers;
}

// The manager shows its popup from within openLink(), without a text.
void nameOpening(const QString& profile)
{
    if (auto* popup = qobject_cast<YStateDialog*>(YScreen::instance()->activeLayer()))
        popup->setStateString(text("TXT_RID_PHONE_CONNECTING", "Connecting to %1").arg(profile));
}

} // namespace

LinkBook::LinkBook(QObject* parent) : QObject(parent), m_manager(new YDataSessionManager(this))
{
    connect(m_manager, SIGNAL(connected(int, YLinkInfo&)), SLOT(linkUp(int, YLinkInfo&)));
    connect(m_manager, SIGNAL(openFailed(int, unsigned short, unsigned short)),
            SLOT(linkFailed(int, unsigned short, unsigned short)));
    connect(m_manager, SIGNAL(broken(int, YLinkInfo&)), SLOT(linkBroken(int, YLinkInfo&)));
}

LinkBook::~LinkBook()
{
    closeAll();
}

// The network API is started with the first link: its thread is nothing that a home page needs.
int LinkBook::start()
{
    const int result = m_isStarted ? 0 : m_manager->init(false);
    m_isStarted = result >= 0;
    return result;
}

int LinkBook::open(const QString& profile)
{
    int result = start();
    if (result >= 0)
        result = m_manager->openLink(profile);
    if (result < 0)
        return result;
    // An id that comes again while its old link is listed still is that of a link that is gone.
    take(result);
    Link link;
    link.id = result;
    link.profile = profile;
    m_links.push_back(link);
    nameOpening(profile);
    emit changed();
    return result;
}

int LinkBook::close(int id)
{
    const int result = m_manager->closeLink(id);
    take(id);
    emit changed();
    return result;
}

void LinkBook::closeOf(const QString& profile)
{
    const std::vector<Link> before = m_links;
    for (const Link& link : before)
        if (link.profile == profile)
            close(link.id);
}

void LinkBook::closeAll()
{
    while (!m_links.empty())
        close(m_links.back().id);
}

int LinkBook::bindSocket(int id, int socket)
{
    return m_manager->bindSocket2Link(id, socket);
}

const Link* LinkBook::find(int id) const
{
    const auto found = std::find_if(m_links.begin(), m_links.end(),
                                    [id](const Link& link) { return link.id == id; });
    return found == m_links.end() ? nullptr : &*found;
}

Link* LinkBook::findMutable(int id)
{
    return const_cast<Link*>(find(id));
}

Link LinkBook::take(int id)
{
    const auto found = std::find_if(m_links.begin(), m_links.end(),
                                    [id](const Link& link) { return link.id == id; });
    if (found == m_links.end())
        return Link();
    const Link taken = *found;
    m_links.erase(found);
    return taken;
}

QSet<QString> LinkBook::profiles() const
{
    QSet<QString> names;
    for (const Link& link : m_links)
        if (link.isUp)
            names.insert(link.profile);
    return names;
}

Traffic LinkBook::traffic(const Link& link)
{
    const Traffic now = countersOf(link.device);
    return {std::max<qint64>(0, now.received - link.before.received),
            std::max<qint64>(0, now.sent - link.before.sent)};
}

void LinkBook::setActive(bool isActive)
{
    if (m_isActive == isActive)
        return;
    m_isActive = isActive;
    emit activityChanged();
}

void LinkBook::linkUp(int id, YLinkInfo& info)
{
    Link* link = findMutable(id);
    if (!link || link->isUp)
        return;
    unsigned long address = info.infoWord;
    link->device = QString::fromUtf8(info.infoText);
    m_manager->getDeviceInfo(id, link->device, &address);
    link->isUp = true;
    link->address = address == 0 ? QString() : QHostAddress(quint32(address)).toString();
    link->bearer = int(info.infoByte);
    if (m_manager->dnsResolverConfig(id) >= 0)
        link->nameServers = resolverServers();
    link->since = QDateTime::currentDateTime();
    link->before = countersOf(link->device);
    const QString profile = link->profile;
    emit changed();
    emit connected(profile);
}

void LinkBook::linkFailed(int id, unsigned short cause, unsigned short detail)
{
    const Link link = take(id);
    if (link.id < 0)
        return;
    emit changed();
    // Who has cancelled knows it.
    if (cause != NAPI_CAUSE_CANCELLED)
        emit failed(link.profile, cause, detail);
}

void LinkBook::linkBroken(int id, YLinkInfo&)
{
    const Link link = take(id);
    if (link.id < 0)
        return;
    m_manager->closeLink(id);
    emit changed();
    emit broken(link.profile, id);
}

} // namespace phone
