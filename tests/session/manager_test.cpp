// The session manager's own calls, without the popup.

#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include <QMetaMethod>

#include "session/session_fixture.h"

using Manager = Session;

TEST_F(Manager, CallsNothingWhenConstructedAndDestroyed)
{
    manager.reset();
    EXPECT_EQ(napi.take(), "");
}

TEST_F(Manager, TakesItsParentAndItsName)
{
    QObject parent;
    auto* child = new YDataSessionManager(&parent, "session");
    EXPECT_EQ(&parent, child->parent());
    EXPECT_EQ(QString("session"), child->objectName());
}

TEST_F(Manager, IsAClientSocketByItsMetaObject)
{
    EXPECT_STREQ(manager->metaObject()->className(), "YDataSessionManager");
    EXPECT_TRUE(manager->inherits("QWSSocket"));
}

TEST_F(Manager, DeclaresItsSignalsInTheirExactForm)
{
    for (const char* signal :
         {"connected(int,YLinkInfo&)", "openFailed(int,unsigned short,unsigned short)",
          "broken(int,YLinkInfo&)"}) {
        const QByteArray normalised = QMetaObject::normalizedSignature(signal);
        EXPECT_GE(manager->metaObject()->indexOfSignal(normalised), 0) << signal;
    }
}

TEST_F(Manager, InitialisesInMode0WhenTheModeIsFalse)
{
    EXPECT_GE(manager->init(false), 0);
    EXPECT_EQ(napi.take(), "Init(0)");
}

TEST_F(Manager, InitialisesInMode4WhenTheModeIsTrue)
{
    EXPECT_GE(manager->init(true), 0);
    EXPECT_EQ(napi.take(), "Init(4)");
}

TEST_F(Manager, AdoptsTheIndicationSocketThatInitReturns)
{
    const int socket = manager->init(false);
    EXPECT_EQ(socket, manager->socket());
    EXPECT_TRUE(::fcntl(socket, F_GETFL) & O_NONBLOCK);
}

// A program may have closed its standard input before.
TEST_F(Manager, IsInitialisedByDescriptor0Too)
{
    const int input = ::dup(STDIN_FILENO);
    napi.descriptor = STDIN_FILENO;
    EXPECT_EQ(manager->init(false), 0);
    EXPECT_EQ(manager->init(false), -103);
    EXPECT_EQ(manager->openLinkNoDialog("Internet"), 5);
    EXPECT_EQ(manager->openLink("Internet"), 5);
    deliver(indication(NAPI_IND_CONNECTED, 5));
    EXPECT_EQ(log->take(), "connected(5)");
    log.reset();
    manager.reset();
    EXPECT_EQ(napi.take(), "Init(0) OpenLink(Internet) OpenLink(Internet) Fini()");
    if (input >= 0) {
        ::dup2(input, STDIN_FILENO);
        ::close(input);
    }
}

TEST_F(Manager, ListensForMessagesAndForTheEndOnceEach)
{
    struct Counting : YDataSessionManager
    {
        int listeners(const char* signal) const { return receivers(signal); }
    } counting;
    EXPECT_EQ(counting.listeners(SIGNAL(readyRead())), 0);
    EXPECT_EQ(counting.listeners(SIGNAL(connectionClosed())), 0);
    ASSERT_GE(counting.init(false), 0);
    EXPECT_EQ(counting.init(false), -103);
    EXPECT_EQ(counting.listeners(SIGNAL(readyRead())), 1);
    EXPECT_EQ(counting.listeners(SIGNAL(connectionClosed())), 1);
}

TEST_F(Manager, ListensForMessagesBeforeItListensForTheEnd)
{
    struct Noting : YDataSessionManager
    {
        void connectNotify(const QMetaMethod& signal) override
        {
            order += signal.methodSignature().toStdString() + " ";
        }
        std::string order;
    } noting;
    ASSERT_GE(noting.init(false), 0);
    EXPECT_EQ(noting.order, "readyRead() connectionClosed() ");
}

TEST_F(Manager, RefusesASecondInitWithoutACallOrAConnection)
{
    initialise();
    EXPECT_EQ(manager->init(true), -103);
    EXPECT_EQ(napi.take(), "");
    deliver(indication(NAPI_IND_CONNECTED, 7));
    EXPECT_EQ(log->take(), "connected(7)");
}

