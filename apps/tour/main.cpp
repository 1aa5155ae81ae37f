// The typical use of the library: no connection is found, the user creates one with the wizard, and
// a link is opened for it. Plays the user too, and leaves a picture of every step:
//     vorn-tour FOLDER

#include <cstdio>

#include <QHostAddress>
#include <QTextStream>
#include <QTimer>

#include <profilefunctions.h>
#include <setuputility.h>
#include <yapplication.h>
#include <ydatasessionmanager.h>

#include "person.h"

class Tour : public QObject
{
    Q_OBJECT

public:
    explicit Tour(Person& user) : m_person(user)
    {
        connect(&m_manager, SIGNAL(connected(int, YLinkInfo&)), SLOT(online(int, YLinkInfo&)));
        connect(&m_manager, SIGNAL(openFailed(int, unsigned short, unsigned short)),
                SLOT(failed(int, unsigned short, unsigned short)));
    }

public slots:
    void begin()
    {
        QString name;
        const int result = getProfileIfNoFound(name);
        say(QString("getProfileIfNoFound: result %1, profile \"%2\"").arg(result).arg(name));
        if (result != 0)
            return qApp->exit(1);
        int link = m_manager.init(false);
        if (link >= 0)
            link = m_manager.openLink(name);
        if (link < 0) {
            say(QString("cannot open a link: result %1").arg(link));
            return qApp->exit(1);
        }
        say(QString("opening link %1 for \"%2\"").arg(link).arg(name));
        // The link may be up before the person has looked again.
        m_person.take("connecting");
    }

private slots:
    void online(int link, YLinkInfo& info)
    {
        say(QString("connected: link %1, device %2, address %3")
                .arg(link)
                .arg(QString::fromUtf8(info.infoText), QHostAddress(info.infoWord).toString()));
        const int result = m_manager.closeLink(link);
        say(QString("closing link %1: result %2").arg(link).arg(result));
        qApp->exit(result == 0 ? 0 : 1);
    }

    void failed(int link, unsigned short cause1, unsigned short cause2)
    {
        say(QString("opening link %1 failed: causes %2 and %3").arg(link).arg(cause1).arg(cause2));
        qApp->exit(1);
    }

private:
    void say(const QString& text) { QTextStream(stdout) << text << Qt::endl; }

    Person& m_person;
    YDataSessionManager m_manager;
};

namespace {

// From the name down to the access point the form has proxy, port and domain, and on a phone with
// WiFi the connection preference. Up from the name is the last row, the button.
void instruct(Person& person)
{
    const int rowsToApn = SETUP_Utility().isFeatureAvailable(SETUP_FEATURE_WIFI) ? 5 : 4;
    person.lookAt("YSingleSelectDlg", "no-connection");
    person.press(Qt::Key_Return);
    person.lookAt("DataConnection_NewWiz1", "new-profile");
    person.press(Qt::Key_Down, rowsToApn);
    person.type("internet");
    person.look("access-point");
    person.press(Qt::Key_Up, rowsToApn + 1);
    person.look("end-of-the-form");
    person.press(Qt::Key_Return);
    person.lookAt("DataConnection_NewWiz2", "additional-settings");
    person.press(Qt::Key_Escape);
    person.lookAt("DataConnection_NewWiz1", "ready-to-save");
    person.press(Qt::Key_F2);
    person.lookAt("YNoticeDlg", "saved");
    person.press(Qt::Key_Return);
}

} // namespace

int main(int argc, char** argv)
{
    // A picture shows what has come to rest.
    qputenv("VORN_MOTION", "reduced");
    YApplication app(argc, argv);
    // The last page closes the screen before the link is opened.
    app.setQuitOnLastWindowClosed(false);
    const QStringList arguments = app.arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments.at(1))) {
        std::fprintf(stderr, "usage: vorn-tour FOLDER\n");
        return 2;
    }
    Person person((QDir(arguments.at(1))));
    instruct(person);
    Tour tour(person);
    QTimer::singleShot(0, &tour, SLOT(begin()));
    person.begin();
    return app.exec();
}

#include "main.moc"
