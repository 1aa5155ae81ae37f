// The client socket that the session manager is, on both ends of a socket pair.

#include <qwssocket_qws.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>

#include "common/interposed.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>

namespace {

int recvCalls = 0;

} // namespace

// Stands before the C library's own, and counts.
extern "C" __attribute__((visibility("default"))) ssize_t recv(int descriptor, void* bytes,
                                                               std::size_t count, int flags)
{
    ++recvCalls;
    return nextOf<decltype(&::recv)>("recv")(descriptor, bytes, count, flags);
}

namespace {

// Notes the socket's signals in order, and lets a test act inside readyRead().
class Listener : public QObject
{
    Q_OBJECT

public:
    explicit Listener(QWSSocket* watched) : socket(watched)
    {
        connect(watched, SIGNAL(readyRead()), SLOT(ready()));
        connect(watched, SIGNAL(connectionClosed()), SLOT(closed()));
        connect(watched, SIGNAL(error(int)), SLOT(failed(int)));
    }

    QWSSocket* socket;
    std::string log;
    std::function<void()> inside;
    std::function<void()> insideClosed;

public slots:
    void ready()
    {
        log += "ready ";
        if (inside)
            inside();
    }
    void closed()
    {
        log += "closed ";
        if (insideClosed)
            insideClosed();
    }
    void failed(int code) { log += "error " + std::to_string(code) + " "; }
};

class QwsSocket : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
        socket = new QWSSocket;
        socket->setSocket(ends[0]);
        listener = new Listener(socket);
    }

    void TearDown() override
    {
        delete listener;
        delete socket;
        if (ends[1] >= 0)
            ::close(ends[1]);
    }

    void send(std::size_t count) { send(std::string(count, 'x')); }
    void send(const std::string& bytes)
    {
        ASSERT_EQ(static_cast<ssize_t>(bytes.size()),
                  ::send(ends[1], bytes.data(), bytes.size(), MSG_NOSIGNAL));
    }

    std::string read(unsigned int maximum)
    {
        std::string bytes(maximum, '\0');
        const int count = socket->readBlock(bytes.data(), maximum);
        EXPECT_GE(count, 0);
        bytes.resize(static_cast<std::size_t>(std::max(count, 0)));
        return bytes;
    }

    static void pass() { QCoreApplication::processEvents(); }

    void closePeer()
    {
        ::close(ends[1]);
        ends[1] = -1;
    }

    static bool isOpen(int descriptor) { return ::fcntl(descriptor, F_GETFD) >= 0; }

    int ends[2] = {-1, -1};
    QWSSocket* socket = nullptr;
    Listener* listener = nullptr;
};

} // namespace

TEST_F(QwsSocket, AdoptsADescriptorNonBlockingAndCloseOnExec)
{
    EXPECT_EQ(ends[0], socket->socket());
    EXPECT_TRUE(::fcntl(ends[0], F_GETFL) & O_NONBLOCK);
    EXPECT_TRUE(::fcntl(ends[0], F_GETFD) & FD_CLOEXEC);
}

TEST_F(QwsSocket, SignalsEachPieceAsItComes)
{
    send(111);
    pass();
    EXPECT_EQ(listener->log, "ready ");
    EXPECT_EQ(socket->size(), 111u);
    send(1);
    pass();
    EXPECT_EQ(listener->log, "ready ready ");
    EXPECT_EQ(socket->size(), 112u);
}

TEST_F(QwsSocket, SignalsOnceForWhatWaitsTogether)
{
    send(112);
    send(112);
    send(112);
    pass();
    EXPECT_EQ(listener->log, "ready ");
    EXPECT_EQ(socket->size(), 336u);
}

TEST_F(QwsSocket, TakesHoweverManyMessagesWaitWithOneSystemCall)
{
    listener->inside = [this] { read(64 * 1024); };
    for (int messages : {1, 2, 36, 37, 64, 200}) {
        for (int i = 0; i < messages; ++i)
            send(112);
        recvCalls = 0;
        listener->log.clear();
        pass();
        EXPECT_EQ(recvCalls, 1) << messages;
        EXPECT_EQ(listener->log, "ready ") << messages;
        EXPECT_EQ(socket->size(), 0u) << messages;
    }
    recvCalls = 0;
    pass();
    EXPECT_EQ(recvCalls, 0) << "without anything that waits";
}

