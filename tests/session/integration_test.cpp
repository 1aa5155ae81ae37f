// The session manager over the real network API of the host, with its own store and its scenarios.

#include <arpa/inet.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <netinet/in.h>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>

#include <napi.h>
#include <ystatedialog.h>

#include "common/rooted_gui_test.h"
#include "session/signal_log.h"

namespace {

// A root of its own with profiles and scenarios for each outcome.
class RealNetwork : public RootedGuiTest
{
protected:
    void SetUp() override
    {
        RootedGuiTest::SetUp();
        write("etc/network.json", R"({
            "bearer": "scenario",
            "scenario": {
                "default": { "outcome": "connect", "afterMs": 0 },
                "profiles": {
                    "Slow": { "outcome": "connect", "afterMs": 150 },
                    "Refused": { "outcome": "fail", "afterMs": 20, "cause": 4, "detail": 33 },
                    "Breaks": { "outcome": "connect", "afterMs": 0, "breakAfterMs": 60 },
                    "Silent": { "outcome": "never" }
                }
            }
        })");
        NetworkProfile profile = {};
        profile.flags = NAPI_PREFER_CELLULAR_ONLY;
        std::strcpy(profile.gprsApn, "internet");
        profile.gprsDns1 = 0x7F000001;
        for (const char* name : {"Plain", "Slow", "Refused", "Breaks", "Silent"})
            ASSERT_EQ(NAPI_CreateProfile(name, &profile, 0, 0), 0) << name;
        manager = std::make_unique<YDataSessionManager>();
        log = std::make_unique<SignalLog>(*manager);
        indications = manager->init(false);
        ASSERT_GE(indications, 0);
    }

    void TearDown() override
    {
        log.reset();
        manager.reset();
        GuiTest::TearDown();
    }

    // Runs the event loop until a signal has come, and takes the first one.
    std::string nextSignal(int limitMs = 10000)
    {
        QElapsedTimer limit;
        limit.start();
        while (log->isEmpty() && limit.elapsed() < limitMs)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        return log->takeFirst();
    }

    // Waits for an outcome without running the event loop, so that the manager knows nothing of it.
    bool hasComeUnread() const
    {
        pollfd waiting = {indications, POLLIN, 0};
        return ::poll(&waiting, 1, 10000) == 1;
    }

    // As the popup's key does, with nothing read between.
    void cancel()
    {
        QMetaObject::invokeMethod(manager.get(), "slotCancelBtnClicked", Qt::DirectConnection);
    }

    static bool hasPopup()
    {
        for (QWidget* widget : QApplication::allWidgets()) {
            if (qobject_cast<YStateDialog*>(widget))
                return true;
        }
        return false;
    }

    int indications = -1;
    std::unique_ptr<YDataSessionManager> manager;
    std::unique_ptr<SignalLog> log;
};

// A listening socket on a free port of the loopback address.
int listeningSocket(sockaddr_in& address)
{
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    EXPECT_EQ(::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length), 0);
    EXPECT_EQ(::listen(listener, 1), 0);
    return listener;
}

} // namespace

TEST_F(RealNetwork, OpensALinkWithThePopupAndTellsItsDevice)
{
    const int link = manager->openLink("Slow");
    ASSERT_EQ(link, 0);
    EXPECT_TRUE(hasPopup());
    EXPECT_EQ(nextSignal(), "connected(0)");
    EXPECT_FALSE(hasPopup());

    QString device;
    unsigned long address = 0;
    EXPECT_EQ(manager->getDeviceInfo(link, device, &address), 0);
    EXPECT_EQ(QString("lo"), device);
    EXPECT_EQ(address, 0x7F000001ul);
    EXPECT_EQ(device.toStdString(), log->infos.at(0).infoText);
    EXPECT_EQ(address, log->infos.at(0).infoWord);
    EXPECT_EQ(log->infos.at(0).infoByte, 1u);
    EXPECT_EQ(manager->closeLink(link), 0);
    EXPECT_EQ(manager->closeLink(link), NAPI_ERR_NO_LINK);
}

