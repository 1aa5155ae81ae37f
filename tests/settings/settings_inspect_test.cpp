// What looking through the settings' files finds.
#include "settings/settings_host.h"
#include "settings/settings_root.h"

namespace {

class SettingsInspection : public SettingsRoot
{};

TEST_F(SettingsInspection, FindsNothingWrongWhereNothingIs)
{
    EXPECT_TRUE(settingshost::inspectSettings().empty());
    write(settings(), "{\"a\": 1, \"b\": \"\", \"c\": false}");
    write(features(), "{\"431\": true}");
    EXPECT_TRUE(settingshost::inspectSettings().empty());
}

TEST_F(SettingsInspection, FindsEverythingThatIsWrongInTheOrderOfTheFiles)
{
    write(settings(), "{\n\"a\": null,\n\"\": 1,\n\"b\": 1,\n\"b\": 4294967296\n}");
    write(features(), "{\n\"431\": 1,\n\"wifi\": true\n}");
    std::vector<std::string> found;
    for (const settingshost::Finding& finding : settingshost::inspectSettings()) {
        found.push_back(finding.path.substr(root.size()) + ": " + finding.problem);
        EXPECT_EQ(finding.remedy, "correct this line, or remove it; settings-json.md in the "
                                  "documentation describes the file");
    }
    const std::string value = "expected an integer from -2147483648 to 2147483647, a text without "
                              "NUL or a truth value, found ";
    const std::vector<std::string> expected = {
        "/etc/settings.json:2: a: " + value + "null; using no value instead",
        "/etc/settings.json:3: \"\": expected a name of 1 to 255 bytes without control characters, "
        "found the number 1",
        "/etc/settings.json:5: b: expected each key once, found the key again after line 4; using "
        "the last one instead",
        "/etc/settings.json:5: b: " + value + "the number 4294967296; using no value instead",
        "/etc/features.json:2: 431: expected true or false, found the number 1; using false "
        "instead",
        "/etc/features.json:3: wifi: expected a feature number as the key, for instance \"431\", "
        "found true; using the file without it instead"};
    EXPECT_EQ(found, expected);
}

std::vector<std::string> foundBelow(const std::string& root)
{
    std::vector<std::string> lines;
    for (const settingshost::Finding& finding : settingshost::inspectSettings())
        lines.push_back(finding.path.substr(root.size()) + ": " + finding.problem + ": " +
                        finding.remedy);
    return lines;
}

TEST_F(SettingsInspection, FindsAKnownNodeWhoseValueMeansNothing)
{
    for (const char* value : {"3", "-1", "9", "\"1\"", "true"}) {
        write(settings(), std::string("{\n\"DefConnPrefer\": ") + value + "}");
        const std::vector<settingshost::Finding> findings = settingshost::inspectSettings();
        ASSERT_EQ(findings.size(), 1U) << value;
        EXPECT_EQ(findings[0].path, settings() + ":2");
        EXPECT_NE(findings[0].problem.find("expected 0 (WiFi, then cellular), 1 (WiFi only) or 2 "
                                           "(cellular only), found "),
                  std::string::npos)
            << findings[0].problem;
    }
    for (const char* value : {"0", "1", "2"}) {
        write(settings(), std::string("{\"DefConnPrefer\": ") + value + "}");
        EXPECT_TRUE(settingshost::inspectSettings().empty()) << value;
    }
}

TEST_F(SettingsInspection, FindsFilesAndAFolderThatOthersMayWrite)
{
    write(settings(), "{}");
    write(features(), "{}");
    ASSERT_EQ(::chmod(settings().c_str(), 0664), 0);
    ASSERT_EQ(::chmod(features().c_str(), 0646), 0);
    ASSERT_EQ(::chmod((root + "/etc").c_str(), 0777), 0);
    const std::string command = ": chmod go-w " + root;
    EXPECT_EQ(foundBelow(root),
              (std::vector<std::string>{"/etc: others may write it (mode 0777)" + command + "/etc",
                                        "/etc/settings.json: others may write it (mode 0664)" +
                                            command + "/etc/settings.json",
                                        "/etc/features.json: others may write it (mode 0646)" +
                                            command + "/etc/features.json"}));
}

TEST_F(SettingsInspection, FindsWhatAnEndedProgramHasLeft)
{
    write(root + "/etc/.settings.json.new", "{");
    EXPECT_EQ(foundBelow(root),
              std::vector<std::string>{"/etc/.settings.json.new: left by a program that was ended "
                                       "while it wrote settings.json: rm " +
                                       root + "/etc/.settings.json.new"});
}

TEST_F(SettingsInspection, TakesAWritersWorkForNoLeftover)
{
    write(root + "/etc/.settings.json.new", "{");
    OtherWriter other(root);
    EXPECT_TRUE(settingshost::inspectSettings().empty());
}

TEST_F(SettingsInspection, FindsABrokenFileWithItsLine)
{
    write(features(), "{\n\"431\" true\n}");
    const std::vector<settingshost::Finding> findings = settingshost::inspectSettings();
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].path, features() + ":2");
    EXPECT_EQ(findings[0].remedy, "correct the file at this line, or remove it; settings-json.md "
                                  "in the documentation describes it");
}

TEST_F(SettingsInspection, FindsAFolderInTheFilesPlace)
{
    std::filesystem::create_directory(features());
    const std::vector<settingshost::Finding> findings = settingshost::inspectSettings();
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].path, features());
    EXPECT_EQ(findings[0].remedy, "put a readable file in its place, or remove it");
}

} // namespace