TEST_F(QwsSocket, GivesTheBytesInTheirOrder)
{
    send("abc");
    pass();
    send("defg");
    pass();
    EXPECT_EQ(read(2), "ab");
    EXPECT_EQ(read(100), "cdefg");
    EXPECT_EQ(read(100), "");
}

TEST_F(QwsSocket, DoesNotSignalAgainForBytesLeftUnread)
{
    listener->inside = [this] { read(112); };
    send(336);
    pass();
    pass();
    EXPECT_EQ(listener->log, "ready ");
    send(1);
    pass();
    EXPECT_EQ(listener->log, "ready ready ");
    EXPECT_EQ(socket->size(), 113u);
}

TEST_F(QwsSocket, CountsNothingNewInsideTheSlot)
{
    unsigned int inside = 0;
    listener->inside = [&] {
        if (listener->log == "ready ")
            send(50);
        inside = socket->size();
    };
    send(20);
    pass();
    EXPECT_EQ(inside, 20u);
    EXPECT_EQ(listener->log, "ready ");
    pass();
    EXPECT_EQ(listener->log, "ready ready ");
    EXPECT_EQ(inside, 70u);
}

TEST_F(QwsSocket, FetchesAndSignalsWhenAskedForItsSizeOutsideTheSlot)
{
    send(112);
    EXPECT_EQ(socket->size(), 112u);
    EXPECT_EQ(listener->log, "ready ");
}

TEST_F(QwsSocket, ReadsNothingBeforeAPassOfTheLoop)
{
    send(112);
    EXPECT_EQ(read(112), "");
}

TEST_F(QwsSocket, BuffersWhatNobodyReadsSoThatTheSenderNeverBlocks)
{
    const std::size_t total = 32u * 1024 * 1024;
    std::thread sender([&] {
        const std::string block(64 * 1024, 'y');
        for (std::size_t sent = 0; sent < total; sent += block.size())
            ASSERT_EQ(static_cast<ssize_t>(block.size()),
                      ::send(ends[1], block.data(), block.size(), MSG_NOSIGNAL));
    });
    QElapsedTimer limit;
    limit.start();
    while (socket->size() < total && limit.elapsed() < 60000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    sender.join();
    EXPECT_EQ(total, socket->size());
    EXPECT_EQ(std::string(total, 'y'), read(static_cast<unsigned int>(total)));
}

TEST_F(QwsSocket, TellsTheEndAfterTheLastBytesAndKeepsThem)
{
    send(5);
    closePeer();
    pass();
    pass();
    EXPECT_EQ(listener->log, "ready closed ");
    EXPECT_EQ(socket->size(), 5u);
    EXPECT_EQ(read(100), "xxxxx");
    EXPECT_EQ(read(100), "");
    EXPECT_EQ(socket->socket(), -1);
    EXPECT_FALSE(isOpen(ends[0]));
}

TEST_F(QwsSocket, TellsTheEndWhenThePeerOnlyStopsSending)
{
    ::shutdown(ends[1], SHUT_WR);
    pass();
    EXPECT_EQ(listener->log, "closed ");
}

TEST_F(QwsSocket, ReportsAResetAsAReadErrorOnly)
{
    ASSERT_EQ(::send(ends[0], "z", 1, MSG_NOSIGNAL), 1);
    closePeer();
    pass();
    pass();
    EXPECT_EQ(listener->log, "error 2 ");
    EXPECT_TRUE(isOpen(ends[0]));
}

TEST_F(QwsSocket, ReportsADescriptorThatIsNoSocketAsAReadErrorOnly)
{
    int pipeEnds[2];
    ASSERT_EQ(::pipe2(pipeEnds, O_CLOEXEC), 0);
    socket->setSocket(pipeEnds[0]);
    ASSERT_EQ(::write(pipeEnds[1], "q", 1), 1);
    pass();
    pass();
    EXPECT_EQ(listener->log, "error 2 ");
    ::close(pipeEnds[1]);
}

TEST_F(QwsSocket, ReadsMinusOneWhenNoSocketWasEverSet)
{
    QWSSocket fresh;
    char byte;
    EXPECT_EQ(fresh.readBlock(&byte, 1), -1);
    EXPECT_EQ(fresh.size(), 0u);
    EXPECT_EQ(fresh.socket(), -1);
}

TEST_F(QwsSocket, ClosesWithoutASignalAndDropsWhatIsUnread)
{
    send(7);
    pass();
    listener->log.clear();
    socket->close();
    char byte;
    EXPECT_EQ(socket->readBlock(&byte, 1), -1);
    EXPECT_EQ(socket->size(), 0u);
    EXPECT_FALSE(isOpen(ends[0]));
    pass();
    EXPECT_EQ(listener->log, "");
}

TEST_F(QwsSocket, ClosesTheFirstSocketWhenASecondIsSet)
{
    send(7);
    pass();
    int more[2];
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, more), 0);
    socket->setSocket(more[0]);
    EXPECT_FALSE(isOpen(ends[0]));
    EXPECT_EQ(socket->size(), 0u);
    ASSERT_EQ(::send(more[1], "new", 3, 0), 3);
    pass();
    EXPECT_EQ(read(10), "new");
    ::close(more[1]);
}

