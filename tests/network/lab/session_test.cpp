// The session manager with its popup, over a link that the modem is dialled for.
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <napi.h>
#include <ydatasessionmanager.h>
#include <ystatedialog.h>

#include "common/gui_test.h"
#include "session/signal_log.h"

namespace {

class DialledSession : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        qputenv("VORN_ROOT", m_root.path().toUtf8());
        ASSERT_TRUE(QDir(m_root.path()).mkpath("etc"));
        std::ofstream(m_root.filePath("etc/network.json").toStdString())
            << R"({"bearer": "networkmanager"})";
        NetworkProfile profile = {};
        std::strcpy(profile.gprsApn, "internet.example");
        ASSERT_EQ(NAPI_CreateProfile("Internet", &profile, 0, 0), 0);
        manager = std::make_unique<YDataSessionManager>();
        log = std::make_unique<SignalLog>(*manager);
        ASSERT_GE(manager->init(false), 0);
    }

    void TearDown() override
    {
        log.reset();
        manager.reset();
        EXPECT_TRUE(waitFor([] {
            return std::system("nmcli -g GENERAL.STATE device show ttyHS0 | grep -q '^30'") == 0;
        }));
        GuiTest::TearDown();
    }

    static QWidget* popup()
    {
        for (QWidget* widget : QApplication::allWidgets()) {
            if (qobject_cast<YStateDialog*>(widget))
                return widget;
        }
        return nullptr;
    }

    std::string nextSignal()
    {
        EXPECT_TRUE(waitFor([this] { return !log->isEmpty(); }));
        return log->takeFirst();
    }

    std::unique_ptr<YDataSessionManager> manager;
    std::unique_ptr<SignalLog> log;

private:
    QTemporaryDir m_root;
};

TEST_F(DialledSession, ShowsThePopupUntilTheCallIsThere)
{
    int link = manager->openLink("Internet");
    EXPECT_TRUE(popup());
    EXPECT_EQ(nextSignal(), "connected(0)");
    EXPECT_FALSE(popup());
    QString device;
    unsigned long address = 0;
    EXPECT_EQ(manager->getDeviceInfo(link, device, &address), 0);
    EXPECT_EQ(device, "hso0");
    EXPECT_EQ(address, 0x0A630002ul);
    EXPECT_EQ(manager->closeLink(link), 0);
}

TEST_F(DialledSession, HangsUpWhenThePopupIsCancelled)
{
    manager->openLink("Internet");
    EXPECT_TRUE(popup());
    press(Qt::Key_F2);
    EXPECT_EQ(nextSignal(), "openFailed(0,13,0)");
    EXPECT_FALSE(popup());
}

TEST_F(DialledSession, TellsThatTheNetworkDroppedTheCall)
{
    manager->openLink("Internet");
    ASSERT_EQ(nextSignal(), "connected(0)");
    EXPECT_EQ(std::system("nmcli device disconnect ttyHS0 >&2"), 0);
    EXPECT_EQ(nextSignal(), "broken(0)");
    EXPECT_EQ(manager->closeLink(0), 0);
}

} // namespace
