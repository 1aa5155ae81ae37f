// Saving: what is asked of the network API, what is logged and told, and how the wizard ends.

#include <fstream>

#include <QDir>
#include <QFileInfo>

#include <profilefunctions.h>
#include <ycombobox.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "wizard/world/heap.h"
#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

namespace {

using recorder::Calls;

const char* const folder = "vornlocal/download/appwrite/NetProfile/";

class Save : public Wizard
{
protected:
    void SetUp() override
    {
        Wizard::SetUp();
        setDefaultPreference("0");
    }

    // A stored profile with its folder.
    void store(const char* profile, const RecordBytes& bytes)
    {
        napi.profiles[profile] = bytes.record();
        QDir(root.path()).mkpath(QString(folder) + profile);
    }

    std::string path(const std::string& profile) const
    {
        return root.path().toStdString() + "/" + folder + profile;
    }
    bool isFolder(const char* profile) const
    {
        return QFileInfo(QString::fromStdString(path(profile))).isDir();
    }

    static Steps typing(const char* label, const char* text)
    {
        return Steps([label, text] {
            walkTo(wizardPage(1), label);
            retype(text);
        });
    }
    static Steps saveAndRead(const char* message)
    {
        return {opening(save), [message] {
                    EXPECT_EQ(message, popupText());
                    press(Qt::Key_Return);
                }};
    }
};

// Every kept byte has a value of its own.
RecordBytes storedRecord()
{
    RecordBytes bytes;
    for (std::size_t i = 0; i < 1168; ++i)
        bytes.byte(i, unsigned(i % 251 + 1));
    for (std::size_t offset : {8, 108, 208, 760, 862, 963, 1066})
        bytes.fill(offset, 100, 0);
    bytes.fill(381, 44, 0).fill(425, 64, 0).fill(489, 64, 0);
    bytes.byte(1, 1).word(4, 0xA5A5A25A).text(8, "internet").word(312, 0x0A010203).word(316, 0);
    bytes.half(320, 15).byte(380, 1).half(568, 30).byte(571, 75).half(860, 80).half(1064, 81);
    return bytes;
}

TEST_F(Save, OfANewProfileCreatesItAndGivesItsName)
{
    EXPECT_EQ(create({typing("Profile Name:*", " Home "), typing("GPRS APN:", "internet"),
                      saveAndRead("|You have successfully saved the profile named: Home.")}),
              0);
    EXPECT_EQ(name.toStdString(), "Home");
    EXPECT_EQ((Calls{"valid Home", "create Home"}), take());
    EXPECT_EQ(RecordBytes(napi.written)
                  .difference(RecordBytes().byte(1, 1).word(4, 0x200).text(8, "internet")),
              "the same");
}

TEST_F(Save, IsNeverDoneByEscape)
{
    napi.profiles["Old"] = storedRecord().record();
    EXPECT_EQ(edit("Old", {typing("Profile Name:*", "New"), [] { press(Qt::Key_Escape); },
                           [] {
                               EXPECT_EQ(rightKeyOf(wizardPage(1)), "Save");
                               EXPECT_EQ(wizardPage(1), activeLayer());
                               press(Qt::Key_F1);
                           },
                           dismiss}),
              1);
    EXPECT_EQ((Calls{"valid Old", "read Old"}), take());
}

TEST_F(Save, IsNotDoneByEscapeOnPage2Either)
{
    EXPECT_EQ(create({openPage2, [] { type("p"); }, [] { press(Qt::Key_Escape); },
                      [] {
                          EXPECT_EQ(rightKeyOf(wizardPage(2)), "Save");
                          EXPECT_EQ(wizardPage(2), activeLayer());
                          press(Qt::Key_F1);
                      },
                      dismiss, cancel}),
              1);
    EXPECT_EQ(napi.written.flags, 0);
}

TEST_F(Save, WithoutTheWifiFeatureStoresCellularOnly)
{
    setWifi(false);
    EXPECT_EQ(create({typing("GPRS APN:", "a"), opening(save), dismiss}), 0);
    EXPECT_EQ(napi.written.flags, 0x400u);
}

TEST_F(Save, OfACopyKeepsEveryByteOfTheSourceAndTheCallersName)
{
    napi.profiles["Source"] = storedRecord().record();
    EXPECT_EQ(
        copy("Source", {typing("Proxy 1:", "p"), saveAndRead("|You have successfully saved "
                                                             "the profile named: Profile1.")}),
        0);
    EXPECT_EQ(name.toStdString(), "Source");
    EXPECT_EQ((Calls{"valid Source", "read Source", "valid Profile1", "create Profile1"}), take());
    EXPECT_EQ(RecordBytes(napi.written).difference(storedRecord().text(760, "p")), "the same");
}

TEST_F(Save, OfAnUnchangedProfileCallsNothing)
{
    napi.profiles["Old"] = storedRecord().record();
    EXPECT_EQ(edit("Old", {typing("Proxy 1:", "p"), typing("Proxy 1:", ""),
                           saveAndRead("|You have successfully saved the profile named: Old.")}),
              0);
    EXPECT_EQ((Calls{"valid Old", "read Old"}), take());
    EXPECT_EQ(name.toStdString(), "Old");
}

TEST_F(Save, RewritesAProfileThatTheWizardHasNotStoredYet)
{
    napi.profiles["Old"] = storedRecord().byte(1, 7).record();
    EXPECT_EQ(
        edit("Old", {typing("Proxy 1:", "p"), typing("Proxy 1:", ""), opening(save), dismiss}), 0);
    EXPECT_EQ((Calls{"valid Old", "read Old", "modify Old"}), take());
    EXPECT_EQ(RecordBytes(napi.written).difference(storedRecord()), "the same");
}

TEST_F(Save, OfANewNameAloneMovesTheFolder)
{
    store("Old", storedRecord());
    EXPECT_EQ(edit("Old", {typing("Profile Name:*", "New"),
                           saveAndRead("|You have successfully saved the profile named: New.")}),
              0);
    EXPECT_EQ((Calls{"valid Old", "read Old", "valid New"}), take());
    EXPECT_FALSE(isFolder("Old"));
    EXPECT_TRUE(isFolder("New"));
    EXPECT_EQ(name.toStdString(), "Old");
}

TEST_F(Save, OfANewNameAndAChangeModifiesTheProfileOfTheNewName)
{
    store("Old", storedRecord());
    EXPECT_EQ(edit("Old", {typing("Profile Name:*", "New"), typing("Proxy 1:", "p"), opening(save),
                           dismiss}),
              0);
    EXPECT_EQ((Calls{"valid Old", "read Old", "valid New", "modify New"}), take());
    EXPECT_TRUE(isFolder("New"));
}

TEST_F(Save, ThatCannotMoveTheFolderChangesNothing)
{
    store("Old", storedRecord());
    store("Full", storedRecord());
    napi.profiles.erase("Full");
    std::ofstream(path("Full") + "/profile") << "of somebody else";
    EXPECT_EQ(edit("Old", {typing("Profile Name:*", "Full"), typing("Proxy 1:", "p"), save}), 2);
    EXPECT_EQ((Calls{"valid Old", "read Old", "valid Full",
                     "log: rename profile name from " + path("Old") + " to " + path("Full") +
                         " failed!\nNetwork: Save profile data error!\n"}),
              take());
    EXPECT_TRUE(isFolder("Old"));
}

TEST_F(Save, ANameWithASlashMovesNothing)
{
    QDir(root.path()).mkpath("vornlocal/download/appwrite/elsewhere");
    store("Old", storedRecord());
    for (const char* other : {"a/b", "/tmp/x", "x/../../elsewhere/y", "Old/x"}) {
        EXPECT_EQ(edit("Old", {typing("Profile Name:*", other), save}), 2) << other;
        EXPECT_EQ("log: rename profile name from " + path("Old") + " to " + path(other) +
                      " failed!\nNetwork: Save profile data error!\n",
                  take().back());
        EXPECT_TRUE(isFolder("Old")) << other;
    }
}

struct RefusalRow
{
    const char* name;
    int result;
};

void PrintTo(const RefusalRow& row, std::ostream* out)
{
    *out << row.name;
}

class Refusal : public Save, public testing::WithParamInterface<RefusalRow>
{};

TEST_P(Refusal, OfANewProfileIsLoggedAndClosesTheWizard)
{
    napi.createResult = GetParam().result;
    name = "kept";
    EXPECT_EQ(create({typing("GPRS APN:", "a"), save}), 2);
    EXPECT_EQ(name.toStdString(), "kept");
    EXPECT_EQ((Calls{"valid Profile1", "create Profile1",
                     "log: NAPI_CreateProfile return " + std::to_string(GetParam().result) +
                         "\nNetwork: Save profile data error!\n"}),
              take());
}

TEST_P(Refusal, OfAChangeIsLoggedAndClosesTheWizard)
{
    napi.modifyResult = GetParam().result;
    napi.profiles["Old"] = storedRecord().record();
    EXPECT_EQ(edit("Old", {typing("Proxy 1:", "p"), save}), 2);
    EXPECT_EQ((Calls{"valid Old", "read Old", "modify Old",
                     "log: NAPI_ModifyProfile return " + std::to_string(GetParam().result) +
                         "\nNetwork: Save profile data error!\n"}),
              take());
}

TEST_P(Refusal, OfReadingIsLoggedAndTheWizardOpensWithItsDefaults)
{
    napi.readResult = GetParam().result;
    napi.profiles["Old"] = storedRecord().record();
    EXPECT_EQ(edit("Old", {[] {
                       EXPECT_EQ(titleOf(wizardPage(1)), "Old");
                       EXPECT_EQ(editOf(wizardPage(1), "GPRS APN:")->text().toStdString(), "");
                       EXPECT_EQ(comboOf(wizardPage(1), "GPRS Timeout:")->currentItem(), 0);
                       EXPECT_EQ(rightKeyOf(wizardPage(1)), "Cancel");
                       press(Qt::Key_Escape);
                   }}),
              1);
    EXPECT_EQ(
        (Calls{"valid Old", "read Old", "log: Read profile error.\nLoad profile content failed\n"}),
        take());
}

TEST_P(Refusal, OfAProfilesValidityIsNoProfile)
{
    napi.profiles["Old"] = storedRecord().record();
    napi.validResult = GetParam().result;
    for (EntryPoint entry : {copyProfilebyUser, editProfilebyUser}) {
        name = "Old";
        EXPECT_EQ(entry(name), 0);
        EXPECT_EQ(name.toStdString(), "Old");
        EXPECT_EQ((Calls{"valid Old", "log: This profile is invalid.\n"}), take());
    }
}

TEST_P(Refusal, OfANamesValidityIsAFreeName)
{
    napi.profiles["Taken"] = NetworkProfile();
    napi.validResult = GetParam().result;
    EXPECT_EQ(create({typing("Profile Name:*", "Taken"), typing("GPRS APN:", "a"), opening(save),
                      dismiss}),
              0);
    EXPECT_EQ((Calls{"valid Taken", "create Taken"}), take());
}

const RefusalRow refusals[] = {
    {"NotInitialised", -201},
    {"Argument", -202},
    {"Name", -203},
    {"NoProfile", -204},
    {"Exists", -205},
    {"Damaged", -206},
    {"Access", -207},
    {"Io", -208},
    {"Root", -209},
    {"NoLink", -210},
    {"LinkNotUp", -211},
    {"TooManyLinks", -212},
    {"Socket", -213},
    {"NotPermitted", -214},
    {"Resources", -215},
    {"MinusOne", -1},
    {"Positive", 5},
    {"One", 1},
    {"Least", -2147483647 - 1},
    {"Largest", 2147483647},
};
INSTANTIATE_TEST_SUITE_P(Results, Refusal, testing::ValuesIn(refusals),
                         [](const auto& test) { return std::string(test.param.name); });

const char* const memoryFull =
    "Memory Full|There is insufficient memory to create a new connection. You may delete some "
    "files in order to add a new one.";

TEST_F(Save, WithoutRoomTellsTheUserAndClosesTheWizard)
{
    napi.createResult = -152;
    EXPECT_EQ(create({typing("GPRS APN:", "a"), saveAndRead(memoryFull)}), 2);
    EXPECT_EQ((Calls{"valid Profile1", "create Profile1", "log: NAPI_CreateProfile return -152\n"}),
              take());
}

TEST_F(Save, OfAChangeWithoutRoomTellsTheUserToo)
{
    napi.modifyResult = -152;
    napi.profiles["Old"] = storedRecord().record();
    EXPECT_EQ(edit("Old", {typing("Proxy 1:", "p"), saveAndRead(memoryFull)}), 2);
}

TEST_F(Save, FromPageOneLeavesPageTwoAsItWasRead)
{
    napi.profiles["Old"] = storedRecord().record();
    EXPECT_EQ(edit("Old", {typing("Proxy 1:", "p"), openPage2,
                           [] {
                               walkTo(wizardPage(2), "Proxy 2:");
                               type("typed");
                               press(Qt::Key_F1);
                           },
                           [] { press(Qt::Key_Return); }, opening(save), dismiss}),
              0);
    EXPECT_EQ(RecordBytes(napi.written).difference(storedRecord().text(760, "p")), "the same");
}

TEST_F(Save, FromPageTwoStoresBothPages)
{
    napi.profiles["Old"] = storedRecord().record();
    EXPECT_EQ(edit("Old", {typing("Proxy 1:", "p"), openPage2,
                           [] {
                               walkTo(wizardPage(2), "Proxy 2:");
                               type("typed");
                           },
                           opening(save), dismiss}),
              0);
    const RecordBytes expected =
        storedRecord().text(760, "p").text(963, "typed").word(560, storedRecord().read(560, 4));
    EXPECT_EQ(RecordBytes(napi.written).difference(expected), "the same");
}

TEST_F(Save, FromPageOneAfterARefusedOneOfPageTwoStoresBothPages)
{
    napi.profiles["Old"] = storedRecord().record();
    EXPECT_EQ(edit("Old", {typing("GPRS DNS 1:", "x"), openPage2,
                           [] {
                               walkTo(wizardPage(2), "Proxy 2:");
                               type("typed");
                           },
                           opening(save), dismiss, [] { press(Qt::Key_F1); },
                           [] { press(Qt::Key_Return); }, typing("GPRS DNS 1:", "10.1.2.3"),
                           opening(save), dismiss}),
              0);
    EXPECT_EQ(RecordBytes(napi.written).difference(storedRecord().text(963, "typed")), "the same");
}

TEST_F(Save, WithoutMemoryForTheRecordIsLoggedAndClosesTheWizard)
{
    EXPECT_EQ(create({typing("GPRS APN:", "a"),
                      [] {
                          heap::failMallocOf(sizeof(NetworkProfile));
                          save();
                          heap::failMallocOf(0);
                      }}),
              2);
    EXPECT_EQ((Calls{"valid Profile1", "log: NSETUP: can not get memory to save profile\nNetwork: "
                                       "Save profile data error!\n"}),
              take());
}

TEST_F(Save, OfANewProfileWorksWithoutMemoryForLoading)
{
    heap::failMallocOf(sizeof(NetworkProfile));
    EXPECT_EQ(create({[] {
                          heap::failMallocOf(0);
                          EXPECT_EQ(Calls{"log: Load profile content failed\n"}, take());
                          EXPECT_EQ(rightKeyOf(wizardPage(1)), "Cancel");
                      },
                      openPage2,
                      [] {
                          EXPECT_EQ(editOf(wizardPage(2), "Port 2:")->text().toStdString(), "");
                          press(Qt::Key_Escape);
                      },
                      typing("GPRS APN:", "a"), opening(save), dismiss}),
              0);
    EXPECT_EQ(
        RecordBytes(napi.written).difference(RecordBytes().byte(1, 1).word(4, 0x200).text(8, "a")),
        "the same");
}

TEST_F(Save, OfAProfileThatCouldNotBeReadStoresWhatTheFormShows)
{
    napi.readResult = NAPI_ERR_DAMAGED;
    napi.profiles["Old"] = storedRecord().record();
    EXPECT_EQ(edit("Old", {typing("GPRS APN:", "a"), opening(save), dismiss}), 0);
    EXPECT_EQ(
        RecordBytes(napi.written).difference(RecordBytes().byte(1, 1).word(4, 0x200).text(8, "a")),
        "the same");
}

TEST_F(Save, OfAnEditedProfileWithALongNameTakesWhatTheRowShows)
{
    const char* const longName = "123456789 123456789 123";
    store(longName, storedRecord());
    EXPECT_EQ(edit(longName, {typing("Proxy 1:", "p"), opening(save), dismiss}), 0);
    EXPECT_EQ((Calls{"valid " + std::string(longName), "read " + std::string(longName),
                     "valid 123456789 123456789", "modify 123456789 123456789"}),
              take());
    EXPECT_TRUE(isFolder("123456789 123456789"));
    EXPECT_EQ(longName, name.toStdString());
}

TEST_F(Save, OfAProfileThatWentAwayMeanwhileIsLogged)
{
    store("Old", storedRecord());
    napi.modifyResult = NAPI_ERR_NO_PROFILE;
    EXPECT_EQ(edit("Old", {[this] {
                               napi.profiles.clear();
                               QDir(QString::fromStdString(path("Old"))).removeRecursively();
                           },
                           typing("Profile Name:*", "New"), save}),
              2);
    EXPECT_EQ((Calls{"valid Old", "read Old", "valid New",
                     "log: rename profile name from " + path("Old") + " to " + path("New") +
                         " failed!\nNetwork: Save profile data error!\n"}),
              take());
}

} // namespace