TEST_F(Manager, ReturnsTheErrorOfAFailedInitAndMayTryAgain)
{
    napi.initError = NAPI_ERR_RESOURCES;
    EXPECT_EQ(manager->init(false), NAPI_ERR_RESOURCES);
    EXPECT_EQ(manager->openLinkNoDialog("Internet"), -101);
    EXPECT_EQ(manager->socket(), -1);
    napi.initError = 0;
    EXPECT_GE(manager->init(false), 0);
    EXPECT_EQ(napi.take(), "Init(0) Init(0)");
    deliver(indication(NAPI_IND_CONNECTED, 7));
    EXPECT_EQ(log->take(), "connected(7)");
}

TEST_F(Manager, FinalisesTheNetworkApiWhenDestroyedAndClosesNoLink)
{
    initialise();
    manager->openLinkNoDialog("Internet");
    napi.take();
    manager.reset();
    EXPECT_EQ(napi.take(), "Fini()");
}

TEST_F(Manager, FinalisesNothingAfterAFailedInit)
{
    napi.initError = -1;
    manager->init(false);
    napi.take();
    manager.reset();
    EXPECT_EQ(napi.take(), "");
}

TEST_F(Manager, ClosesTheIndicationSocketWhenDestroyed)
{
    const int socket = manager->init(false);
    manager.reset();
    EXPECT_EQ(::fcntl(socket, F_GETFD), -1);
}

TEST_F(Manager, OpensNoLinkBeforeInit)
{
    EXPECT_EQ(manager->openLink("Internet"), -101);
    EXPECT_EQ(manager->openLinkNoDialog("Internet"), -101);
    EXPECT_EQ(napi.take(), "");
}

TEST_F(Manager, PassesTheProfileNameAsUtf8)
{
    initialise();
    manager->openLinkNoDialog(QString::fromUtf8("Café 互联网 \xF0\x9F\x93\xB1"));
    EXPECT_EQ(napi.take(), "OpenLink(Café 互联网 \xF0\x9F\x93\xB1)");
}

TEST_F(Manager, ReturnsTheLinkIdOrErrorOfOpenLinkNoDialogUnchanged)
{
    initialise();
    for (int result : {0, 5, 255, -1, -151, int(NAPI_ERR_NO_PROFILE)}) {
        napi.openResult = result;
        EXPECT_EQ(result, manager->openLinkNoDialog("Internet"));
    }
}

TEST_F(Manager, ShowsNoPopupForOpenLinkNoDialog)
{
    initialise();
    manager->openLinkNoDialog("Internet");
    EXPECT_EQ(popupCount(), 0);
}

TEST_F(Manager, ClosesALinkWithTheNetworkApisResult)
{
    initialise();
    EXPECT_EQ(manager->closeLink(5), 0);
    napi.closeResult = NAPI_ERR_NO_LINK;
    EXPECT_EQ(manager->closeLink(256), NAPI_ERR_NO_LINK);
    EXPECT_EQ(napi.take(), "CloseLink(5) CloseLink(256)");
    EXPECT_EQ(log->take(), "");
}

TEST_F(Manager, RefusesNegativeLinkIdsWithoutACall)
{
    initialise();
    for (int id : {-1, -2, -2147483647 - 1}) {
        EXPECT_EQ(manager->closeLink(id), -151);
        EXPECT_EQ(manager->bindSocket2Link(id, 3), -151);
        EXPECT_EQ(manager->dnsResolverConfig(id), -151);
    }
    EXPECT_EQ(napi.take(), "");
}

TEST_F(Manager, TakesLinkId0AsAnyOther)
{
    initialise();
    EXPECT_EQ(manager->closeLink(0), 0);
    EXPECT_EQ(manager->bindSocket2Link(0, 3), 0);
    EXPECT_EQ(manager->dnsResolverConfig(0), 0);
    EXPECT_EQ(napi.take(), "CloseLink(0) BindSocket2Link(0,3) DnsResolverConfig(0)");
}

TEST_F(Manager, DoesNothingForAttachHoldAndDrop)
{
    for (int id : {-1, 0, 300}) {
        EXPECT_EQ(manager->attach(id, QString()), 0);
        EXPECT_EQ(manager->hold(id, "Internet"), 0);
        EXPECT_EQ(manager->drop(id, "x"), 0);
    }
    EXPECT_EQ(napi.take(), "");
}

