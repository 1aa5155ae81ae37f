// A file descriptor with one owner, closed with it.
#ifndef BASE_UNIQUE_FD_H
#define BASE_UNIQUE_FD_H

#include <unistd.h>

namespace base {

class UniqueFd
{
public:
    UniqueFd() = default;
    explicit UniqueFd(int fd) : m_fd(fd) {}
    UniqueFd(UniqueFd&& other) noexcept : m_fd(other.release()) {}
    UniqueFd& operator=(UniqueFd&& other) noexcept
    {
        reset(other.release());
        return *this;
    }
    ~UniqueFd() { reset(); }

    int get() const { return m_fd; }
    bool isOpen() const { return m_fd >= 0; }
    int release()
    {
        int fd = m_fd;
        m_fd = -1;
        return fd;
    }
    void reset(int fd = -1)
    {
        if (m_fd >= 0)
            ::close(m_fd);
        m_fd = fd;
    }

private:
    int m_fd = -1;
};

} // namespace base

#endif
