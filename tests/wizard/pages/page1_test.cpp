// Page 1 as it is built in its three modes, and what its rows and keys do.

#include <QMetaMethod>

#include <ycombobox.h>
#include <yformcontainer.h>
#include <yinputfield.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>
#include <yoptionsmenu.h>
#include <ypressbutton.h>

#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

namespace {

using recorder::Calls;

// A distinct value in each field of page 1.
NetworkProfile filledRecord(unsigned preference)
{
    RecordBytes bytes;
    bytes.word(4, preference).text(8, "internet").text(108, "ann").text(208, "secret");
    bytes.word(312, 0x0A010203).word(316, 0x0A010204).half(320, 360).byte(380, 1);
    bytes.text(381, "+4912345").text(760, "proxy.one").half(860, 8080).text(862, "one.example");
    return bytes.record();
}

const char* const rowsOn = "NSEditBox Proxy 1: \"proxy.one\"\n"
                           "NSEditBox Port 1: \"8080\"\n"
                           "NSEditBox Domain 1: \"one.example\"\n"
                           "NSEditBox GPRS APN: \"internet\"\n"
                           "NSEditBox User Name: \"ann\"\n"
                           "NSEditBox Password: \"secret\"\n"
                           "NSEditBox GPRS DNS 1: \"10.1.2.3\"\n"
                           "NSEditBox GPRS DNS 2: \"10.1.2.4\"\n"
                           "NSComboBox Quality of service Policy: \"Voice\"\n"
                           "NSComboBox GPRS Timeout: \"6 hour\"\n"
                           "NSPressButton Additional settings:\n";
const char* const rowsOff = "NSEditBox Proxy 1: \"proxy.one\" off\n"
                            "NSEditBox Port 1: \"8080\" off\n"
                            "NSEditBox Domain 1: \"one.example\" off\n"
                            "NSEditBox GPRS APN: \"internet\" off\n"
                            "NSEditBox User Name: \"ann\" off\n"
                            "NSEditBox Password: \"secret\" off\n"
                            "NSEditBox GPRS DNS 1: \"10.1.2.3\" off\n"
                            "NSEditBox GPRS DNS 2: \"10.1.2.4\" off\n"
                            "NSComboBox Quality of service Policy: \"Voice\" off\n"
                            "NSComboBox GPRS Timeout: \"6 hour\" off\n"
                            "NSPressButton Additional settings: off\n";

std::string head(const char* name, const char* preference, const char* separatorState)
{
    return std::string("NSEditBox Profile Name:* \"") + name +
           "\"\nNSComboBox Connection Preference:* \"" + preference +
           "\"\nYSeparator Cellular Connection Settings:" + separatorState + "\n";
}

class Page1 : public Wizard
{
protected:
    static YKbMainWidget* page() { return wizardPage(1); }
    static std::string rows() { return rowsOf(wizardPage(1)); }

