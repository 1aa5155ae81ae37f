// The default name over the host's own profile store.
#include "profilefunctions.h"

#include <napi.h>

#include "settings/settings_root.h"

namespace {

class HostDefaultName : public SettingsRoot
{
protected:
    static void store(const char* name)
    {
        const NetworkProfile record = {};
        ASSERT_EQ(NAPI_CreateProfile(name, &record, 0, 0), NAPI_OK);
    }

    static std::string defaultName()
    {
        QString name("before");
        getDefaultProfileName(name);
        return name.toUtf8().toStdString();
    }
};

TEST_F(HostDefaultName, FollowsTheStoredProfiles)
{
    EXPECT_EQ(defaultName(), "Profile1");
    store("Profile1");
    store("Home");
    EXPECT_EQ(defaultName(), "Profile2");
    store("Profile41");
    EXPECT_EQ(defaultName(), "Profile42");
}

TEST_F(HostDefaultName, StaysAsItIsWhereTheStoreCannotBeUsed)
{
    ::setenv("VORN_ROOT", "/dev/null", 1);
    testing::internal::CaptureStdout();
    EXPECT_EQ(defaultName(), "before");
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "NAPI_ListAllProfile return error\n");
}

} // namespace
