// Runs itself as another program, because the log is attached when a program is loaded.
#include "applog.h"

#include <cstring>

#include "applogport.h"
#include "settings/settings_root.h"

namespace {

class ApplicationLog : public SettingsRoot
{
protected:
    // What a program prints on standard output and standard error when it logs "message".
    static std::string run(const std::string& log)
    {
        const std::string program = std::filesystem::read_symlink("/proc/self/exe");
        const std::string command = "VORN_APPLOG='" + log + "' '" + program + "' log 2>&1";
        std::string printed;
        FILE* pipe = ::popen(command.c_str(), "r");
        if (!pipe)
            return "the program cannot be started";
        for (int character; (character = std::fgetc(pipe)) != EOF;)
            printed += static_cast<char>(character);
        if (::pclose(pipe) != 0)
            printed += "the program has failed";
        return printed;
    }

    std::string log() const { return root + "/application.log"; }
};

TEST_F(ApplicationLog, IsNotAttachedWhereNoFileIsNamed)
{
    EXPECT_EQ(run(""), "not attached\n");
}

TEST_F(ApplicationLog, IsAppendedToLineByLine)
{
    write(log(), "before\n");
    EXPECT_EQ(run(log()), "before\nmessage\n");
    EXPECT_EQ(read(log()), "before\nmessage\nwithout an end");
}

TEST_F(ApplicationLog, IsMadeForItsOwnerAlone)
{
    EXPECT_EQ(run(log()), "message\n");
    EXPECT_EQ(std::filesystem::status(log()).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(ApplicationLog, SaysWhyItsFileCannotBeOpened)
{
    EXPECT_EQ(run(root), "VORN_APPLOG: cannot append to " + root +
                             ": Is a directory; the log is not attached\nnot attached\n");
    EXPECT_EQ(run(root + "/none/log"),
              "VORN_APPLOG: cannot append to " + root +
                  "/none/log: No such file or directory; the log is not attached\nnot attached\n");
}

TEST_F(ApplicationLog, DoesNotWaitForTheReaderOfAPipe)
{
    ASSERT_EQ(::mkfifo(log().c_str(), 0600), 0);
    EXPECT_EQ(run(log()), "VORN_APPLOG: cannot append to " + log() +
                              ": No such device or address; the log is not attached\n"
                              "not attached\n");
}

TEST(ApplicationLogPort, IsNotOpenWhenItsFileIsLoaded)
{
    EXPECT_EQ(applogPort.handle, 0);
}

TEST(ApplicationLogPort, ClosesNoPortOnTheHost)
{
    EXPECT_EQ(APPLOG_ClosePort(0), 0);
    EXPECT_EQ(APPLOG_ClosePort(1), -1);
    EXPECT_EQ(APPLOG_ClosePort(-1), -1);
}

// Prints what is in the log after a whole line and the beginning of another, while the log is open.
int logAndPrint()
{
    if (!APPLOG_ModuleStream)
        return std::puts("not attached") < 0;
    std::fprintf(APPLOG_ModuleStream, "message\nwithout an end");
    std::ifstream file(std::getenv("VORN_APPLOG"));
    for (std::string line; std::getline(file, line) && !file.eof();)
        std::puts(line.c_str());
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    if (count == 2 && std::strcmp(arguments[1], "log") == 0)
        return logAndPrint();
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
