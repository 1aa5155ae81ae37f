#include <qwssocket_qws.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QPointer>
#include <QSocketNotifier>

namespace {

// The read error of the socket class that this one stands for.
constexpr int readError = 2;
// The least that one fetch asks for; the size of a page, which the kernel copies at no extra cost.
constexpr std::size_t smallestFetch = 4096;
// An empty buffer larger than this is given back, so that one burst does not cost memory for ever.
constexpr std::size_t keptCapacity = 256 * 1024;

} // namespace

// Bytes in order of arrival: written at the end, taken from the front.
class QWSSocket::Buffer
{
public:
    Buffer() = default;
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;
    ~Buffer() { std::free(m_bytes); }

    std::size_t size() const { return m_end - m_begin; }

    // Room for `count` bytes behind the last one.
    char* reserve(std::size_t count)
    {
        if (m_capacity - m_end >= count)
            return m_bytes + m_end;
        if (m_begin > 0)
            moveToFront();
        if (m_capacity - m_end < count)
            grow(m_end + count);
        return m_bytes + m_end;
    }

    void added(std::size_t count) { m_end += count; }

    std::size_t take(char* data, std::size_t maximum)
    {
        const std::size_t count = std::min(maximum, size());
        if (count > 0)
            std::memcpy(data, m_bytes + m_begin, count);
        m_begin += count;
        if (m_begin == m_end)
            clear();
        return count;
    }

    void clear()
    {
        m_begin = m_end = 0;
        if (m_capacity <= keptCapacity)
            return;
        std::free(m_bytes);
        m_bytes = nullptr;
        m_capacity = 0;
    }

private:
    void moveToFront()
    {
        std::memmove(m_bytes, m_bytes + m_begin, size());
        m_end -= m_begin;
        m_begin = 0;
    }

    void grow(std::size_t needed)
    {
        const std::size_t wanted = std::max(needed, m_capacity * 2);
        void* larger = std::realloc(m_bytes, wanted);
        if (!larger)
            throw std::bad_alloc();
        m_bytes = static_cast<char*>(larger);
        m_capacity = wanted;
    }

    char* m_bytes = nullptr;
    std::size_t m_capacity = 0;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
};

struct QWSSocket::Private
{
    int descriptor = -1;
    bool adopted = false; // a socket was set and not closed from this side
    bool inside = false;  // a slot of readyRead() runs
    QSocketNotifier* notifier = nullptr;
    Buffer buffer;

    // The result of recv(2), for all that waits; what came is not yet added to the buffer.
    ssize_t receive()
    {
        int waiting = 0;
        ::ioctl(descriptor, FIONREAD, &waiting);
        const std::size_t wanted =
            std::max(smallestFetch, static_cast<std::size_t>(std::max(waiting, 0)));
        return ::recv(descriptor, buffer.reserve(wanted), wanted, 0);
    }

    // The notifier may be the caller of the running slot, so that it must outlive it.
    void end()
    {
        if (notifier) {
            notifier->setEnabled(false);
            notifier->deleteLater();
            notifier = nullptr;
        }
        if (descriptor >= 0)
            ::close(descriptor);
        descriptor = -1;
    }
};

QWSSocket::QWSSocket(QObject* parent, const char* name) : QObject(parent), d(new Private)
{
    if (name)
        setObjectName(QString::fromUtf8(name));
}

QWSSocket::~QWSSocket()
{
    delete d->notifier;
    d->notifier = nullptr;
    d->end();
    delete d;
}

void QWSSocket::setSocket(int socket)
{
    close();
    if (socket < 0)
        return;
    ::fcntl(socket, F_SETFL, ::fcntl(socket, F_GETFL) | O_NONBLOCK);
    ::fcntl(socket, F_SETFD, FD_CLOEXEC);
    d->descriptor = socket;
    d->adopted = true;
    d->notifier = new QSocketNotifier(socket, QSocketNotifier::Read, this);
    connect(d->notifier, SIGNAL(activated(QSocketDescriptor)), this, SLOT(fetch()));
    // A socket set from inside a slot of readyRead() is a new one: its bytes are served afterwards.
    d->notifier->setEnabled(!d->inside);
}

int QWSSocket::socket() const
{
    return d->descriptor;
}

void QWSSocket::close()
{
    d->end();
    d->adopted = false;
    d->buffer.clear();
}

unsigned int QWSSocket::size() const
{
    int waiting = 0;
    if (d->descriptor >= 0 && !d->inside && ::ioctl(d->descriptor, FIONREAD, &waiting) == 0 &&
        waiting > 0)
        const_cast<QWSSocket*>(this)->fetch();
    return static_cast<unsigned int>(d->buffer.size());
}

int QWSSocket::readBlock(char* data, unsigned int maximum)
{
    if (!d->adopted)
        return -1;
    return static_cast<int>(d->buffer.take(data, maximum));
}

// One recv(2) takes all that waits, so that a burst costs a handful of system calls, and returns to
// the event loop afterwards, so that nothing else starves.
void QWSSocket::fetch()
{
    if (d->descriptor < 0 || d->inside)
        return;
    const ssize_t count = d->receive();
    if (count == 0) {
        d->end();
        emit connectionClosed();
        return;
    }
    if (count < 0) {
        if (errno == EAGAIN || errno == EINTR)
            return;
        d->notifier->setEnabled(false);
        emit error(readError);
        return;
    }
    d->buffer.added(static_cast<std::size_t>(count));
    d->inside = true;
    d->notifier->setEnabled(false);
    QPointer<QWSSocket> self(this);
    emit readyRead();
    if (!self)
        return;
    d->inside = false;
    if (d->notifier)
        d->notifier->setEnabled(true);
}
