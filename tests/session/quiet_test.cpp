// What the session side does not do: it logs nothing and starts no thread. That it starts no timer,
// whoever's it may be, is told by what the library imports: see tests/rules/.

#include <filesystem>
#include <iterator>

#include <applog.h>
#include <ystatedialog.h>

#include "session/session_fixture.h"

class Quiet : public Session
{
protected:
    // Everything that an application can make the session side do.
    void exercise()
    {
        manager->openLink("early");
        napi.initError = -1;
        manager->init(false);
        napi.initError = 0;
        manager->init(false);
        for (int result : {5, 6, -1}) {
            napi.openResult = result;
            manager->openLink("Internet");
            manager->openLinkNoDialog("Internet");
        }
        delete popup();
        manager->closeLink(-1);
        manager->closeLink(6);
        for (int type = 0; type < 40; ++type) {
            for (uint8_t link : {uint8_t(0), uint8_t(5), uint8_t(6)})
                deliver(indication(static_cast<uint16_t>(type), link));
        }
        napi.closeWriteEnd();
        pass();
    }
};

TEST_F(Quiet, LogsNothing)
{
    char* text = nullptr;
    std::size_t size = 0;
    FILE* attached = APPLOG_ModuleStream;
    APPLOG_ModuleStream = ::open_memstream(&text, &size);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    exercise();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    std::fclose(APPLOG_ModuleStream);
    APPLOG_ModuleStream = attached;
    EXPECT_EQ(size, 0u) << text;
    std::free(text);
}

TEST_F(Quiet, StartsNoThread)
{
    const auto threads = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
    };
    const auto atFirst = threads();
    exercise();
    EXPECT_EQ(atFirst, threads());
}
