#include <csignal>
#include <cstdio>
#include <exception>
#include <new>

#include <fcntl.h>
#include <unistd.h>

#include "failure.h"
#include "line/command_line.h"
#include "output.h"

namespace {

// A descriptor that the caller has closed must not be given to a file of ours, into which the
// output would then go. Opened for reading, it still refuses what is written to it.
void occupyStandardDescriptors()
{
    int fd;
    do
        fd = ::open("/dev/null", O_RDONLY);
    while (fd >= 0 && fd <= STDERR_FILENO);
    if (fd > STDERR_FILENO)
        ::close(fd);
}

int report(const ctl::Failure& failure)
{
    if (*failure.what())
        ctl::note(failure.what() +
                  (failure.advice().empty() ? std::string() : "\n  " + failure.advice()));
    return static_cast<int>(failure.status());
}

} // namespace

int main(int argc, char** argv)
{
    occupyStandardDescriptors();
    // A reader that goes away shows itself as an error of write(), so that a link is closed first.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        return ctl::runCommandLine(argc, argv);
    } catch (const ctl::Failure& failure) {
        return report(failure);
    } catch (const std::bad_alloc&) {
        return report(ctl::Failure(ctl::Exit::Resources, "out of memory."));
    } catch (const std::exception& error) {
        return report(ctl::Failure(ctl::Exit::Internal, error.what()));
    }
}
