// A program with operators new and delete of its own uses the library: the manager and its popup,
// the widgets, the dialog and the wizard. Exits with 0 when it could.
#include <cstring>
#include <fstream>

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

#include <ipaddressedit.h>
#include <ipaddressedit_validator.h>
#include <napi.h>
#include <profileedit.h>
#include <profilefunctions.h>
#include <ydatasessionmanager.h>
#include <ystatedialog.h>

#include "programs/own_operators.h"

namespace {

void press(Qt::Key key)
{
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible())
            continue;
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(window->windowHandle(), &event);
        }
    }
}

bool storeProfile(const QTemporaryDir& root)
{
    qputenv("VORN_ROOT", root.path().toUtf8());
    QDir(root.path()).mkpath("etc");
    std::ofstream(root.filePath("etc/network.json").toStdString())
        << R"({"bearer": "scenario", "scenario": {"default": {"outcome": "connect", "afterMs": 0}}})";
    NetworkProfile profile = {};
    profile.flags = NAPI_PREFER_CELLULAR_ONLY;
    std::strcpy(profile.gprsApn, "internet");
    return NAPI_CreateProfile("A name that no text holds by itself", &profile, 0, 0) == 0;
}

bool opensALink(QApplication& application)
{
    auto* manager = new YDataSessionManager(&application);
    QObject::connect(manager, &YDataSessionManager::connected, manager, [&](int link) {
        manager->closeLink(link);
        application.quit();
    });
    const bool isOpening =
        manager->init(false) >= 0 && manager->openLink("A name that no text holds by itself") >= 0;
    if (isOpening)
        application.exec();
    delete manager;
    return isOpening;
}

// Qt deletes what the library has allocated, and the library what Qt has.
bool ownsWidgets()
{
    QWidget window;
    QString address("127.0.0.1");
    auto* field = new IPAddressEdit(&window);
    field->setIPAddress(address);
    field->getIPAddress(address);
    auto* name = new ProfileEdit(&window);
    name->setDefaultProfileName("A name that no text holds by itself");
    new IPAddressEdit_Validator(&window);
    auto* popup = new YStateDialog(&window);
    popup->setStateString("Signing in, which takes a while");
    return address == "127.0.0.1";
}

bool asksTheUser()
{
    QString name;
    QTimer::singleShot(0, [] { press(Qt::Key_F1); });
    const bool isChosen = getProfileNamebySelect(name) == 0 && name.startsWith("A name");
    QTimer::singleShot(0, [] { press(Qt::Key_F2); });
    return isChosen && createProfilebyUser(name) == 1;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    const QTemporaryDir root;
    const bool wentOn = storeProfile(root) && opensALink(application) && ownsWidgets() &&
                        asksTheUser() && ownoperators::living() > 0;
    return wentOn ? 0 : 1;
}
