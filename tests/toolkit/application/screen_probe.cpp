// Programs of a few lines, each of which sets up its application in a way of its own; run by the
// screen's tests. Usage: screen_probe NAME; prints what it saw and exits with 0.
#include <cstdio>
#include <cstring>
#include <memory>

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>

#include <toolkit/yscreen.h>
#include <yapplication.h>
#include <yglobal.h>
#include <ypopup.h>
#include <ysoftkey.h>

namespace {

std::unique_ptr<YPopup> makePopup()
{
    return std::make_unique<YPopup>(0, nullptr, nullptr, true, YPopup::ProgressStyle, 0);
}

// The size that the environment asks for.
int size(int argc, char** argv)
{
    YApplication application(argc, argv);
    const QRect home = YGlobal::getHomeR(false);
    std::printf("%dx%d\n", home.width(), home.height());
    return 0;
}

// An application that is no YApplication.
int plain(int argc, char** argv)
{
    QApplication application(argc, argv);
    auto popup = makePopup();
    QTimer::singleShot(0, popup.get(), SLOT(accept()));
    std::printf("%d %s\n", popup->exec(), qPrintable(YPopup::tr("TXT_RID_SOFTKEY_OK", "OK")));
    return 0;
}

// The first object of a program may ask for texts before there is any widget.
int early(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    std::printf("%s\n", qPrintable(QCoreApplication::translate("C", "TXT_RID_SOFTKEY_OK", "OK")));
    return 0;
}

// A popup that is still open when the application object goes, and is deleted afterwards.
int outlive(int argc, char** argv)
{
    std::unique_ptr<YPopup> popup;
    {
        YApplication application(argc, argv);
        popup = makePopup();
        popup->show();
        QCoreApplication::processEvents();
    }
    popup.reset();
    std::puts("gone");
    return 0;
}

// A popup and its owner that both outlive the application, the popup being deleted first.
int outliveOwner(int argc, char** argv)
{
    std::unique_ptr<QWidget> page;
    std::unique_ptr<YPopup> popup;
    {
        YApplication application(argc, argv);
        page = std::make_unique<QWidget>();
        popup = std::make_unique<YPopup>(0, page.get(), nullptr, true, YPopup::PlainStyle, 0);
        popup->show();
        QCoreApplication::processEvents();
    }
    popup.reset();
    page.reset();
    std::puts("gone");
    return 0;
}

// The same, where it is the owner that deletes the popup.
int outliveOwned(int argc, char** argv)
{
    std::unique_ptr<QWidget> page;
    {
        YApplication application(argc, argv);
        page = std::make_unique<QWidget>();
        const auto* popup = new YPopup(0, page.get(), nullptr, true, YPopup::PlainStyle, 0);
        QObject::connect(popup, &QObject::destroyed, [] { std::puts("popup"); });
    }
    page.reset();
    std::puts("gone");
    return 0;
}

// One application after the other in one process.
int twice(int argc, char** argv)
{
    for (int i = 0; i < 2; ++i) {
        YApplication application(argc, argv);
        auto popup = makePopup();
        QTimer::singleShot(0, popup.get(), SLOT(accept()));
        std::printf("%d", popup->exec());
    }
    std::puts("");
    return 0;
}

// Where the first popup of a program is whose place is not its own choice.
int firstPopup(int argc, char** argv)
{
    YApplication application(argc, argv);
    YPopup popup(0, nullptr, nullptr, true, YPopup::ProgressStyle, 0);
    popup.show();
    QCoreApplication::processEvents();
    const QRect screen = YScreen::instance()->rect();
    std::puts(screen.contains(popup.geometry()) ? "on the screen" : "beside the screen");
    return 0;
}

// A program that runs until its last window is closed.
int lastWindow(int argc, char** argv)
{
    YApplication application(argc, argv);
    auto popup = makePopup();
    popup->show();
    QTimer::singleShot(0, YScreen::instance(), SLOT(close()));
    std::printf("%d\n", QApplication::exec());
    return 0;
}

struct Program
{
    const char* name;
    int (*run)(int argc, char** argv);
};

constexpr Program programs[] = {{"size", size},
                                {"plain", plain},
                                {"early", early},
                                {"outlive", outlive},
                                {"outliveOwner", outliveOwner},
                                {"outliveOwned", outliveOwned},
                                {"twice", twice},
                                {"firstPopup", firstPopup},
                                {"lastWindow", lastWindow}};

} // namespace

int main(int argc, char** argv)
{
    for (const Program& program : programs)
        if (argc == 2 && std::strcmp(argv[1], program.name) == 0)
            return program.run(argc, argv);
    return 2;
}
