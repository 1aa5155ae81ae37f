// Keeps a link open as long as it can, and does about each failure what helps:
//     failures PROFILE [SECONDS]
// Says each step. Ends with 0 when the link has been up for SECONDS (default: 5), and with 1 when
// there is nothing more to be done.

#include <cstdio>

#include <QTimer>

#include <napi.h>
#include <profilefunctions.h>
#include <vornqtnapi_texts.h>
#include <yapplication.h>
#include <ydatasessionmanager.h>

namespace {

enum class Remedy {
    TryAgain,    // it may be over in a moment
    EditProfile, // something in the profile is wrong
    TellUser     // only a person can mend it
};

// A cause that a later version adds is one for a person.
Remedy remedyFor(unsigned short cause)
{
    switch (cause) {
    case NAPI_CAUSE_NO_SERVICE:
    case NAPI_CAUSE_NO_ADDRESS:
    case NAPI_CAUSE_NO_CARRIER:
    case NAPI_CAUSE_TIMEOUT:
    case NAPI_CAUSE_BUSY:
        return Remedy::TryAgain;
    case NAPI_CAUSE_SUBSCRIPTION:
    case NAPI_CAUSE_AUTHENTICATION:
        return Remedy::EditProfile;
    default:
        return Remedy::TellUser;
    }
}

constexpr int mostTries = 3;
constexpr int pause = 500; // milliseconds before the next try; a real program waits longer

} // namespace

class Keeper : public QObject
{
    Q_OBJECT

public:
    Keeper(const QString& profile, int seconds) : m_profile(profile), m_seconds(seconds)
    {
        connect(&m_manager, SIGNAL(connected(int, YLinkInfo&)), SLOT(online(int)));
        connect(&m_manager, SIGNAL(openFailed(int, unsigned short, unsigned short)),
                SLOT(failed(int, unsigned short)));
        connect(&m_manager, SIGNAL(broken(int, YLinkInfo&)), SLOT(broke(int)));
        m_done.setSingleShot(true);
        connect(&m_done, SIGNAL(timeout()), SLOT(finish()));
    }

public slots:
    void begin()
    {
        const int result = m_manager.init(false);
        if (result < 0)
            return giveUp(vornResultText(result));
        open();
    }

    void open()
    {
        ++m_tries;
        const int result = m_manager.openLink(m_profile);
        if (result < 0)
            return refused(result);
        m_link = result;
        std::printf("try %d\n", m_tries);
    }

private slots:
    void online(int link)
    {
        // What was reported of a link that is closed by now is still on its way.
        if (link != m_link)
            return;
        std::printf("up\n");
        m_tries = 0;
        m_done.start(m_seconds * 1000);
    }

    void failed(int link, unsigned short cause)
    {
        // The user has cancelled, whichever link that was.
        if (cause == NAPI_CAUSE_CANCELLED)
            return giveUp(vornCauseText(cause));
        if (link != m_link)
            return;
        m_link = -1;
        std::printf("failed: %s\n", vornCauseText(cause));
        switch (remedyFor(cause)) {
        case Remedy::TryAgain:
            return again();
        case Remedy::EditProfile:
            return edit();
        case Remedy::TellUser:
            return giveUp(vornCauseText(cause));
        }
    }

    void broke(int link)
    {
        if (link != m_link)
            return;
        std::printf("broken\n");
        m_done.stop();
        m_manager.closeLink(m_link); // which frees its id
        m_link = -1;
        again();
    }

    void finish()
    {
        m_manager.closeLink(m_link);
        std::printf("done\n");
        qApp->exit(0);
    }

private:
    // The opening has not even begun.
    void refused(int result)
    {
        if (result != NAPI_ERR_NO_PROFILE)
            return giveUp(vornResultText(result));
        if (getProfileIfNoFound(m_profile) != 0)
            return giveUp("there is no connection");
        open();
    }

    void again()
    {
        if (m_tries >= mostTries)
            return giveUp("it does not work at the moment");
        QTimer::singleShot(pause, this, SLOT(open()));
    }

    void edit()
    {
        if (m_tries >= mostTries || editProfilebyUser(m_profile) != 0)
            return giveUp("the connection is as it was");
        open();
    }

    void giveUp(const char* reason)
    {
        m_done.stop();
        std::printf("given up: %s\n", reason);
        qApp->exit(1);
    }

    QString m_profile;
    int m_seconds;
    int m_tries = 0;
    int m_link = -1;
    QTimer m_done;
    YDataSessionManager m_manager;
};

int main(int argc, char** argv)
{
    YApplication application(argc, argv);
    const int seconds = argc > 2 ? QString(argv[2]).toInt() : 5;
    if (argc < 2 || argc > 3 || seconds < 1 || seconds > 3600) {
        std::fprintf(stderr, "usage: failures PROFILE [SECONDS]\n");
        return 2;
    }
    // A popup that goes is not the end of this program.
    application.setQuitOnLastWindowClosed(false);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    Keeper keeper(QString::fromLocal8Bit(argv[1]), seconds);
    QTimer::singleShot(0, &keeper, SLOT(begin()));
    return application.exec();
}

#include "main.moc"
