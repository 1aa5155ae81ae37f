// Choosing among the profiles of the host's own store.
#include "profilefunctions.h"

#include <napi.h>

#include "common/rooted_gui_test.h"
#include "profiles/select_dialog.h"

namespace {

class HostProfiles : public RootedGuiTest
{
protected:
    static void store(const char* name)
    {
        const NetworkProfile record = {};
        ASSERT_EQ(NAPI_CreateProfile(name, &record, 0, 0), NAPI_OK);
    }
};

TEST_F(HostProfiles, AreListedByNameAndOneIsChosen)
{
    QString name("Home");
    for (const char* profile : {"Work", "Home", "\xe7\xbd\x91\xe7\xbb\x9c", "Train"})
        store(profile);
    later([] {
        ASSERT_NE(selectdialog::shown(), nullptr);
        EXPECT_EQ(
            selectdialog::rows(*selectdialog::shown()),
            (QStringList{"Home", "Train", "Work", QString::fromUtf8("\xe7\xbd\x91\xe7\xbb\x9c")}));
        press(Qt::Key_Down);
        press(Qt::Key_F1);
    });
    EXPECT_EQ(getProfileNamebySelect(name), 0);
    EXPECT_EQ(name, "Train");
}

TEST_F(HostProfiles, MayBeNone)
{
    QString name("before");
    testing::internal::CaptureStdout();
    EXPECT_EQ(getProfileNamebySelect(name), -100);
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "No profile exists.\n");
    EXPECT_EQ(name, "before");
}

TEST_F(HostProfiles, MayBeOutOfReach)
{
    QString name("before");
    ::setenv("VORN_ROOT", "/dev/null", 1);
    testing::internal::CaptureStdout();
    EXPECT_EQ(getProfileNamebySelect(name), NAPI_ERR_ROOT);
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "NAPI_ListAllProfile return error\n");
    EXPECT_EQ(name, "before");
}

} // namespace
