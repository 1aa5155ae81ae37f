#include "profile/secrets.h"

#include <cerrno>
#include <csignal>
#include <cstring>

#include <termios.h>
#include <unistd.h>

#include "base/durable_file.h"
#include "failure.h"
#include "input_file.h"
#include "output.h"
#include "profile/values.h"

namespace ctl {

namespace {

// More than any field holds, so that a password that is too long is told apart from one that fits.
constexpr std::size_t longestLine = 4096;

// Turns the terminal's echo off for its lifetime. A signal that ends the program turns it on again
// first, so that no shell is left behind that shows nothing.
class SilentTerminal
{
public:
    explicit SilentTerminal(int terminal) : m_terminal(terminal)
    {
        if (::tcgetattr(m_terminal, &m_before) != 0)
            return;
        termios silent = m_before;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        silent.c_lflag |= ECHONL;
        s_active = this;
        for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT})
            std::signal(signal, restoreAndEnd);
        ::tcsetattr(m_terminal, TCSAFLUSH, &silent);
    }
    ~SilentTerminal()
    {
        if (s_active != this)
            return;
        restore();
        s_active = nullptr;
        for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT})
            std::signal(signal, SIG_DFL);
    }
    SilentTerminal(const SilentTerminal&) = delete;
    SilentTerminal& operator=(const SilentTerminal&) = delete;

private:
    void restore() const { ::tcsetattr(m_terminal, TCSANOW, &m_before); }
    static void restoreAndEnd(int signal)
    {
        s_active->restore();
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }

    static SilentTerminal* s_active;
    int m_terminal;
    termios m_before = {};
};

SilentTerminal* SilentTerminal::s_active = nullptr;

// A file and a line that come from another system end in a carriage return, too.
std::string withoutReturn(std::string line)
{
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

// One line, byte by byte: what follows it belongs to the next reader of the standard input.
std::string readLine()
{
    std::string line;
    for (;;) {
        char byte = 0;
        const ssize_t count = base::retried([&] { return ::read(STDIN_FILENO, &byte, 1); });
        if (count < 0)
            throw Failure(Exit::Password, std::string("cannot read the password from the standard "
                                                      "input: ") +
                                              std::strerror(errno) + ".");
        if (count == 0 && line.empty())
            throw Failure(Exit::Password, "the standard input ended before a password came.",
                          "Give one line for each password, or use --password-file.");
        if (count == 0 || byte == '\n')
            return withoutReturn(line);
        if (line.size() == longestLine)
            throw Failure(Exit::Password, "the line with the password does not end.");
        line += byte;
    }
}

std::string askFor(const Field& field)
{
    if (!::isatty(STDIN_FILENO))
        return readLine();
    const std::string prompt = std::string(field.label) + ": ";
    const SilentTerminal silent(STDIN_FILENO);
    writeAll(STDERR_FILENO, prompt, "the prompt");
    return readLine();
}

// What stands in the place of the file's name may be the password itself, and is not repeated.
std::string fromFile(const std::string& option, const std::string& path)
{
    std::string text;
    try {
        text = readFile(path, longestLine, Exit::Password, "the file of " + option);
    } catch (const Failure& failure) {
        throw Failure(failure.status(), failure.what(),
                      option + " takes the name of a file in which the password is the one line.");
    }
    if (!text.empty() && text.back() == '\n')
        text.pop_back();
    return withoutReturn(text);
}

void take(const char* name, bool ask, const std::string& file, NetworkProfile& record)
{
    if (!ask && file.empty())
        return;
    if (ask && !file.empty())
        throw Failure(Exit::Usage,
                      std::string("--") + name + " and --" + name + "-file do not go together.");
    const Field& field = *findField(name);
    const std::string password =
        ask ? askFor(field) : fromFile(std::string("--") + name + "-file", file);
    if (const auto problem = parseValue(field, password, record))
        throw Failure(Exit::Usage, std::string(name) + ": " + *problem + ".");
}

} // namespace

void takePasswords(const Request& request, NetworkProfile& record)
{
    take("password", request.askPassword, request.passwordFile, record);
    take("csd-password", request.askCsdPassword, request.csdPasswordFile, record);
}

void copyPasswords(const Request& request, const NetworkProfile& taken, NetworkProfile& record)
{
    if (request.askPassword || !request.passwordFile.empty())
        std::memcpy(record.gprsPassword, taken.gprsPassword, sizeof record.gprsPassword);
    if (request.askCsdPassword || !request.csdPasswordFile.empty())
        std::memcpy(record.csdPassword, taken.csdPassword, sizeof record.csdPassword);
}

} // namespace ctl