    int lookAt(const std::function<void()>& look) { return create(Steps{look, cancel}); }
};

TEST_F(Page1, OfANewProfileHasItsRowsInOrder)
{
    EXPECT_EQ(lookAt([] {
                  EXPECT_EQ(titleOf(page()), "Connection Setup");
                  EXPECT_EQ(rows(), "NSEditBox Profile Name:* \"Profile1\"\n"
                                    "NSComboBox Connection Preference:* \"WiFi, then Cellular\"\n"
                                    "YSeparator Cellular Connection Settings:\n"
                                    "NSEditBox Proxy 1: \"\"\n"
                                    "NSEditBox Port 1: \"\"\n"
                                    "NSEditBox Domain 1: \"\"\n"
                                    "NSEditBox GPRS APN: \"\"\n"
                                    "NSEditBox User Name: \"\"\n"
                                    "NSEditBox Password: \"\"\n"
                                    "NSEditBox GPRS DNS 1: \"\"\n"
                                    "NSEditBox GPRS DNS 2: \"\"\n"
                                    "NSComboBox Quality of service Policy: \"Data\"\n"
                                    "NSComboBox GPRS Timeout: \"Off\"\n"
                                    "NSPressButton Additional settings:\n");
                  EXPECT_EQ(leftKeyOf(page()), "Options");
                  EXPECT_EQ(rightKeyOf(page()), "Cancel");
                  EXPECT_EQ(focusOf(page()), "Profile Name:*");
              }),
              1);
}

TEST_F(Page1, WithoutTheWifiFeatureHasNoPreferenceAndAsksForNoDefault)
{
    setWifi(false);
    lookAt([] {
        EXPECT_EQ(rows().substr(0, rows().find("NSEditBox Port 1:")),
                  "NSEditBox Profile Name:* \"Profile1\"\nNSEditBox Proxy 1: \"\"\n");
        EXPECT_EQ(Calls(), take());
    });
}

TEST_F(Page1, OfANewProfileTakesTheNextDefaultName)
{
    napi.profiles["Profile2"] = NetworkProfile();
    lookAt([] { EXPECT_EQ(editOf(page(), "Profile Name:*")->text().toStdString(), "Profile3"); });
}

TEST_F(Page1, OfANewProfileHasNoNameWhereTheStoredOnesCannotBeListed)
{
    napi.listResult = NAPI_ERR_IO;
    create({[] {
                EXPECT_EQ(editOf(page(), "Profile Name:*")->text().toStdString(), "");
                walkTo(page(), "GPRS APN:");
                type("a");
            },
            opening(save),
            [] {
                EXPECT_EQ(popupText().find("Required Fields|"), 0u) << popupText();
                dismiss();
            },
            [] { page()->hide(); }});
}

TEST_F(Page1, OfACopyShowsTheSourceUnderADefaultName)
{
    napi.profiles["Source"] = filledRecord(0x400);
    copy("Source", {[] {
                        EXPECT_EQ(titleOf(page()), "New Connection");
                        EXPECT_EQ(head("Profile1", "Cellular Only", "") + rowsOn, rows());
                        EXPECT_EQ(rightKeyOf(page()), "Cancel");
                    },
                    cancel});
}

TEST_F(Page1, OfAnEditedProfileShowsItUnderItsName)
{
    napi.profiles["Old"] = filledRecord(0x200);
    edit("Old", {[] {
                     EXPECT_EQ(titleOf(page()), "Old");
                     EXPECT_EQ(head("Old", "WiFi, then Cellular", "") + rowsOn, rows());
                     EXPECT_EQ(rightKeyOf(page()), "Cancel");
                     EXPECT_EQ(focusOf(page()), "Profile Name:*");
                 },
                 cancel});
}

TEST_F(Page1, OfAWifiOnlyProfileHasItsCellularRowsOff)
{
    napi.profiles["Old"] = filledRecord(0x100);
    edit("Old", {[] {
                     EXPECT_EQ(head("Old", "WiFi Only", " off") + rowsOff, rows());
                     EXPECT_TRUE(editOf(page(), "GPRS APN:")->isReadOnly());
                 },
                 chooseByKeys(1, "Connection Preference:*", 2),
                 [] {
                     EXPECT_EQ(head("Old", "Cellular Only", "") + rowsOn, rows());
                     EXPECT_FALSE(editOf(page(), "GPRS APN:")->isReadOnly());
                     EXPECT_EQ(rightKeyOf(page()), "Save");
                     page()->hide();
                 }});
}

TEST_F(Page1, OfAnUnknownPreferenceShowsTheDefault)
{
    setDefaultPreference("1");
    napi.profiles["Old"] = filledRecord(0x700);
    edit("Old", {[] { EXPECT_EQ(head("Old", "WiFi Only", " off") + rowsOff, rows()); }, cancel});
}

TEST_F(Page1, OfANewProfileShowsADefaultOfWifiOnlyWithItsRowsOn)
{
    setDefaultPreference("1");
    lookAt([] {
        EXPECT_NE(std::string::npos, rows().find("Connection Preference:* \"WiFi Only\"\n"));
        EXPECT_EQ(std::string::npos, rows().find(" off"));
    });
}

TEST_F(Page1, ChoosingAwayFromSuchADefaultTouchesNoRow)
{
    setDefaultPreference("1");
    create({[] { editOf(page(), "Domain 1:")->setEnabled(false); },
            chooseByKeys(1, "Connection Preference:*", 2),
            [] {
                EXPECT_NE(std::string::npos, rows().find("Domain 1: \"\" off"));
                page()->hide();
            }});
}

TEST_F(Page1, ChoosingWifiOnlySwitchesTheCellularRowsOffAndOnAgain)
{
    napi.profiles["Old"] = filledRecord(0x200);
    edit("Old", {chooseByKeys(1, "Connection Preference:*", 1),
                 [] {
                     EXPECT_EQ(head("Old", "WiFi Only", " off") + rowsOff, rows());
                     EXPECT_EQ(rightKeyOf(page()), "Save");
                 },
                 chooseByKeys(1, "Connection Preference:*", 0),
                 [] {
                     EXPECT_EQ(head("Old", "WiFi, then Cellular", "") + rowsOn, rows());
                     page()->hide();
                 }});
}

TEST_F(Page1, ChoosingBetweenTheOtherPreferencesTouchesNoRow)
{
    create({[] { editOf(page(), "Domain 1:")->setEnabled(false); },
            chooseByKeys(1, "Connection Preference:*", 2),
            chooseByKeys(1, "Connection Preference:*", 0),
            [] {
                EXPECT_NE(std::string::npos, rows().find("Domain 1: \"\" off"));
                EXPECT_EQ(rightKeyOf(page()), "Save");
                page()->hide();
            }});
}

TEST_F(Page1, ADefaultPreferenceThatCannotBeReadIsLoggedAndIsWifiThenCellular)
{
    lookAt([] {
        EXPECT_EQ(
            Calls{"log: Getting DM Tree Node FailedGet default connection preference faild\n"},
            take());
        EXPECT_EQ(comboOf(page(), "Connection Preference:*")->currentItem(), 0);
    });
}

TEST_F(Page1, ADefaultPreferenceBeyondTheItemsLeavesTheFirst)
{
    for (const char* value : {"3", "-1", "2147483647"}) {
        setDefaultPreference(value);
        lookAt([] { EXPECT_EQ(comboOf(page(), "Connection Preference:*")->currentItem(), 0); });
    }
}

TEST_F(Page1, ADefaultPreferenceBeyondTheItemsStandsForAnUnknownOneToo)
{
    setDefaultPreference("7");
    napi.profiles["Old"] = filledRecord(0x000);
    edit("Old", {[] {
                     EXPECT_EQ(comboOf(page(), "Connection Preference:*")->currentItem(), 0);
                     EXPECT_TRUE(editOf(page(), "GPRS APN:")->isYEnabled());
                 },
                 cancel});
}

TEST_F(Page1, AProfileThatCannotBeReadIsLoggedAndTheWizardOpens)
{
    setDefaultPreference("0");
    napi.profiles["Old"] = filledRecord(0x400);
    napi.readResult = NAPI_ERR_DAMAGED;
    EXPECT_EQ(edit("Old", {[] {
                               EXPECT_EQ(titleOf(page()), "Old");
                               EXPECT_NE(std::string::npos, rows().find("GPRS APN: \"\"\n"));
                           },
                           cancel}),
              1);
    EXPECT_EQ(
        (Calls{"valid Old", "read Old", "log: Read profile error.\nLoad profile content failed\n"}),
        take());
}

struct ModeRow
{
    const char* name;
    bool creating;
    const char* source;
    const char* item;
};

void PrintTo(const ModeRow& row, std::ostream* out)
{
    *out << row.name;
}

class Menu : public Wizard, public testing::WithParamInterface<ModeRow>
{
protected:
    int open(const Steps& steps)
    {
        napi.profiles["Old"] = filledRecord(0x400);
        const ModeRow& mode = GetParam();
        if (!mode.creating)
            return edit(mode.source, steps);
        return *mode.source ? copy(mode.source, steps) : create(steps);
    }

