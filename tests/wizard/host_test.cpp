// The wizard and what an application does with it, over the real profile store and link engine.

#include <fstream>
#include <iterator>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <napi.h>
#include <profilefunctions.h>
#include <ydatasessionmanager.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "common/rooted_gui_test.h"
#include "session/signal_log.h"
#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_driver.h"

namespace {

class WizardOnTheHost : public RootedGuiTest
{
protected:
    void SetUp() override
    {
        RootedGuiTest::SetUp();
        write("etc/features.json", "{\"431\": true}");
        write("etc/settings.json", "{\"DefConnPrefer\": 2}");
        write("etc/network.json", "{\"bearer\": \"scenario\", \"scenario\": {\"default\": "
                                  "{\"outcome\": \"connect\", \"afterMs\": 20}}}");
    }

    void store(const char* profile, const RecordBytes& bytes)
    {
        const NetworkProfile record = bytes.record();
        ASSERT_EQ(NAPI_CreateProfile(profile, &record, 0, 0), 0);
    }

    QString folder(const char* profile) const
    {
        return root.filePath(QString("vornlocal/download/appwrite/NetProfile/") + profile);
    }

    // The bytes of the file in which the record is kept.
    std::string storedBytes(const char* profile) const
    {
        std::ifstream file((folder(profile) + "/profile").toStdString(), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    int run(int (*entry)(QString&), const Steps& steps)
    {
        bool hasEnded = false;
        perform({steps, closeWhatIsOpen, [&hasEnded] { hasEnded = true; }});
        const int result = entry(name);
        EXPECT_TRUE(waitFor([&hasEnded] { return hasEnded; }));
        settle();
        return result;
    }

    static Steps typing(const char* label, const char* text)
    {
        return Steps([label, text] {
            walkTo(wizardPage(1), label);
            retype(text);
        });
    }
    static void save() { press(Qt::Key_F2); }
    static void dismiss() { press(Qt::Key_Return); }

    QString name;
};

TEST_F(WizardOnTheHost, NotFoundCreatedAndConnected)
{
    store("Profile1", RecordBytes());
    store("Profile2", RecordBytes());
    EXPECT_EQ(run(getProfileIfNoFound,
                  {[] { press(Qt::Key_Return); }, [] {},
                   [] {
                       EXPECT_EQ(editOf(wizardPage(1), "Profile Name:*")->text().toStdString(),
                                 "Profile3");
                   },
                   typing("GPRS APN:", "internet"), opening(save),
                   [] {
                       EXPECT_EQ(popupText(),
                                 "|You have successfully saved the profile named: Profile3.");
                       dismiss();
                   }}),
              0);
    EXPECT_EQ(name.toStdString(), "Profile3");
    // Mark 1, cellular only, the access point, and nothing else.
    std::string expected(1168, '\0');
    expected[1] = 1;
    expected[5] = 4;
    expected.replace(8, 8, "internet");
    EXPECT_EQ(expected, storedBytes("Profile3"));

    YDataSessionManager manager;
    SignalLog log(manager);
    ASSERT_GE(manager.init(false), 0);
    ASSERT_EQ(manager.openLink(name), 0);
    EXPECT_TRUE(waitFor([&log] { return !log.isEmpty(); }));
    EXPECT_EQ(log.takeFirst(), "connected(0)");
    EXPECT_EQ(manager.closeLink(0), 0);
}

TEST_F(WizardOnTheHost, AnEditedAndRenamedProfileIsStoredByteByByte)
{
    RecordBytes bytes;
    for (std::size_t i = 0; i < 1168; ++i)
        bytes.byte(i, unsigned(i * 7 % 256));
    bytes.fill(8, 100, 0).fill(108, 100, 0).fill(208, 100, 0).fill(760, 100, 0).fill(862, 100, 0);
    bytes.text(8, "old.example").half(320, 60).byte(380, 0);
    store("Old", bytes);
    name = "Old";
    EXPECT_EQ(
        run(editProfilebyUser, {typing("Profile Name:*", "New"), typing("GPRS APN:", "new.example"),
                                typing("GPRS DNS 1:", "192.168.0.1"), typing("GPRS DNS 2:", ""),
                                typing("Port 1:", "65535"), opening(save), dismiss}),
        0);
    EXPECT_EQ(name.toStdString(), "Old");
    EXPECT_FALSE(QFileInfo(folder("Old")).exists());
    bytes.byte(1, 1).byte(5, (bytes.read(5, 1) & 0xF0) | 4).text(8, "new.example");
    bytes.word(312, 0xC0A80001).word(316, 0).half(860, 65535);
    EXPECT_EQ(bytes.part(0, 1168), storedBytes("New"));
}

// Has another process do something with the profiles.
void elsewhere(const QStringList& command)
{
    ASSERT_EQ(QProcess::execute(VORNCTL, command), 0);
}

struct DeletedRow
{
    const char* name;
    int (*entry)(QString&);
    const char* label; // the row that is changed
    const char* text;
    int result;
    const char* left; // the profile that is there afterwards; "" for none
};

void PrintTo(const DeletedRow& row, std::ostream* out)
{
    *out << row.name;
}

class Deleted : public WizardOnTheHost, public testing::WithParamInterface<DeletedRow>
{};

TEST_P(Deleted, MeanwhileByAnotherProcessStaysDeleted)
{
    const DeletedRow& row = GetParam();
    const RecordBytes record =
        RecordBytes().byte(1, 1).word(4, 0x400).text(8, "a").fill(572, 188, 7);
    store("Old", record);
    name = "Old";
    const Step saving = row.result == 0 ? opening(save) : Step{save, false};
    Steps steps = {[] {
                       elsewhere({"profile", "delete", "Old"});
                   },
                   typing(row.label, row.text), saving};
    if (row.result == 0)
        steps = {steps, dismiss};
    EXPECT_EQ(row.result, run(row.entry, steps));
    EXPECT_EQ(name.toStdString(), "Old");
    std::string left;
    for (const QString& folder :
         QDir(folder("")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot))
        left += folder.toStdString();
    EXPECT_EQ(row.left, left);
    if (*row.left) {
        EXPECT_EQ(record.part(0, 1168), storedBytes(row.left));
    }
}

const DeletedRow deletions[] = {
    {"Changed", editProfilebyUser, "GPRS APN:", "b", 2, ""},
    {"Renamed", editProfilebyUser, "Profile Name:*", "New", 2, ""},
    {"Unchanged", editProfilebyUser, "GPRS APN:", "a", 0, ""},
    {"Copied", copyProfilebyUser, "GPRS APN:", "a", 0, "Profile1"},
};
INSTANTIATE_TEST_SUITE_P(Table, Deleted, testing::ValuesIn(deletions),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(WizardOnTheHost, ANameThatAnotherProcessTakesMeanwhileIsToldAsDuplicate)
{
    EXPECT_EQ(run(createProfilebyUser, {[] {
                                            elsewhere({"profile", "create", "Profile1"});
                                        },
                                        typing("GPRS APN:", "a"), opening(save),
                                        [] {
                                            EXPECT_EQ(popupText().find("Duplicate Profile|"), 0u)
                                                << popupText();
                                            dismiss();
                                        },
                                        typing("Profile Name:*", "Mine"), opening(save), dismiss}),
              0);
    EXPECT_EQ(name.toStdString(), "Mine");
}

TEST_F(WizardOnTheHost, AFullStoreIsToldAndNothingIsStored)
{
    write("etc/network.json", "{\"maxProfiles\": 1}");
    store("Only", RecordBytes());
    EXPECT_EQ(run(createProfilebyUser, {typing("GPRS APN:", "a"), opening(save),
                                        [] {
                                            EXPECT_EQ(popupText().find("Memory Full|"), 0u);
                                            dismiss();
                                        }}),
              2);
    unsigned int count = 0;
    EXPECT_EQ(NAPI_ListAllProfile(nullptr, &count), 0);
    EXPECT_EQ(count, 1u);
}

TEST_F(WizardOnTheHost, TwentyWideCharactersAreAName)
{
    const QString wide(20, QChar(0x4E2D));
    EXPECT_EQ(run(createProfilebyUser, {[&wide] { retype(wide + wide); }, typing("GPRS APN:", "a"),
                                        opening(save), dismiss}),
              0);
    EXPECT_EQ(wide.toStdString(), name.toStdString());
    EXPECT_EQ(NAPI_IsProfileValid(wide.toUtf8()), 0);
}

TEST_F(WizardOnTheHost, ANameBeyondTheBasicPlaneIsCutToTwentyUnits)
{
    QString emoji;
    for (int i = 0; i < 20; ++i)
        emoji += QString::fromUtf8("\xF0\x9F\x98\x80");
    EXPECT_EQ(run(createProfilebyUser,
                  {[&emoji] { editOf(wizardPage(1), "Profile Name:*")->setText(emoji); },
                   typing("GPRS APN:", "a"), opening(save), dismiss}),
              0);
    EXPECT_EQ(emoji.left(20).toStdString(), name.toStdString());
    EXPECT_EQ(NAPI_IsProfileValid(name.toUtf8()), 0);
}

} // namespace
