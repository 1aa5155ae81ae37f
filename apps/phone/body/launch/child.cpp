#include "child.h"

#include <cerrno>
#include <ctime>

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace phone {

namespace {

constexpr int patience = 3000; // milliseconds
constexpr int look = 20;

sigset_t heldSignals()
{
    sigset_t held;
    sigemptyset(&held);
    for (const int number : {SIGCHLD, SIGINT, SIGTERM, SIGHUP})
        sigaddset(&held, number);
    return held;
}

void redirect(const std::string& file)
{
    if (file.empty())
        return;
    const int log = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (log < 0)
        return;
    dup2(log, STDOUT_FILENO);
    dup2(log, STDERR_FILENO);
}

// In the child. An errno goes through the pipe, which a program that has begun closes.
[[noreturn]] void become(std::vector<char*>& arguments, const Output& output, pid_t parent,
                         int trouble)
{
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != parent) // which has ended before it could be told
        _exit(1);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    redirect(output.file);
    execvp(arguments[0], arguments.data());
    const int error = errno;
    _exit(write(trouble, &error, sizeof error) == sizeof error ? 127 : 126);
}

void pause(int milliseconds)
{
    const timespec time{0, milliseconds * 1000000L};
    nanosleep(&time, nullptr);
}

} // namespace

Child::~Child()
{
    end();
}

int Child::start(const std::vector<std::string>& arguments, const Output& output)
{
    std::vector<char*> words;
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return errno;
    const pid_t own = getpid();
    const pid_t child = fork();
    if (child == 0)
        become(words, output, own, ends[1]);
    int error = child < 0 ? errno : 0;
    close(ends[1]);
    if (child > 0 && read(ends[0], &error, sizeof error) == sizeof error)
        waitpid(child, nullptr, 0);
    else if (child > 0)
        m_id = child;
    close(ends[0]);
    return error;
}

void Child::end()
{
    if (m_id <= 0)
        return;
    kill(-m_id, SIGTERM);
    if (!waitUntilEnded()) {
        kill(-m_id, SIGKILL);
        waitpid(m_id, nullptr, 0);
    }
    m_id = 0;
}

bool Child::waitUntilEnded() const
{
    for (int waited = 0; waited < patience; waited += look) {
        if (waitpid(m_id, nullptr, WNOHANG) == m_id)
            return true;
        pause(look);
    }
    return false;
}

int exitStatus(int waited)
{
    return WIFSIGNALED(waited) ? 128 + WTERMSIG(waited) : WEXITSTATUS(waited);
}

void holdSignals()
{
    const sigset_t held = heldSignals();
    sigprocmask(SIG_BLOCK, &held, nullptr);
}

int nextSignal(int milliseconds)
{
    const sigset_t held = heldSignals();
    const timespec time{milliseconds / 1000, milliseconds % 1000 * 1000000L};
    const int number = sigtimedwait(&held, nullptr, &time);
    return number > 0 ? number : 0;
}

} // namespace phone
