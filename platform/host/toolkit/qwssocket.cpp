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

QWSSocket::QWSSocket(QObject* parent, const char* name) : QObject(parent), m_d(new Private)
{
    if (name)
        setObjectName(QString::fromUtf8(name));
}

QWSSocket::~QWSSocket()
{
    delete m_d->notifier;
    m_d->notifier = nullptr;
    m_d->end();
    delete m_d;
}

void QWSSocket::setSocket(int socket)
{
    close();
    if (socket < 0)
        return;
    ::fcntl(socket, F_SETFL, ::fcntl(socket, F_GETFL) | O_NONBLOCK);
    ::fcntl(socket, F_SETFD, FD_CLOEXEC);
    m_d->descriptor = socket;
    m_d->adopted = true;
    m_d->notifier = new QSocketNotifier(socket, QSocketNotifier::Read, this);
    connect(m_d->notifier, SIGNAL(activated(QSocketDescriptor)), this, SLOT(fetch()));
    // A socket set from inside a slot of readyRead() is a new one: its bytes are served afterwards.
    m_d->notifier->setEnabled(!m_d->inside);
}

int QWSSocket::socket() const
{
    return m_d->descriptor;
}

void QWSSocket::close()
{
    m_d->end();
    m_d->adopted = false;
    m_d->buffer.clear();
}

unsigned int QWSSocket::size() const
{
    int waiting = 0;
    if (m_d->descriptor >= 0 && !m_d->inside && ::ioctl(m_d->descriptor, FIONREAD, &waiting) == 0 &&
        waiting > 0)
        const_cast<QWSSocket*>(this)->fetch();
    return static_cast<unsigned int>(m_d->buffer.size());
}

int QWSSocket::readBlock(char* data, unsigned int maximum)
{
    if (!m_d->adopted)
        return -1;
    return static_cast<int>(m_d->buffer.take(data, maximum));
}

// One recv(2) takes all that waits, so that a burst costs a handful of system calls, and returns to
// the event loop afterwards, so that nothing else starves.
void QWSSocket::fetch()
{
    if (m_d->descriptor < 0 || m_d->inside)
        return;
    int waiting = 0;
    ::ioctl(m_d->descriptor, FIONREAD, &waiting);
    const std::size_t wanted =
        std::max(smallestFetch, static_cast<std::size_t>(std::max(waiting, 0)));
    const ssize_t count = ::recv(m_d->descriptor, m_d->buffer.reserve(wanted), wanted, 0);
    if (count == 0) {
        m_d->end();
        emit connectionClosed();
        return;
    }
    if (count < 0) {
        if (errno == EAGAIN || errno == EINTR)
            return;
        m_d->notifier->setEnabled(false);
        emit error(readError);
        return;
    }
    m_d->buffer.added(static_cast<std::size_t>(count));
    m_d->inside = true;
    m_d->notifier->setEnabled(false);
    QPointer<QWSSocket> self(this);
    emit readyRead();
    if (!self)
        return;
    m_d->inside = false;
    if (m_d->notifier)
        m_d->notifier->setEnabled(true);
}
