// From indication messages to signals.

#include <algorithm>
#include <cstring>
#include <sys/socket.h>
#include <thread>

#include <QEventLoop>

#include "session/session_fixture.h"

namespace {

// Slots with none and with the first of the signal's arguments.
class FewArguments : public QObject
{
    Q_OBJECT

public:
    explicit FewArguments(YDataSessionManager& manager)
    {
        connect(&manager, SIGNAL(connected(int, YLinkInfo&)), SLOT(none()));
        connect(&manager, SIGNAL(connected(int, YLinkInfo&)), SLOT(id(int)));
    }

    std::string log;

public slots:
    void none() { log += "none, "; }
    void id(int linkId) { log += "id " + std::to_string(linkId) + ", "; }
};

// Counts messages whose infoWord is their number, and ends its loop with the last.
class OrderCheck : public QObject
{
    Q_OBJECT

public:
    OrderCheck(YDataSessionManager& manager, unsigned int total) : m_expected(total)
    {
        connect(&manager, SIGNAL(connected(int, YLinkInfo&)), SLOT(connected(int, YLinkInfo&)));
    }

    QEventLoop loop;
    unsigned int count = 0;
    bool inOrder = true;

public slots:
    void connected(int linkId, YLinkInfo& info)
    {
        inOrder = inOrder && info.infoWord == count && linkId == static_cast<int>(count % 256);
        if (++count == m_expected)
            loop.quit();
    }

private:
    const unsigned int m_expected;
};

void sendAll(int descriptor, const std::vector<NapiIndication>& messages)
{
    const char* bytes = reinterpret_cast<const char*>(messages.data());
    std::size_t left = messages.size() * sizeof(NapiIndication);
    while (left > 0) {
        const ssize_t count = ::send(descriptor, bytes, left, MSG_NOSIGNAL);
        ASSERT_GT(count, 0);
        bytes += count;
        left -= static_cast<std::size_t>(count);
    }
}

} // namespace

// Every number of 16 bits, in bursts that fit the socket.
const int allTypes = 65536;
const int burst = 64;

class Indications : public Session
{
protected:
    void SetUp() override
    {
        Session::SetUp();
        initialise();
    }
};

TEST_F(Indications, MapsEachTypeOfAnOrdinaryLink)
{
    const struct
    {
        const char* name;
        uint16_t type;
        uint8_t linkId;
        const char* signal;
    } rows[] = {
        {"default link 0", 3, 0, "connected(0)"},
        {"default link with another id", 3, 5, ""},
        {"connected", 16, 5, "connected(5)"},
        {"connected, link 0", 16, 0, "connected(0)"},
        {"connected, highest id", 16, 255, "connected(255)"},
        {"open failed", 17, 5, "openFailed(5,41394,772)"},
        {"broken", 32, 5, "broken(5)"},
        {"below every type", 0, 0, ""},
        {"just below 3", 2, 0, ""},
        {"just above 3", 4, 0, ""},
        {"just below 16", 15, 5, ""},
        {"just above 17", 18, 5, ""},
        {"just below 32", 31, 5, ""},
        {"just above 32", 33, 5, ""},
        {"16 in the high byte", 0x1000, 5, ""},
        {"greatest type", 65535, 5, ""},
    };
    for (const auto& row : rows) {
        deliver(indication(row.type, row.linkId));
        EXPECT_EQ(row.signal, log->take()) << row.name;
    }
}

TEST_F(Indications, FillsTheLinkInformationFromItsOffsets)
{
    unsigned char bytes[112] = {};
    bytes[0] = 16;
    bytes[2] = 9;
    bytes[3] = 0xFE;
    std::memcpy(bytes + 4, "ppp0", 5);
    bytes[104] = 0x04;
    bytes[105] = 0x03;
    bytes[106] = 0x02;
    bytes[107] = 0x81;
    napi.sendBytes(bytes, sizeof bytes);
    pass();
    EXPECT_EQ(log->take(), "connected(9)");
    ASSERT_EQ(log->infos.size(), 1u);
    EXPECT_EQ(log->infos[0].infoWord, 0x81020304u);
    EXPECT_EQ(log->infos[0].infoByte, 0xFEu);
    EXPECT_STREQ(log->infos[0].infoText, "ppp0");
}

TEST_F(Indications, TakesTheCausesFromTheirOffsets)
{
    unsigned char bytes[112] = {};
    bytes[0] = 17;
    bytes[2] = 200;
    bytes[108] = 0x34;
    bytes[109] = 0x12;
    bytes[110] = 0xCD;
    bytes[111] = 0xAB;
    napi.sendBytes(bytes, sizeof bytes);
    pass();
    EXPECT_EQ(log->take(), "openFailed(200,4660,43981)");
}