    static YOptionsMenu* menu() { return qobject_cast<YOptionsMenu*>(activeLayer()); }
};

TEST_P(Menu, OffersToCancelByKeys)
{
    EXPECT_EQ(open({[] { press(Qt::Key_F1); },
                    [] {
                        ASSERT_TRUE(menu());
                        EXPECT_EQ(menu()->count(), 1);
                        press(Qt::Key_Return);
                    }}),
              1);
}

TEST_P(Menu, OffersToCancelByFinger)
{
    EXPECT_EQ(open({[] { tap(QPoint(20, screen()->height() - 8)); },
                    [] {
                        ASSERT_TRUE(menu());
                        tap(QPoint(40, menu()->y() + menu()->height() - 50));
                    }}),
              1);
}

TEST_P(Menu, NamesWhatIsCancelled)
{
    open({[] { press(Qt::Key_F1); },
          [] {
              ASSERT_TRUE(menu());
              std::string texts;
              for (int id = 0; id < 4; ++id)
                  texts += menu()->text(id).toStdString();
              EXPECT_EQ(GetParam().item, texts);
              press(Qt::Key_Escape);
          },
          cancel});
}

const ModeRow modes[] = {
    {"Create", true, "", "Cancel Profile"},
    {"Copy", true, "Old", "Cancel Profile"},
    {"Edit", false, "Old", "Cancel Edit"},
};
INSTANTIATE_TEST_SUITE_P(Modes, Menu, testing::ValuesIn(modes),
                         [](const auto& test) { return std::string(test.param.name); });

class TextRow : public Wizard, public testing::WithParamInterface<const char*>
{};

TEST_P(TextRow, TurnsTheRightKeyIntoSaveWhenTyped)
{
    create({[] {
        walkTo(wizardPage(1), GetParam());
        EXPECT_EQ(rightKeyOf(wizardPage(1)), "Cancel");
        type("1");
        EXPECT_EQ(rightKeyOf(wizardPage(1)), "Save");
        type("2");
        EXPECT_EQ(rightKeyOf(wizardPage(1)), "Save");
        wizardPage(1)->hide();
    }});
}

INSTANTIATE_TEST_SUITE_P(Rows, TextRow,
                         testing::Values("Profile Name:*",
                                         "Proxy 1:", "Port 1:", "Domain 1:", "GPRS APN:",
                                         "User Name:", "Password:", "GPRS DNS 1:", "GPRS DNS 2:"));

class ChoiceRow : public Wizard, public testing::WithParamInterface<const char*>
{};

TEST_P(ChoiceRow, TurnsTheRightKeyIntoSaveWhenChosen)
{
    create({chooseByKeys(1, GetParam(), 1), [] {
                EXPECT_EQ(comboOf(wizardPage(1), GetParam())->currentItem(), 1);
                EXPECT_EQ(rightKeyOf(wizardPage(1)), "Save");
                wizardPage(1)->hide();
            }});
}

INSTANTIATE_TEST_SUITE_P(Rows, ChoiceRow,
                         testing::Values("Connection Preference:*",
                                         "Quality of service Policy:", "GPRS Timeout:"));

TEST_F(Page1, LimitsItsTexts)
{
    const std::pair<const char*, int> limits[] = {
        {"Profile Name:*", 20}, {"Proxy 1:", 100},  {"Domain 1:", 100},
        {"GPRS APN:", 99},      {"User Name:", 64}, {"Password:", 64},
    };
    lookAt([&limits] {
        for (const auto& [label, limit] : limits)
            EXPECT_EQ(limit, editOf(page(), label)->maxLength()) << label;
        for (const char* label : {"Port 1:", "GPRS DNS 1:", "GPRS DNS 2:"})
            EXPECT_EQ(editOf(page(), label)->maxLength(), 32767) << label;
    });
}

TEST_F(Page1, TakesTwentyCharactersOfANameAndNoMore)
{
    create({[] {
        retype("12345678901234567890abc");
        EXPECT_EQ(editOf(page(), "Profile Name:*")->text().toStdString(), "12345678901234567890");
        page()->hide();
    }});
}

TEST_F(Page1, TakesPortsUpTo65535)
{
    create({[] {
        walkTo(page(), "Port 1:");
        YLineEdit* port = editOf(page(), "Port 1:");
        const std::pair<const char*, const char*> rows[] = {
            {"65535", "65535"}, {"65536", "6553"}, {"-1", "1"},
            {"8a0", "80"},      {"0", "0"},        {"00080", "00080"},
        };
        for (const auto& [typed, shown] : rows) {
            retype(typed);
            EXPECT_EQ(shown, port->text().toStdString()) << typed;
        }
        page()->hide();
    }});
}

TEST_F(Page1, HidesThePassword)
{
    lookAt([] {
        EXPECT_EQ(QLineEdit::Password, editOf(page(), "Password:")->echoMode());
        EXPECT_EQ(editOf(page(), "Password:")->getInputField()->inputMode(), 8);
        EXPECT_EQ(editOf(page(), "Port 1:")->getInputField()->inputMode(), 6);
    });
}

std::string slotsOf(const QObject* object)
{
    const QMetaObject* meta = object->metaObject();
    std::string names = std::string(meta->className()) + " : " + meta->superClass()->className();
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        names += std::string("\n") + (method.access() == QMetaMethod::Public ? "" : "hidden ") +
                 (method.methodType() == QMetaMethod::Slot ? "" : "no slot ") +
                 method.methodSignature().toStdString();
    }
    return names;
}

TEST_F(Page1, AndPage2DeclareTheirSlotsInOrder)
{
    lookAt([] {
        EXPECT_EQ(slotsOf(page()), "DataConnection_NewWiz1 : YKbMainWidget\n"
                                   "slotGotoPrevious()\n"
                                   "slotGoToNext()\n"
                                   "slotPreferencChanged(int)\n"
                                   "slotSaveProfile()\n"
                                   "slotContentChanged()");
        EXPECT_EQ(slotsOf(wizardPage(2)), "DataConnection_NewWiz2 : YKbMainWidget\n"
                                          "slotGotoPrevious()\n"
                                          "slotCancelSetup()\n"
                                          "slotContentChanged()\n"
                                          "slotLineSpeedChanged()\n"
                                          "slotSaveProfile()");
        EXPECT_EQ(slotsOf(editOf(page(), "Proxy 1:")), "NSEditBox : YLineEdit");
        EXPECT_EQ(slotsOf(comboOf(page(), "GPRS Timeout:")), "NSComboBox : YComboBox");
        EXPECT_EQ(slotsOf(buttonOf(page())), "NSPressButton : YPressButton");
    });
}

} // namespace