TEST_F(QwsSocket, ClosesItsDescriptorWhenDestroyed)
{
    delete listener;
    listener = nullptr;
    delete socket;
    socket = nullptr;
    EXPECT_FALSE(isOpen(ends[0]));
}

TEST_F(QwsSocket, MayBeDeletedInsideReadyRead)
{
    listener->inside = [this] {
        delete socket;
        socket = nullptr;
    };
    send(336);
    pass();
    EXPECT_EQ(listener->log, "ready ");
    EXPECT_FALSE(isOpen(ends[0]));
}

TEST_F(QwsSocket, MayBeDeletedInsideConnectionClosed)
{
    listener->insideClosed = [this] {
        delete socket;
        socket = nullptr;
    };
    closePeer();
    pass();
    EXPECT_EQ(listener->log, "closed ");
}

TEST_F(QwsSocket, MayBeDeletedInALoopNestedInsideReadyRead)
{
    listener->inside = [this] {
        QEventLoop loop;
        QMetaObject::invokeMethod(
            listener,
            [&] {
                delete socket;
                socket = nullptr;
                loop.quit();
            },
            Qt::QueuedConnection);
        loop.exec();
    };
    send(112);
    pass();
    EXPECT_EQ(listener->log, "ready ");
}

TEST_F(QwsSocket, MayBeClosedInsideReadyRead)
{
    listener->inside = [this] { socket->close(); };
    send(112);
    pass();
    pass();
    EXPECT_EQ(listener->log, "ready ");
    EXPECT_FALSE(isOpen(ends[0]));
}

TEST_F(QwsSocket, ServesANewSocketThatWasSetInsideReadyRead)
{
    int more[2];
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, more), 0);
    listener->inside = [&] {
        listener->inside = nullptr;
        socket->setSocket(more[0]);
        ASSERT_EQ(::send(more[1], "new", 3, 0), 3);
    };
    send(112);
    pass();
    pass();
    EXPECT_EQ(listener->log, "ready ready ");
    EXPECT_EQ(read(10), "new");
    ::close(more[1]);
}

TEST_F(QwsSocket, SignalsNothingInsideALoopNestedInItsSlotButAfterwards)
{
    std::string during;
    listener->inside = [&] {
        listener->inside = nullptr;
        send(112);
        for (int i = 0; i < 3; ++i)
            pass();
        during = listener->log;
    };
    send(112);
    pass();
    EXPECT_EQ(during, "ready ");
    pass();
    EXPECT_EQ(listener->log, "ready ready ");
}

TEST_F(QwsSocket, BuffersWhileItsSignalsAreBlocked)
{
    socket->blockSignals(true);
    send(10);
    pass();
    socket->blockSignals(false);
    pass();
    EXPECT_EQ(listener->log, "");
    send(1);
    pass();
    EXPECT_EQ(listener->log, "ready ");
    EXPECT_EQ(socket->size(), 11u);
}

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#include "qwssocket_test.moc"