TEST_F(Indications, GivesTheSameInformationWithBroken)
{
    deliver(indication(32, 3));
    ASSERT_EQ(log->infos.size(), 1u);
    EXPECT_EQ(log->infos[0].infoWord, 0xDEADBEEFu);
    EXPECT_EQ(log->infos[0].infoByte, 0xC7u);
    EXPECT_STREQ(log->infos[0].infoText, "text of the link");
}

TEST_F(Indications, WaitsForTheLastByteOfAMessage)
{
    const NapiIndication message = indication(16, 4);
    napi.sendBytes(&message, 111);
    pass();
    EXPECT_EQ(log->take(), "");
    EXPECT_EQ(manager->size(), 111u);
    napi.sendBytes(reinterpret_cast<const char*>(&message) + 111, 1);
    pass();
    EXPECT_EQ(log->take(), "connected(4)");
    EXPECT_EQ(manager->size(), 0u);
}

TEST_F(Indications, HandlesThreeMessagesOfOneArrivalInOrder)
{
    const NapiIndication messages[] = {indication(16, 1), indication(17, 2), indication(32, 3)};
    napi.sendBytes(messages, sizeof messages);
    pass();
    EXPECT_EQ(log->take(), "connected(1) openFailed(2,41394,772) broken(3)");
}

TEST_F(Indications, LeavesAPartialMessageBehindWholeOnes)
{
    const NapiIndication messages[] = {indication(16, 1), indication(16, 2)};
    napi.sendBytes(messages, 112 + 50);
    pass();
    EXPECT_EQ(log->take(), "connected(1)");
    EXPECT_EQ(manager->size(), 50u);
    napi.sendBytes(reinterpret_cast<const char*>(messages) + 162, 62);
    pass();
    EXPECT_EQ(log->take(), "connected(2)");
}

TEST_F(Indications, SurvivesAMessageCutAtEveryByte)
{
    const NapiIndication message = indication(16, 8);
    for (std::size_t cut = 1; cut < sizeof message; ++cut) {
        napi.sendBytes(&message, cut);
        pass();
        EXPECT_EQ(log->take(), "") << cut;
        napi.sendBytes(reinterpret_cast<const char*>(&message) + cut, sizeof message - cut);
        pass();
        EXPECT_EQ(log->take(), "connected(8)") << cut;
    }
}

TEST_F(Indications, EmitsNothingWhileTheManagersSignalsAreBlocked)
{
    manager->blockSignals(true);
    deliver(indication(16, 1));
    manager->blockSignals(false);
    EXPECT_EQ(log->take(), "");
}

TEST_F(Indications, ReachesSlotsThatTakeOnlyTheLeadingArguments)
{
    FewArguments few(*manager);
    deliver(indication(16, 6));
    EXPECT_EQ(few.log, "none, id 6, ");
}

TEST_F(Indications, DoesNothingWhenTheNetworkApiClosesTheSocket)
{
    napi.closeWriteEnd();
    pass();
    pass();
    EXPECT_EQ(log->take(), "");
    EXPECT_EQ(napi.take(), "");
    EXPECT_EQ(manager->closeLink(1), 0);
}

TEST_F(Indications, StillHandlesWhatCameBeforeTheSocketWasClosed)
{
    napi.send(indication(16, 1));
    napi.closeWriteEnd();
    pass();
    pass();
    EXPECT_EQ(log->take(), "connected(1)");
}

TEST_F(Indications, ActsOnFourOfAllTypes)
{
    for (int type = 0; type < allTypes; ++type) {
        napi.send(indication(static_cast<uint16_t>(type), type % 2 ? 0 : 9));
        napi.send(indication(static_cast<uint16_t>(type), type % 2 ? 9 : 0));
        if (type % burst == 0)
            pass();
    }
    pass();
    EXPECT_EQ(log->take(), "connected(0) connected(9) connected(0) openFailed(0,41394,772) "
                           "openFailed(9,41394,772) broken(9) broken(0)");
    EXPECT_EQ(napi.take(), "");
}

TEST_F(Indications, LeavesThePopupUpForAllTypesButTwo)
{
    manager->openLink("Internet");
    napi.take();
    for (int type = 0; type < allTypes; ++type) {
        if (type == NAPI_IND_CONNECTED || type == NAPI_IND_OPEN_FAILED)
            continue;
        napi.send(indication(static_cast<uint16_t>(type), 5));
        if (type % burst == 0)
            pass();
    }
    pass();
    EXPECT_EQ(log->take(), "");
    EXPECT_EQ(popupCount(), 1);
    deliver(indication(NAPI_IND_CONNECTED, 5));
    EXPECT_EQ(log->take(), "connected(5)");
    EXPECT_EQ(popupCount(), 0);
}

