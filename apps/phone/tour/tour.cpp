#include "tour/tour.h"

#include <cstdio>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPixmap>
#include <QWidget>

#include <setuputility.h>
#include <toolkit/ylook.h>

#include "phone.h"
#include "settings/settings.h"

namespace phone {

namespace {

// The items of the home page's two menus, by the digits that choose them.
constexpr int connectItem = Qt::Key_1;
constexpr int linksItem = Qt::Key_1;
constexpr int importItem = Qt::Key_2;
constexpr int exportItem = Qt::Key_3;
constexpr int settingsItem = Qt::Key_4;
constexpr int logItem = Qt::Key_5;
constexpr int fetchItem = Qt::Key_1; // of the links page

// The soft keys in the direction of reading; F1 is always the one on the left.
int firstKey()
{
    return QGuiApplication::isRightToLeft() ? Qt::Key_F2 : Qt::Key_F1;
}

int secondKey()
{
    return QGuiApplication::isRightToLeft() ? Qt::Key_F1 : Qt::Key_F2;
}

struct Visit
{
    int item;
    const char* page;
};

// The links page is the last one: the way goes on from there.
const Visit visits[] = {{importItem, "import"},
                        {exportItem, "export"},
                        {settingsItem, "settings"},
                        {logItem, "log"},
                        {linksItem, "links"}};

} // namespace

Tour::Tour(Phone& phone, QWidget* display, const QDir& folder)
    : m_phone(phone), m_display(display), m_folder(folder)
{
    connect(&phone.links(), SIGNAL(connected(QString)), SLOT(tellLinks()));
    connect(&m_person, SIGNAL(done()), SLOT(end()));
    connect(&m_person, SIGNAL(gaveUp(QString)), SLOT(fail(QString)));
}

void Tour::begin()
{
    // No picture shows a sheet on its way.
    YLook still = YLook::current();
    still.moves = false;
    YLook::use(still);
    look(QStringLiteral("home"), QStringLiteral("home"));
    makeConnection();
    watchItConnect();
    lookAround();
    m_person.begin();
}

// On a phone without any connection the library's own flow leads there.
void Tour::findNone()
{
    m_person.press(firstKey());
    look(QStringLiteral("menu"), QStringLiteral("options"));
    m_person.press(connectItem);
    look(QStringLiteral("YSingleSelectDlg"), QStringLiteral("no-connection"));
    m_person.press(Qt::Key_Return);
}

// From the name down to the access point the form has proxy, port and domain, and on a phone with
// WiFi the connection preference. Up from the name is the last row, the button.
void Tour::makeConnection()
{
    const int rowsToApn = SETUP_Utility().isFeatureAvailable(SETUP_FEATURE_WIFI) ? 5 : 4;
    findNone();
    look(QStringLiteral("DataConnection_NewWiz1"), QStringLiteral("new-profile"));
    m_person.press(Qt::Key_Down, rowsToApn);
    m_person.type(QStringLiteral("internet"));
    look(QStringLiteral("DataConnection_NewWiz1"), QStringLiteral("access-point"));
    m_person.press(Qt::Key_Up, rowsToApn + 1);
    m_person.press(Qt::Key_Return);
    look(QStringLiteral("DataConnection_NewWiz2"), QStringLiteral("additional-settings"));
    m_person.press(Qt::Key_Escape);
    m_person.see(QStringLiteral("DataConnection_NewWiz1"));
    m_person.press(secondKey());
    look(QStringLiteral("YNoticeDlg"), QStringLiteral("saved"));
    m_person.press(Qt::Key_Return);
}

void Tour::watchItConnect()
{
    // The link may be up before anybody has looked.
    m_person.await(QStringLiteral("see it connect"), [this] {
        return Person::isSeen(QStringLiteral("YStateDialog"))
                   ? take(QStringLiteral("connecting"))
                   : !m_phone.links().profiles().isEmpty();
    });
    look(QStringLiteral("YNoticeDlg"), QStringLiteral("connected"));
    m_person.press(Qt::Key_Return);
    look(QStringLiteral("home"), QStringLiteral("home-connected"));
}

void Tour::lookAround()
{
    for (const Visit& visit : visits) {
        m_person.press(secondKey());
        m_person.see(QStringLiteral("menu"));
        m_person.press(visit.item);
        look(QString::fromLatin1(visit.page), QString::fromLatin1(visit.page));
        if (visit.item == linksItem)
            break;
        m_person.press(secondKey());
        m_person.see(QStringLiteral("home"));
    }
    if (!Settings::instance().text(settingnames::page).isEmpty())
        fetchPage();
}

// From the links page.
void Tour::fetchPage()
{
    m_person.press(firstKey());
    m_person.see(QStringLiteral("menu"));
    m_person.press(fetchItem);
    look(QStringLiteral("fetch"), QStringLiteral("fetch"));
    m_person.press(firstKey());
    look(QStringLiteral("text"), QStringLiteral("page"));
}

void Tour::look(const QString& layer, const QString& picture)
{
    m_person.see(layer);
    if (!picture.isEmpty())
        m_person.await(QStringLiteral("take ") + picture,
                       [this, picture] { return take(picture); });
}

bool Tour::take(const QString& picture)
{
    const QString name =
        QStringLiteral("%1-%2.png").arg(m_taken + 1, 2, 10, QLatin1Char('0')).arg(picture);
    const QString path = m_folder.filePath(name);
    if (!m_display || !m_display->grab().save(path))
        return false;
    std::printf("picture %s\n", qPrintable(path));
    std::fflush(stdout);
    ++m_taken;
    return true;
}

void Tour::tellLinks()
{
    for (const Link& link : m_phone.links().links())
        std::printf("connected: link %d, device %s, address %s\n", link.id, qPrintable(link.device),
                    qPrintable(link.address));
}

void Tour::end()
{
    QCoreApplication::exit(0);
}

void Tour::fail(const QString& what)
{
    std::fprintf(stderr, "vornphone: the tour could not %s\n", qPrintable(what));
    QCoreApplication::exit(1);
}

} // namespace phone