TEST_F(Manager, BindsASocketWithTheNetworkApisResult)
{
    napi.bindResult = NAPI_ERR_SOCKET;
    EXPECT_EQ(manager->bindSocket2Link(3, 44), NAPI_ERR_SOCKET);
    EXPECT_EQ(napi.take(), "BindSocket2Link(3,44)");
}

TEST_F(Manager, ConfiguresTheResolverWithTheNetworkApisResult)
{
    napi.dnsResult = NAPI_ERR_IO;
    EXPECT_EQ(manager->dnsResolverConfig(0), NAPI_ERR_IO);
    EXPECT_EQ(napi.take(), "DnsResolverConfig(0)");
}

TEST_F(Manager, TellsTheDeviceNameAndItsAddress)
{
    QString name;
    unsigned long value = ~0ul;
    EXPECT_EQ(manager->getDeviceInfo(3, name, &value), 0);
    EXPECT_EQ(QString("wwan0"), name);
    EXPECT_EQ(value, 0x0A010203ul);
    EXPECT_EQ(napi.take(), "GetDeviceInfo(3,0,16) GetDeviceInfo(3,2,4)");
}

TEST_F(Manager, ReadsTheDeviceNameAsUtf8)
{
    napi.deviceName = std::string("f\xC3\xBCnk0\0", 7);
    QString name;
    unsigned long value;
    manager->getDeviceInfo(3, name, &value);
    EXPECT_EQ(QString::fromUtf8("fünk0"), name);
}

TEST_F(Manager, ReadsADeviceNameThatFillsItsBufferAndNothingBehindIt)
{
    napi.deviceName = "abcdefghijklmnop";
    QString name;
    unsigned long value;
    EXPECT_EQ(manager->getDeviceInfo(3, name, &value), 0);
    EXPECT_EQ(QString("abcdefghijklmnop"), name);
}

TEST_F(Manager, LeavesBothOutputsWhenTheDeviceNameCannotBeHad)
{
    napi.nameResult = NAPI_ERR_NO_LINK;
    QString name = "before";
    unsigned long value = 77;
    EXPECT_EQ(manager->getDeviceInfo(3, name, &value), NAPI_ERR_NO_LINK);
    EXPECT_EQ(QString("before"), name);
    EXPECT_EQ(value, 77ul);
    EXPECT_EQ(napi.take(), "GetDeviceInfo(3,0,16)");
}

TEST_F(Manager, TreatsAPositiveResultForTheDeviceNameAsAFailureToo)
{
    napi.nameResult = 1;
    QString name = "before";
    unsigned long value = 77;
    EXPECT_EQ(manager->getDeviceInfo(3, name, &value), 1);
    EXPECT_EQ(QString("before"), name);
}

TEST_F(Manager, ReturnsTheResultOfTheAddressWithTheNameAlreadySet)
{
    napi.addressResult = NAPI_ERR_LINK_NOT_UP;
    QString name;
    unsigned long value = 77;
    EXPECT_EQ(manager->getDeviceInfo(3, name, &value), NAPI_ERR_LINK_NOT_UP);
    EXPECT_EQ(QString("wwan0"), name);
    EXPECT_EQ(value, 77ul);
}

TEST_F(Manager, TellsTheDeviceNameAloneWhereTheNetworkApiTakesANullAddress)
{
    napi.takesNullAddress = true;
    QString name;
    EXPECT_EQ(manager->getDeviceInfo(3, name, nullptr), 0);
    EXPECT_EQ(name.toStdString(), "wwan0");
}

TEST_F(Manager, LeavesTheJudgementOfANullAddressToTheNetworkApi)
{
    QString name;
    EXPECT_EQ(manager->getDeviceInfo(3, name, nullptr), NAPI_ERR_ARGUMENT);
    EXPECT_EQ(napi.take(), "GetDeviceInfo(3,0,16) GetDeviceInfo(3,2,4)");
}

TEST_F(Manager, LeavesTheJudgementOfTheDevicesLinkIdToTheNetworkApi)
{
    napi.nameResult = NAPI_ERR_NO_LINK;
    QString name;
    unsigned long value;
    EXPECT_EQ(manager->getDeviceInfo(-1, name, &value), NAPI_ERR_NO_LINK);
    EXPECT_EQ(napi.take(), "GetDeviceInfo(-1,0,16)");
}
