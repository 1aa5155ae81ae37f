// The read of an integer setting, over the host's settings library and real files.
#include "profiles/readdmint.h"

#include "settings/settings_root.h"

#include <applog.h>

namespace {

class HostSetting : public SettingsRoot
{
protected:
    void SetUp() override
    {
        SettingsRoot::SetUp();
        APPLOG_ModuleStream = ::open_memstream(&m_text, &m_size);
    }

    void TearDown() override
    {
        std::fclose(APPLOG_ModuleStream);
        APPLOG_ModuleStream = nullptr;
        std::free(m_text);
        SettingsRoot::TearDown();
    }

    std::string logged()
    {
        std::fflush(APPLOG_ModuleStream);
        return std::string(m_text, m_size);
    }

    int value = 99;

private:
    char* m_text = nullptr;
    std::size_t m_size = 0;
};

TEST_F(HostSetting, IsReadFromTheFileOnEachCall)
{
    for (const int number : {0, 2, -5}) {
        write(settings(), "{\"DefConnPrefer\": " + std::to_string(number) + "}");
        EXPECT_EQ(readDmInt("DefConnPrefer", value), 1);
        EXPECT_EQ(value, number);
    }
    EXPECT_EQ(logged(), "");
}

struct Row
{
    const char* name;
    const char* text; // of the file; null for none
    const char* logged;
    const char* said; // on standard error, after the file's name
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class UnreadableHostSetting : public HostSetting, public testing::WithParamInterface<Row>
{};

TEST_P(UnreadableHostSetting, IsLoggedAndLeavesTheValue)
{
    if (GetParam().text)
        write(settings(), GetParam().text);
    testing::internal::CaptureStderr();
    EXPECT_EQ(readDmInt("DefConnPrefer", value), 0);
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(value, 99);
    EXPECT_EQ(logged(), GetParam().logged);
    const std::string expected = *GetParam().said ? settings() + GetParam().said : "";
    EXPECT_EQ(said.substr(0, expected.size()), expected);
    EXPECT_EQ(said.empty(), expected.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Files, UnreadableHostSetting,
    testing::Values(Row{"NoFile", nullptr, "Getting DM Tree Node Failed", ""},
                    Row{"NoNode", "{\"Other\": 1}", "Getting DM Tree Node Failed", ""},
                    Row{"Text", "{\"DefConnPrefer\": \"1\"}", "Data Type is not correct", ""},
                    Row{"Truth", "{\"DefConnPrefer\": true}", "Data Type is not correct", ""},
                    Row{"Null", "{\"DefConnPrefer\": null}", "Getting DM Tree Node Value failed",
                        ":1: DefConnPrefer: expected "},
                    Row{"Array", "{\"DefConnPrefer\": [1]}", "Getting DM Tree Node Value failed",
                        ":1: DefConnPrefer: expected "},
                    Row{"Object", "{\"DefConnPrefer\": {\"a\": 1}}",
                        "Getting DM Tree Node Value failed", ":1: DefConnPrefer: expected "},
                    Row{"Above32Bits", "{\"DefConnPrefer\": 2147483648}",
                        "Getting DM Tree Node Value failed", ":1: DefConnPrefer: expected "},
                    Row{"Fraction", "{\n\"DefConnPrefer\": 1.0}",
                        "Getting DM Tree Node Value failed", ":2: DefConnPrefer: expected "},
                    Row{"Broken", "{\n\"DefConnPrefer\": 01}", "Getting DM Tree Failed",
                        ":2: expected JSON, found "}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(HostSetting, IsNotReadWhereTheRootIsNoFolder)
{
    ::setenv("VORN_ROOT", "/dev/null", 1);
    EXPECT_EQ(readDmInt("DefConnPrefer", value), 0);
    EXPECT_EQ(logged(), "DM Tree initialization failed");
    EXPECT_EQ(value, 99);
}

} // namespace
