// A million indications through the session manager's signal into a slot, against a loop of one
// read(2) for each message on the same kind of socket pair. Another process writes them, message by
// message or 64 at once.

#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <QApplication>
#include <QEventLoop>

#include <napi.h>
#include <ydatasessionmanager.h>

#include "ratios.h"

namespace {

constexpr unsigned int total = 1'000'000;

// The read end that the next manager is given as its indication socket.
int nextIndicationSocket = -1;

void fill(NapiIndication& message, unsigned int number)
{
    message = {};
    message.type = NAPI_IND_CONNECTED;
    message.linkId = static_cast<uint8_t>(number);
    message.infoByte = NAPI_BEARER_GPRS;
    std::strcpy(message.infoText, "wwan0");
    message.infoWord = number;
}

void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::perror(what);
    std::abort();
}

void writeAll(int descriptor, const char* bytes, std::size_t size)
{
    while (size > 0) {
        const ssize_t count = ::send(descriptor, bytes, size, MSG_NOSIGNAL);
        require(count > 0, "send");
        bytes += count;
        size -= static_cast<std::size_t>(count);
    }
}

// A process that writes all messages, `batch` with each send, once it is told to begin.
class Writer
{
public:
    explicit Writer(unsigned int batch)
    {
        require(::socketpair(AF_UNIX, SOCK_STREAM, 0, m_ends) == 0, "socketpair");
        require(::pipe(m_start) == 0, "pipe");
        m_process = ::fork();
        require(m_process >= 0, "fork");
        if (m_process == 0)
            write(batch);
        ::close(m_ends[1]);
        ::close(m_start[0]);
    }

    ~Writer()
    {
        ::waitpid(m_process, nullptr, 0);
        ::close(m_start[1]);
    }

    int readEnd() const { return m_ends[0]; }
    void begin() { require(::write(m_start[1], "b", 1) == 1, "write"); }

private:
    [[noreturn]] void write(unsigned int batch)
    {
        ::close(m_ends[0]);
        std::vector<NapiIndication> messages(batch);
        char go;
        if (::read(m_start[0], &go, 1) != 1)
            ::_exit(1);
        for (unsigned int number = 0; number < total; number += batch) {
            for (unsigned int i = 0; i < batch; ++i)
                fill(messages[i], number + i);
            writeAll(m_ends[1], reinterpret_cast<const char*>(messages.data()),
                     batch * sizeof(NapiIndication));
        }
        ::_exit(0);
    }

    int m_ends[2];
    int m_start[2];
    pid_t m_process = -1;
};

// Counts what comes and sees that nothing is missing or out of order.
class Receiver : public QObject
{
    Q_OBJECT

public:
    explicit Receiver(YDataSessionManager& manager)
    {
        connect(&manager, SIGNAL(connected(int, YLinkInfo&)), SLOT(connected(int, YLinkInfo&)));
    }

    QEventLoop loop;
    unsigned int count = 0;
    bool inOrder = true;

public slots:
    void connected(int, YLinkInfo& info)
    {
        inOrder = inOrder && info.infoWord == count;
        if (++count == total)
            loop.quit();
    }
};

// A message that was sent in pieces is read in pieces.
void readWhole(int descriptor, NapiIndication* message)
{
    std::size_t got = 0;
    while (got < sizeof *message) {
        const ssize_t n =
            ::read(descriptor, reinterpret_cast<char*>(message) + got, sizeof *message - got);
        require(n > 0, "read");
        got += static_cast<std::size_t>(n);
    }
}

void readLoop(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Writer writer(static_cast<unsigned int>(state.range(0)));
        NapiIndication message;
        bool inOrder = true;
        state.ResumeTiming();
        writer.begin();
        for (unsigned int count = 0; count < total; ++count) {
            readWhole(writer.readEnd(), &message);
            inOrder = inOrder && message.infoWord == count;
        }
        state.PauseTiming();
        ::close(writer.readEnd());
        if (!inOrder)
            state.SkipWithError("messages lost or out of order");
        state.ResumeTiming();
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * total);
}

void sessionManager(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Writer writer(static_cast<unsigned int>(state.range(0)));
        nextIndicationSocket = writer.readEnd();
        {
            YDataSessionManager manager;
            Receiver receiver(manager);
            require(manager.init(false) >= 0, "init");
            state.ResumeTiming();
            writer.begin();
            receiver.loop.exec();
            state.PauseTiming();
            if (receiver.count != total || !receiver.inOrder)
                state.SkipWithError("messages lost or out of order");
        }
        state.ResumeTiming();
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * total);
}

BENCHMARK(readLoop)->Arg(1)->Arg(64)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(sessionManager)
    ->Arg(1)
    ->Arg(64)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

} // namespace

// These stand in the place of the network API's own calls.
int NAPI_Init(int)
{
    return nextIndicationSocket;
}

int NAPI_Fini()
{
    return NAPI_OK;
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    return bench::run(argc, argv,
                      {{"sessionManager/1", "readLoop/1", 1 / 0.9},
                       {"sessionManager/64", "readLoop/64", 1 / 1.5}});
}

#include "indications_bench.moc"
