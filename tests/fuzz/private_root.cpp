#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

#include "common/temporary_folder.h"
#include "fuzz/target.h"

// Thousands of inputs are stored; that they outlive a loss of power is not the question here.
extern "C" int fsync(int)
{
    return 0;
}

extern "C" int fdatasync(int)
{
    return 0;
}

namespace fuzz {

namespace {

struct Root
{
    TemporaryFolder folder;

    Root()
    {
        ::setenv("VORN_ROOT", folder.path().c_str(), 1);
        std::filesystem::current_path(folder.path());
        ::setsid();
        const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
        ::dup2(nothing, STDIN_FILENO);
        ::dup2(nothing, STDOUT_FILENO);
        ::close(nothing);
    }

    ~Root()
    {
        std::error_code ignored;
        std::filesystem::current_path("/", ignored);
    }
};

} // namespace

const std::string& privateRoot()
{
    static const Root root;
    return root.folder.path();
}

} // namespace fuzz