TEST_F(RealNetwork, BindsASocketThatThenCarriesBytes)
{
    const int link = manager->openLinkNoDialog("Plain");
    ASSERT_EQ(nextSignal(), "connected(0)");
    sockaddr_in address;
    const int listener = listeningSocket(address);
    const int client = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    EXPECT_EQ(manager->bindSocket2Link(link, client), 0);
    char device[16] = {};
    socklen_t length = sizeof device;
    EXPECT_EQ(::getsockopt(client, SOL_SOCKET, SO_BINDTODEVICE, device, &length), 0);
    EXPECT_STREQ(device, "lo");

    ASSERT_EQ(::connect(client, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    const int server = ::accept(listener, nullptr, nullptr);
    char answer[6] = {};
    EXPECT_EQ(::send(server, "hello", 5, 0), 5);
    EXPECT_EQ(::recv(client, answer, 5, MSG_WAITALL), 5);
    EXPECT_STREQ(answer, "hello");
    for (int descriptor : {client, server, listener})
        ::close(descriptor);
    EXPECT_EQ(manager->closeLink(link), 0);
}

TEST_F(RealNetwork, ReportsWhyALinkCouldNotBeOpened)
{
    EXPECT_EQ(manager->openLink("Refused"), 0);
    EXPECT_EQ(nextSignal(), "openFailed(0,4,33)");
    EXPECT_FALSE(hasPopup());
    EXPECT_EQ(manager->closeLink(0), NAPI_ERR_NO_LINK);
}

TEST_F(RealNetwork, ReportsAnEstablishedLinkThatBreaks)
{
    const int link = manager->openLinkNoDialog("Breaks");
    EXPECT_EQ(nextSignal(), "connected(0)");
    EXPECT_EQ(nextSignal(), "broken(0)");
    EXPECT_EQ(manager->bindSocket2Link(link, 0), NAPI_ERR_LINK_NOT_UP);
    EXPECT_EQ(manager->closeLink(link), 0);
}

TEST_F(RealNetwork, GivesUpAnOpeningThatNeverAnswers)
{
    const int link = manager->openLink("Silent");
    EXPECT_TRUE(hasPopup());
    EXPECT_EQ(manager->closeLink(link), 0);
    EXPECT_FALSE(hasPopup());
    EXPECT_EQ(nextSignal(100), "");
}

TEST_F(RealNetwork, WritesTheNameServersOfTheProfile)
{
    const int link = manager->openLinkNoDialog("Plain");
    ASSERT_EQ(nextSignal(), "connected(0)");
    EXPECT_EQ(manager->dnsResolverConfig(link), 0);
    std::ifstream file(root.filePath("etc/resolv.conf").toStdString());
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    EXPECT_NE(std::string::npos, text.find("nameserver 127.0.0.1\n")) << text;
    EXPECT_EQ(manager->closeLink(link), 0);
}

TEST_F(RealNetwork, PassesTheNetworkApisErrorsThrough)
{
    EXPECT_EQ(manager->openLink("Missing"), NAPI_ERR_NO_PROFILE);
    EXPECT_EQ(manager->openLink("../Plain"), NAPI_ERR_NAME);
    EXPECT_EQ(manager->openLinkNoDialog(""), NAPI_ERR_NAME);
    EXPECT_EQ(manager->closeLink(0), NAPI_ERR_NO_LINK);
    EXPECT_EQ(manager->closeLink(256), NAPI_ERR_NO_LINK);
    EXPECT_FALSE(hasPopup());
}

TEST_F(RealNetwork, OpensALinkFromInsideOpenFailed)
{
    bool again = true;
    log->inside = [&] {
        if (again) {
            again = false;
            EXPECT_EQ(manager->openLink("Plain"), 0);
        }
    };
    EXPECT_EQ(manager->openLink("Refused"), 0);
    EXPECT_EQ(nextSignal(), "openFailed(0,4,33)");
    EXPECT_EQ(nextSignal(), "connected(0)");
    EXPECT_EQ(manager->closeLink(0), 0);
}

TEST_F(RealNetwork, ClosesTheLinkFromInsideConnected)
{
    log->inside = [this] { EXPECT_EQ(manager->closeLink(0), 0); };
    EXPECT_EQ(manager->openLink("Plain"), 0);
    EXPECT_EQ(nextSignal(), "connected(0)");
    EXPECT_EQ(manager->closeLink(0), NAPI_ERR_NO_LINK);
}

TEST_F(RealNetwork, LetsAReceiverDeleteTheManagerInsideConnected)
{
    log->inside = [this] {
        EXPECT_EQ(manager->closeLink(0), 0);
        manager.reset();
    };
    EXPECT_EQ(manager->openLink("Plain"), 0);
    EXPECT_EQ(nextSignal(), "connected(0)");
    EXPECT_EQ(NAPI_CloseLink(0), NAPI_ERR_NOT_INITIALISED);
}

TEST_F(RealNetwork, ServesTwoManagersOfOneProcess)
{
    YDataSessionManager second;
    ASSERT_GE(second.init(true), 0);
    SignalLog secondLog(second);
    EXPECT_EQ(manager->openLinkNoDialog("Plain"), 0);
    EXPECT_EQ(nextSignal(), "connected(0)");
    for (int i = 0; i < 100 && secondLog.isEmpty(); ++i)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    EXPECT_EQ(secondLog.take(), "connected(0)");
    EXPECT_EQ(second.closeLink(0), 0);
}

TEST_F(RealNetwork, StillSignalsASuccessThatCameBeforeTheLinkWasClosed)
{
    EXPECT_EQ(manager->openLink("Plain"), 0);
    ASSERT_TRUE(hasComeUnread());
    EXPECT_EQ(manager->closeLink(0), 0);
    EXPECT_FALSE(hasPopup());
    EXPECT_EQ(nextSignal(), "connected(0)");
    EXPECT_EQ(manager->closeLink(0), NAPI_ERR_NO_LINK);
}

TEST_F(RealNetwork, StillSignalsASuccessThatCameBeforeCancel)
{
    EXPECT_EQ(manager->openLink("Plain"), 0);
    ASSERT_TRUE(hasComeUnread());
    cancel();
    EXPECT_EQ(log->take(), "openFailed(0,13,0)");
    EXPECT_EQ(nextSignal(), "connected(0)");
    EXPECT_EQ(manager->closeLink(0), NAPI_ERR_NO_LINK);
}

TEST_F(RealNetwork, StillSignalsAFailureThatCameBeforeCancel)
{
    EXPECT_EQ(manager->openLink("Refused"), 0);
    ASSERT_TRUE(hasComeUnread());
    cancel();
    EXPECT_EQ(log->take(), "openFailed(0,13,0)");
    EXPECT_EQ(nextSignal(), "openFailed(0,4,33)");
}

TEST_F(RealNetwork, SignalsNothingMoreOfAnOpeningThatWasCancelledInTime)
{
    EXPECT_EQ(manager->openLink("Slow"), 0);
    cancel();
    EXPECT_EQ(log->take(), "openFailed(0,13,0)");
    EXPECT_EQ(nextSignal(400), "");
}

TEST_F(RealNetwork, TellsTheNextLinkOfAnIdNothingOfTheOneBeforeAfterAPassOfTheLoop)
{
    EXPECT_EQ(manager->openLink("Plain"), 0);
    ASSERT_TRUE(hasComeUnread());
    cancel();
    QApplication::processEvents();
    EXPECT_EQ(log->take(), "openFailed(0,13,0) connected(0)");
    EXPECT_EQ(manager->openLink("Silent"), 0);
    EXPECT_TRUE(hasPopup());
    EXPECT_EQ(nextSignal(200), "");
    EXPECT_TRUE(hasPopup());
    EXPECT_EQ(manager->closeLink(0), 0);
}
