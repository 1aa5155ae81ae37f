// Page 2, "Additional Settings".

#include <ycombobox.h>
#include <yformcontainer.h>
#include <yinputfield.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

namespace {

using recorder::Calls;

NetworkProfile filledRecord()
{
    RecordBytes bytes;
    bytes.word(4, 0x400).text(8, "internet").text(381, "+4912345").text(425, "bob");
    bytes.text(489, "hidden").word(560, 0xC0A80001).half(568, 30).byte(571, 70);
    bytes.text(963, "proxy.two").half(1064, 3128).text(1066, "two.example");
    return bytes.record();
}

class Page2 : public Wizard
{
protected:
    static YKbMainWidget* page() { return wizardPage(2); }

    // Edits a profile and opens page 2; the wizard ends after the steps.
    int onPage2(const Steps& steps)
    {
        napi.profiles["Old"] = filledRecord();
        return edit("Old", {openPage2, steps, [] {
                                if (wizardPage(1))
                                    wizardPage(1)->hide();
                            }});
    }
};

TEST_F(Page2, IsHiddenUntilTheButtonIsPressed)
{
    create({[] {
                EXPECT_FALSE(page()->isVisible());
                openPage2();
            },
            [] {
                EXPECT_TRUE(page()->isVisible());
                EXPECT_TRUE(wizardPage(1)->isVisible());
                EXPECT_EQ(page(), activeLayer());
                wizardPage(1)->hide();
            }});
}

TEST_F(Page2, HasItsRowsInOrder)
{
    onPage2({[] {
        EXPECT_EQ(titleOf(page()), "Additional Settings");
        EXPECT_EQ(rowsOf(page()), "NSEditBox Proxy 2: \"proxy.two\"\n"
                                  "NSEditBox Port 2: \"3128\"\n"
                                  "NSEditBox Domain 2: \"two.example\"\n"
                                  "NSEditBox CSD Number: \"+4912345\"\n"
                                  "NSEditBox User Name: \"bob\"\n"
                                  "NSEditBox Password: \"hidden\"\n"
                                  "YComboBox Speed(BPS): \"4800\"\n"
                                  "YComboBox Line Type: \"ISDN\"\n"
                                  "YComboBox CSD Timeout: \"30 min\"\n"
                                  "NSEditBox DNS 1: \"192.168.0.1\"\n"
                                  "NSEditBox DNS 2: \"\"\n");
        EXPECT_EQ(leftKeyOf(page()), "Options");
    }});
}

TEST_F(Page2, OpensWithCancelAlthoughItsRowsWereFilled)
{
    onPage2({[] { EXPECT_EQ(rightKeyOf(page()), "Cancel"); }});
}

TEST_F(Page2, OpensByTheFinger)
{
    create({[] {
                walkTo(wizardPage(1), "Additional settings:");
                tap(reinterpret_cast<QWidget*>(buttonOf(wizardPage(1))));
            },
            [] {
                EXPECT_EQ(page(), activeLayer());
                wizardPage(1)->hide();
            }});
}

TEST_F(Page2, OfANewProfileShowsTheDefaults)
{
    create({openPage2, [] {
                EXPECT_EQ(rowsOf(page()), "NSEditBox Proxy 2: \"\"\n"
                                          "NSEditBox Port 2: \"0\"\n"
                                          "NSEditBox Domain 2: \"\"\n"
                                          "NSEditBox CSD Number: \"\"\n"
                                          "NSEditBox User Name: \"\"\n"
                                          "NSEditBox Password: \"\"\n"
                                          "YComboBox Speed(BPS): \"Auto\"\n"
                                          "YComboBox Line Type: \"Modem\" off\n"
                                          "YComboBox CSD Timeout: \"Off\"\n"
                                          "NSEditBox DNS 1: \"\"\n"
                                          "NSEditBox DNS 2: \"\"\n");
                wizardPage(1)->hide();
            }});
}

TEST_F(Page2, LimitsItsTexts)
{
    const std::pair<const char*, int> limits[] = {
        {"Proxy 2:", 100}, {"Domain 2:", 100}, {"CSD Number:", 44}, {"User Name:", 64},
        {"Password:", 64}, {"Port 2:", 32767}, {"DNS 1:", 32767},   {"DNS 2:", 32767},
    };
    onPage2({[&limits] {
        for (const auto& [label, limit] : limits)
            EXPECT_EQ(limit, editOf(page(), label)->maxLength()) << label;
        EXPECT_EQ(editOf(page(), "Port 2:")->getInputField()->inputMode(), 6);
        EXPECT_EQ(editOf(page(), "CSD Number:")->getInputField()->inputMode(), 4);
        EXPECT_EQ(editOf(page(), "Password:")->getInputField()->inputMode(), 8);
        EXPECT_EQ(QLineEdit::Password, editOf(page(), "Password:")->echoMode());
    }});
}

TEST_F(Page2, TakesPortsUpTo65535)
{
    onPage2({[] {
        walkTo(page(), "Port 2:");
        retype("65536");
        EXPECT_EQ(editOf(page(), "Port 2:")->text().toStdString(), "6553");
    }});
}

class Page2Text : public Page2, public testing::WithParamInterface<const char*>
{};

TEST_P(Page2Text, TurnsTheRightKeyIntoSaveWhenTyped)
{
    onPage2({[] {
        walkTo(page(), GetParam());
        retype("1");
        EXPECT_EQ(rightKeyOf(page()), "Save");
    }});
}

INSTANTIATE_TEST_SUITE_P(Rows, Page2Text,
                         testing::Values("Proxy 2:", "Port 2:", "Domain 2:", "CSD Number:",
                                         "User Name:", "Password:", "DNS 1:", "DNS 2:"));

class Page2Choice : public Page2, public testing::WithParamInterface<const char*>
{};

TEST_P(Page2Choice, TurnsTheRightKeyIntoSaveWhenChosen)
{
    onPage2({chooseByKeys(2, GetParam(), 0), [] {
                 EXPECT_EQ(comboOf(page(), GetParam())->currentItem(), 0);
                 EXPECT_EQ(rightKeyOf(page()), "Save");
             }});
}

INSTANTIATE_TEST_SUITE_P(Rows, Page2Choice,
                         testing::Values("Speed(BPS):", "Line Type:", "CSD Timeout:"));

TEST_F(Page2, SwitchesTheLineTypeWithTheSpeed)
{
    for (int speed : {1, 2, 3, 4}) {
        create({openPage2, [] { EXPECT_FALSE(comboOf(page(), "Line Type:")->isYEnabled()); },
                chooseByKeys(2, "Speed(BPS):", speed),
                [] { EXPECT_TRUE(comboOf(page(), "Line Type:")->isYEnabled()); },
                chooseByKeys(2, "Speed(BPS):", 0),
                [] {
                    EXPECT_FALSE(comboOf(page(), "Line Type:")->isYEnabled());
                    wizardPage(1)->hide();
                }});
    }
}

TEST_F(Page2, CancelGoesBackToTheProfileName)
{
    onPage2({[] { press(Qt::Key_Escape); },
             [] {
                 EXPECT_FALSE(page()->isVisible());
                 EXPECT_EQ(wizardPage(1), activeLayer());
                 EXPECT_EQ(focusOf(wizardPage(1)), "Profile Name:*");
                 EXPECT_EQ(formOf(wizardPage(1))->contentsY(), 0);
             }});
    EXPECT_EQ((Calls{"valid Old", "read Old"}), [] {
        Calls calls = take();
        calls.resize(2);
        return calls;
    }());
}

TEST_F(Page2, CancelInTheOptionsGoesBackToo)
{
    onPage2({[] { press(Qt::Key_F1); }, [] { press(Qt::Key_Return); },
             [] {
                 EXPECT_FALSE(page()->isVisible());
                 EXPECT_EQ(wizardPage(1), activeLayer());
             }});
}

TEST_F(Page2, IsFilledFromTheRecordAtEachVisit)
{
    onPage2({[] {
                 walkTo(page(), "Proxy 2:");
                 retype("typed");
                 walkTo(page(), "DNS 2:");
                 retype("9.9.9.9");
                 EXPECT_EQ(rightKeyOf(page()), "Save");
                 press(Qt::Key_F1);
             },
             [] { press(Qt::Key_Return); },
             [] {
                 EXPECT_EQ(editOf(page(), "Proxy 2:")->text().toStdString(), "typed");
                 openPage2();
             },
             [] {
                 EXPECT_EQ(editOf(page(), "Proxy 2:")->text().toStdString(), "proxy.two");
                 // The record has no second name server, so that nothing replaces what was typed.
                 EXPECT_EQ(editOf(page(), "DNS 2:")->text().toStdString(), "9.9.9.9");
                 EXPECT_EQ(rightKeyOf(page()), "Cancel");
             }});
}

TEST_F(Page2, CancellingTheSetupEndsTheWizard)
{
    EXPECT_EQ(onPage2({[] { QMetaObject::invokeMethod(page(), "slotCancelSetup"); }}), 1);
}

} // namespace
