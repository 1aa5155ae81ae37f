// An edited profile whose record could not be loaded, and what is stored from its form.

#include <ycombobox.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "wizard/world/heap.h"
#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

namespace {

using recorder::Calls;

class Unread : public Wizard
{
protected:
    void SetUp() override
    {
        Wizard::SetUp();
        setDefaultPreference("2");
        napi.profiles["Old"] = RecordBytes()
                                   .byte(1, 1)
                                   .byte(2, 0x77)
                                   .word(4, 0xA5A5A25A)
                                   .text(8, "internet")
                                   .text(963, "proxy.two")
                                   .half(1064, 3128)
                                   .record();
    }
    void TearDown() override
    {
        heap::failMallocOf(0);
        Wizard::TearDown();
    }

    int editWithoutMemory(const Steps& steps)
    {
        heap::failMallocOf(1168);
        return edit("Old", {[] { heap::failMallocOf(0); }, steps});
    }
    static void fillApn()
    {
        walkTo(wizardPage(1), "GPRS APN:");
        retype("a");
    }
    static void fillProxy2()
    {
        walkTo(wizardPage(2), "Proxy 2:");
        retype("p");
    }
    std::string writtenBeside(const RecordBytes& expected) const
    {
        return RecordBytes(napi.written).difference(expected);
    }
};

const char* const notLoaded = "log: Load profile content failed\n";

TEST_F(Unread, ForWantOfMemoryIsStoredOverZeros)
{
    EXPECT_EQ(editWithoutMemory({[] {
                                     EXPECT_EQ((Calls{"valid Old", notLoaded}), take());
                                     EXPECT_EQ(titleOf(wizardPage(1)), "Old");
                                     EXPECT_EQ(rightKeyOf(wizardPage(1)), "Cancel");
                                 },
                                 fillApn, opening(save), dismiss}),
              0);
    EXPECT_EQ(Calls{"modify Old"}, take());
    EXPECT_EQ(writtenBeside(RecordBytes().byte(1, 1).word(4, 0x400).text(8, "a")), "the same");
}

TEST_F(Unread, ForWantOfMemoryIsStoredFromPageTwoToo)
{
    EXPECT_EQ(editWithoutMemory(
                  {fillApn, openPage2,
                   [] { EXPECT_EQ(editOf(wizardPage(2), "Port 2:")->text().toStdString(), ""); },
                   fillProxy2, opening(save), dismiss}),
              0);
    EXPECT_EQ(writtenBeside(RecordBytes().byte(1, 1).word(4, 0x400).text(8, "a").text(963, "p")),
              "the same");
}

TEST_F(Unread, ForAnErrorIsStoredOverZeros)
{
    napi.readResult = NAPI_ERR_IO;
    EXPECT_EQ(edit("Old", {fillApn, openPage2,
                           [] {
                               // The record is there, and its zeros fill page 2.
                               EXPECT_EQ(editOf(wizardPage(2), "Port 2:")->text().toStdString(),
                                         "0");
                           },
                           fillProxy2, opening(save), dismiss}),
              0);
    EXPECT_EQ((Calls{"valid Old", "read Old", "modify Old",
                     "log: Read profile error.\nLoad profile content failed\nclick the exibition "
                     "button\n"}),
              take());
    EXPECT_EQ(writtenBeside(RecordBytes().byte(1, 1).word(4, 0x400).text(8, "a").text(963, "p")),
              "the same");
}

TEST_F(Unread, ForAnErrorThatComesWithARecordIsStoredOverThatRecord)
{
    napi.readResult = NAPI_ERR_DAMAGED;
    napi.fillsRefused = true;
    EXPECT_EQ(
        edit("Old", {[] {
                         EXPECT_EQ(editOf(wizardPage(1), "GPRS APN:")->text().toStdString(), "");
                         EXPECT_EQ(comboOf(wizardPage(1), "Connection Preference:*")->currentItem(),
                                   2);
                     },
                     fillApn, opening(save), dismiss}),
        0);
    EXPECT_EQ(writtenBeside(RecordBytes(napi.profiles["Old"])), "the same");
    EXPECT_EQ(writtenBeside(RecordBytes()
                                .byte(1, 1)
                                .byte(2, 0x77)
                                .word(4, 0xA5A5A45A)
                                .text(8, "a")
                                .text(963, "proxy.two")
                                .half(1064, 3128)),
              "the same");
}

} // namespace
