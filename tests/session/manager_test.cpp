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
    EXPECT_EQ("", napi.take());
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
    EXPECT_STREQ("YDataSessionManager", manager->metaObject()->className());
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
    EXPECT_EQ("Init(0)", napi.take());
}

TEST_F(Manager, InitialisesInMode4WhenTheModeIsTrue)
{
    EXPECT_GE(manager->init(true), 0);
    EXPECT_EQ("Init(4)", napi.take());
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
    EXPECT_EQ(0, manager->init(false));
    EXPECT_EQ(-103, manager->init(false));
    EXPECT_EQ(5, manager->openLinkNoDialog("Internet"));
    EXPECT_EQ(5, manager->openLink("Internet"));
    deliver(indication(NAPI_IND_CONNECTED, 5));
    EXPECT_EQ("connected(5)", log->take());
    log.reset();
    manager.reset();
    EXPECT_EQ("Init(0) OpenLink(Internet) OpenLink(Internet) Fini()", napi.take());
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
    EXPECT_EQ(0, counting.listeners(SIGNAL(readyRead())));
    EXPECT_EQ(0, counting.listeners(SIGNAL(connectionClosed())));
    ASSERT_GE(counting.init(false), 0);
    EXPECT_EQ(-103, counting.init(false));
    EXPECT_EQ(1, counting.listeners(SIGNAL(readyRead())));
    EXPECT_EQ(1, counting.listeners(SIGNAL(connectionClosed())));
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
    EXPECT_EQ("readyRead() connectionClosed() ", noting.order);
}

TEST_F(Manager, RefusesASecondInitWithoutACallOrAConnection)
{
    initialise();
    EXPECT_EQ(-103, manager->init(true));
    EXPECT_EQ("", napi.take());
    deliver(indication(NAPI_IND_CONNECTED, 7));
    EXPECT_EQ("connected(7)", log->take());
}

TEST_F(Manager, ReturnsTheErrorOfAFailedInitAndMayTryAgain)
{
    napi.initError = NAPI_ERR_RESOURCES;
    EXPECT_EQ(NAPI_ERR_RESOURCES, manager->init(false));
    EXPECT_EQ(-101, manager->openLinkNoDialog("Internet"));
    EXPECT_EQ(-1, manager->socket());
    napi.initError = 0;
    EXPECT_GE(manager->init(false), 0);
    EXPECT_EQ("Init(0) Init(0)", napi.take());
    deliver(indication(NAPI_IND_CONNECTED, 7));
    EXPECT_EQ("connected(7)", log->take());
}

TEST_F(Manager, FinalisesTheNetworkApiWhenDestroyedAndClosesNoLink)
{
    initialise();
    manager->openLinkNoDialog("Internet");
    napi.take();
    manager.reset();
    EXPECT_EQ("Fini()", napi.take());
}

TEST_F(Manager, FinalisesNothingAfterAFailedInit)
{
    napi.initError = -1;
    manager->init(false);
    napi.take();
    manager.reset();
    EXPECT_EQ("", napi.take());
}

TEST_F(Manager, ClosesTheIndicationSocketWhenDestroyed)
{
    const int socket = manager->init(false);
    manager.reset();
    EXPECT_EQ(-1, ::fcntl(socket, F_GETFD));
}

TEST_F(Manager, OpensNoLinkBeforeInit)
{
    EXPECT_EQ(-101, manager->openLink("Internet"));
    EXPECT_EQ(-101, manager->openLinkNoDialog("Internet"));
    EXPECT_EQ("", napi.take());
}

TEST_F(Manager, PassesTheProfileNameAsUtf8)
{
    initialise();
    manager->openLinkNoDialog(QString::fromUtf8("Café 互联网 \xF0\x9F\x93\xB1"));
    EXPECT_EQ("OpenLink(Café 互联网 \xF0\x9F\x93\xB1)", napi.take());
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
    EXPECT_EQ(0, popupCount());
}

TEST_F(Manager, ClosesALinkWithTheNetworkApisResult)
{
    initialise();
    EXPECT_EQ(0, manager->closeLink(5));
    napi.closeResult = NAPI_ERR_NO_LINK;
    EXPECT_EQ(NAPI_ERR_NO_LINK, manager->closeLink(256));
    EXPECT_EQ("CloseLink(5) CloseLink(256)", napi.take());
    EXPECT_EQ("", log->take());
}

TEST_F(Manager, RefusesNegativeLinkIdsWithoutACall)
{
    initialise();
    for (int id : {-1, -2, -2147483647 - 1}) {
        EXPECT_EQ(-151, manager->closeLink(id));
        EXPECT_EQ(-151, manager->bindSocket2Link(id, 3));
        EXPECT_EQ(-151, manager->dnsResolverConfig(id));
    }
    EXPECT_EQ("", napi.take());
}

