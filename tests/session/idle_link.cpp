// Opens a link on the loopback device and then waits for ever: what the process does from the line
// "idle" on is what an idle link costs.

#include <cstdio>
#include <unistd.h>

#include <QApplication>

#include <ydatasessionmanager.h>

class Waiter : public QObject
{
    Q_OBJECT

public slots:
    void connected() { ::write(1, "idle\n", 5) == 5 ? void() : ::_exit(1); }
    void openFailed(int, unsigned short cause)
    {
        std::fprintf(stderr, "opening failed: cause %d\n", cause);
        QApplication::exit(1);
    }
};

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    YDataSessionManager manager;
    Waiter waiter;
    QObject::connect(&manager, SIGNAL(connected(int, YLinkInfo&)), &waiter, SLOT(connected()));
    QObject::connect(&manager, SIGNAL(openFailed(int, unsigned short, unsigned short)), &waiter,
                     SLOT(openFailed(int, unsigned short)));
    if (manager.init(false) < 0 || manager.openLink("Idle") < 0)
        return 1;
    return app.exec();
}

#include "idle_link.moc"