TEST_F(Indications, StillSignalsWhatWasReportedOfALinkBeforeItWasClosed)
{
    const NapiIndication messages[] = {indication(16, 1), indication(17, 2), indication(32, 3)};
    napi.sendBytes(messages, sizeof messages);
    for (int link = 1; link <= 3; ++link)
        manager->closeLink(link);
    EXPECT_EQ(log->take(), "");
    pass();
    EXPECT_EQ(log->take(), "connected(1) openFailed(2,41394,772) broken(3)");
}

TEST_F(Indications, GoesOnWhenAReceiverClosesALinkInsideTheSignal)
{
    log->inside = [this] { manager->closeLink(1); };
    const NapiIndication messages[] = {indication(16, 1), indication(16, 2)};
    napi.sendBytes(messages, sizeof messages);
    pass();
    EXPECT_EQ(log->take(), "connected(1) connected(2)");
    EXPECT_EQ(napi.take(), "CloseLink(1) CloseLink(1)");
}

TEST_F(Indications, GoesOnWhenAReceiverOpensALinkInsideOpenFailed)
{
    log->inside = [this] { manager->openLinkNoDialog("Again"); };
    const NapiIndication messages[] = {indication(17, 1), indication(16, 2)};
    napi.sendBytes(messages, sizeof messages);
    pass();
    EXPECT_EQ(log->take(), "openFailed(1,41394,772) connected(2)");
    EXPECT_EQ(napi.take(), "OpenLink(Again) OpenLink(Again)");
}

TEST_F(Indications, StopsWhenAReceiverDeletesTheManagerInsideEachSignal)
{
    for (uint16_t type : std::initializer_list<uint16_t>{16, 17, 32}) {
        log->inside = [this] { manager.reset(); };
        const NapiIndication messages[] = {indication(type, 1), indication(type, 2)};
        napi.sendBytes(messages, sizeof messages);
        pass();
        EXPECT_EQ(napi.take(), "Fini()") << type;
        const std::string lines = log->take();
        EXPECT_EQ(std::string::npos, lines.find("(2")) << lines;
        TearDown();
        SetUp();
    }
}

TEST_F(Indications, DeliversTheRestAfterALoopNestedInASlot)
{
    std::string during;
    log->inside = [&] {
        log->inside = nullptr;
        napi.send(indication(16, 2));
        pass();
        during = log->take();
    };
    deliver(indication(16, 1));
    EXPECT_EQ(during, "connected(1)");
    pass();
    EXPECT_EQ(log->take(), "connected(2)");
}

TEST_F(Indications, DeliversAMillionMessagesWholeAndInOrder)
{
    const unsigned int total = 1'000'000;
    log.reset();
    OrderCheck check(*manager, total);
    std::thread sender([this] {
        std::vector<NapiIndication> batch(64);
        for (unsigned int number = 0; number < total; number += 64) {
            for (unsigned int i = 0; i < 64; ++i) {
                batch[i] = indication(NAPI_IND_CONNECTED, static_cast<uint8_t>(number + i));
                batch[i].infoWord = number + i;
            }
            sendAll(napi.writeEnd, batch);
        }
    });
    check.loop.exec();
    sender.join();
    EXPECT_EQ(total, check.count);
    EXPECT_TRUE(check.inOrder);
}

class LinkInformation : public Indications
{
protected:
    // The information that comes of a message with `text` laid over offset 4 and whatever follows.
    YLinkInfo infoOf(const std::string& text)
    {
        char bytes[112] = {NAPI_IND_CONNECTED, 0, 1};
        std::memcpy(bytes + 4, text.data(), std::min<std::size_t>(text.size(), sizeof bytes - 4));
        napi.sendBytes(bytes, sizeof bytes);
        pass();
        EXPECT_EQ(log->take(), "connected(1)");
        return log->infos.back();
    }
};

TEST_F(LinkInformation, HasATextOfEveryLengthThatFits)
{
    for (std::size_t length = 0; length <= 103; ++length) {
        const std::string text(length, 'a');
        EXPECT_EQ(text, infoOf(text).infoText) << length;
    }
}

TEST_F(LinkInformation, StopsAtTheFirstNul)
{
    EXPECT_STREQ(infoOf(std::string("ab\0cd", 5)).infoText, "ab");
}

TEST_F(LinkInformation, ReadsATextWithoutNulOnIntoTheBytesThatFollow)
{
    const YLinkInfo info = infoOf(std::string(100, 'b') + "ABC");
    EXPECT_EQ(std::string(100, 'b') + "ABC", info.infoText);
    EXPECT_EQ(info.infoWord, 0x00434241u);
}

TEST_F(LinkInformation, CutsATextThatWouldRunOverTheRecord)
{
    for (std::size_t length : {104u, 105u, 107u, 108u})
        EXPECT_EQ(std::string(103, 'c'), infoOf(std::string(length, 'c')).infoText) << length;
}

#include "indications_test.moc"
