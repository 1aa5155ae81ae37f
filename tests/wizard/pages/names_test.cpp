// Names of profiles that are not stored as they were read or typed.

#include <string>

#include <QDir>
#include <QFileInfo>

#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

namespace {

using recorder::Calls;

const char* const grin = "\xF0\x9F\x98\x80";

class Names : public Wizard
{
protected:
    void SetUp() override
    {
        Wizard::SetUp();
        setDefaultPreference("2");
    }

    static RecordBytes storedRecord()
    {
        return RecordBytes().byte(1, 1).word(4, 0x400).byte(8, 'a');
    }

    void store(const char* profile)
    {
        napi.profiles[profile] = storedRecord().record();
        QDir(root.path()).mkpath(folder(profile));
    }
    static QString folder(const char* profile)
    {
        return QString("vornlocal/download/appwrite/NetProfile/") + profile;
    }
    bool isFolder(const char* profile) const
    {
        return QFileInfo(root.filePath(folder(profile))).isDir();
    }

    // Has the right key offer to save, though nothing is changed.
    static void touch()
    {
        walkTo(wizardPage(1), "Proxy 1:");
        type("p");
        press(Qt::Key_Backspace);
    }
    static Steps saveAndRead(const std::string& message)
    {
        return {opening(save), [message] {
                    EXPECT_EQ(message, popupText());
                    dismiss();
                }};
    }
};

TEST_F(Names, StoredWithBlanksAroundAreStrippedWithoutAnEdit)
{
    store(" Old ");
    EXPECT_EQ(
        edit(" Old ", {[] {
                           EXPECT_EQ(titleOf(wizardPage(1)), " Old ");
                           EXPECT_EQ(editOf(wizardPage(1), "Profile Name:*")->text().toStdString(),
                                     " Old ");
                       },
                       touch, saveAndRead("|You have successfully saved the profile named: Old.")}),
        0);
    EXPECT_EQ((Calls{"valid  Old ", "read  Old ", "valid Old"}), take());
    EXPECT_FALSE(isFolder(" Old "));
    EXPECT_TRUE(isFolder("Old"));
    EXPECT_EQ(name.toStdString(), " Old ");
}

TEST_F(Names, StoredWithBlanksAroundAndChangedAreModifiedUnderTheStrippedName)
{
    store(" Old ");
    EXPECT_EQ(edit(" Old ", {[] {
                                 walkTo(wizardPage(1), "Proxy 1:");
                                 type("p");
                             },
                             opening(save), dismiss}),
              0);
    EXPECT_EQ((Calls{"valid  Old ", "read  Old ", "valid Old", "modify Old"}), take());
}

TEST_F(Names, StoredWithBlanksAroundMeetTheOneWithout)
{
    store(" Old ");
    store("Old");
    EXPECT_EQ(
        edit(" Old ", {touch,
                       saveAndRead("Duplicate Profile|You already have a Profile named:  Old . "
                                   "Please choose another name."),
                       [] { wizardPage(1)->hide(); }}),
        2);
    EXPECT_TRUE(isFolder(" Old "));
}

TEST_F(Names, CutInsideALetterEndWithAQuestionMark)
{
    QString typed = "a";
    std::string stored = "a";
    for (int i = 0; i < 10; ++i) {
        typed += QString::fromUtf8(grin);
        stored += i < 9 ? grin : "?";
    }
    const auto fill = [&typed] {
        editOf(wizardPage(1), "GPRS APN:")->setText("a");
        editOf(wizardPage(1), "Profile Name:*")->setText(typed);
        EXPECT_EQ(editOf(wizardPage(1), "Profile Name:*")->text().length(), 20);
    };
    EXPECT_EQ(create({fill, opening(save), dismiss}), 0);
    EXPECT_EQ((Calls{"valid " + stored, "create " + stored}), take());
    EXPECT_EQ(typed.left(20), name);
    EXPECT_EQ(NAPI_IsProfileValid(name.toUtf8()), 0);
    take();

    EXPECT_EQ(create({fill,
                      saveAndRead("Duplicate Profile|You already have a Profile named: " +
                                  typed.left(20).toStdString() + ". Please choose another name."),
                      [] { press(Qt::Key_F1); }, dismiss}),
              1)
        << "what it is stored as is taken now";
}

} // namespace