TEST_F(Manager, TakesLinkId0AsAnyOther)
{
    initialise();
    EXPECT_EQ(0, manager->closeLink(0));
    EXPECT_EQ(0, manager->bindSocket2Link(0, 3));
    EXPECT_EQ(0, manager->dnsResolverConfig(0));
    EXPECT_EQ("CloseLink(0) BindSocket2Link(0,3) DnsResolverConfig(0)", napi.take());
}

TEST_F(Manager, DoesNothingForAttachHoldAndDrop)
{
    for (int id : {-1, 0, 300}) {
        EXPECT_EQ(0, manager->attach(id, QString()));
        EXPECT_EQ(0, manager->hold(id, "Internet"));
        EXPECT_EQ(0, manager->drop(id, "x"));
    }
    EXPECT_EQ("", napi.take());
}

TEST_F(Manager, BindsASocketWithTheNetworkApisResult)
{
    napi.bindResult = NAPI_ERR_SOCKET;
    EXPECT_EQ(NAPI_ERR_SOCKET, manager->bindSocket2Link(3, 44));
    EXPECT_EQ("BindSocket2Link(3,44)", napi.take());
}

TEST_F(Manager, ConfiguresTheResolverWithTheNetworkApisResult)
{
    napi.dnsResult = NAPI_ERR_IO;
    EXPECT_EQ(NAPI_ERR_IO, manager->dnsResolverConfig(0));
    EXPECT_EQ("DnsResolverConfig(0)", napi.take());
}

TEST_F(Manager, TellsTheDeviceNameAndItsAddress)
{
    QString name;
    unsigned long value = ~0ul;
    EXPECT_EQ(0, manager->getDeviceInfo(3, name, &value));
    EXPECT_EQ(QString("wwan0"), name);
    EXPECT_EQ(0x0A010203ul, value);
    EXPECT_EQ("GetDeviceInfo(3,0,16) GetDeviceInfo(3,2,4)", napi.take());
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
    EXPECT_EQ(0, manager->getDeviceInfo(3, name, &value));
    EXPECT_EQ(QString("abcdefghijklmnop"), name);
}

TEST_F(Manager, LeavesBothOutputsWhenTheDeviceNameCannotBeHad)
{
    napi.nameResult = NAPI_ERR_NO_LINK;
    QString name = "before";
    unsigned long value = 77;
    EXPECT_EQ(NAPI_ERR_NO_LINK, manager->getDeviceInfo(3, name, &value));
    EXPECT_EQ(QString("before"), name);
    EXPECT_EQ(77ul, value);
    EXPECT_EQ("GetDeviceInfo(3,0,16)", napi.take());
}

TEST_F(Manager, TreatsAPositiveResultForTheDeviceNameAsAFailureToo)
{
    napi.nameResult = 1;
    QString name = "before";
    unsigned long value = 77;
    EXPECT_EQ(1, manager->getDeviceInfo(3, name, &value));
    EXPECT_EQ(QString("before"), name);
}

TEST_F(Manager, ReturnsTheResultOfTheAddressWithTheNameAlreadySet)
{
    napi.addressResult = NAPI_ERR_LINK_NOT_UP;
    QString name;
    unsigned long value = 77;
    EXPECT_EQ(NAPI_ERR_LINK_NOT_UP, manager->getDeviceInfo(3, name, &value));
    EXPECT_EQ(QString("wwan0"), name);
    EXPECT_EQ(77ul, value);
}

TEST_F(Manager, TellsTheDeviceNameAloneWhereTheNetworkApiTakesANullAddress)
{
    napi.takesNullAddress = true;
    QString name;
    EXPECT_EQ(0, manager->getDeviceInfo(3, name, nullptr));
    EXPECT_EQ("wwan0", name.toStdString());
}

TEST_F(Manager, LeavesTheJudgementOfANullAddressToTheNetworkApi)
{
    QString name;
    EXPECT_EQ(NAPI_ERR_ARGUMENT, manager->getDeviceInfo(3, name, nullptr));
    EXPECT_EQ("GetDeviceInfo(3,0,16) GetDeviceInfo(3,2,4)", napi.take());
}

TEST_F(Manager, LeavesTheJudgementOfTheDevicesLinkIdToTheNetworkApi)
{
    napi.nameResult = NAPI_ERR_NO_LINK;
    QString name;
    unsigned long value;
    EXPECT_EQ(NAPI_ERR_NO_LINK, manager->getDeviceInfo(-1, name, &value));
    EXPECT_EQ("GetDeviceInfo(-1,0,16)", napi.take());
}
