// How vornctl ends: the exit statuses, and the one exception that carries a failure up to main.
#ifndef COMMON_FAILURE_H
#define COMMON_FAILURE_H

#include <stdexcept>
#include <string>
#include <vector>

namespace ctl {

// Scripts rely on these numbers: a number never changes its meaning.
enum class Exit : int {
    Done = 0,
    Found = 1,
    Usage = 2,
    NoProfile = 3,
    Exists = 4,
    Name = 5,
    Damaged = 6,
    NoRoom = 7,
    Access = 8,
    Io = 9,
    Root = 10,
    OpenFailed = 11,
    Broken = 12,
    TimedOut = 13,
    Resources = 14,
    Input = 15,
    NoEntry = 16,
    Configuration = 17,
    Output = 18,
    Password = 19,
    Internal = 20,
    Service = 21,
    Busy = 22,
    NotSynced = 23,
    HungUp = 129,
    Interrupted = 130,
    Pipe = 141,
    Terminated = 143
};

struct ExitMeaning
{
    Exit status;
    const char* meaning;
};

// Every exit status with its meaning, in ascending order.
const std::vector<ExitMeaning>& exitMeanings();

// The exit status that belongs to a negative result of the network API.
Exit exitOfResult(int result);

// What to do about Exit::NotSynced; `where` is the file or the folder, for a person to read.
std::string notConfirmedAdvice(const std::string& where);

// A failure to be told on the standard error output: what() says what failed and why, `advice` what
// a person can do about it ("" when there is nothing to say). Both are safe to print on a terminal.
// An empty what() ends the program without a word.
class Failure : public std::runtime_error
{
public:
    Failure(Exit status, const std::string& what, std::string advice = {})
        : std::runtime_error(what), m_status(status), m_advice(std::move(advice))
    {}

    Exit status() const { return m_status; }
    const std::string& advice() const { return m_advice; }

private:
    Exit m_status;
    std::string m_advice;
};

} // namespace ctl

#endif
