// Which of the phone's texts stands where in the wizard.

#include <functional>

#include <profilefunctions.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "common/interposed.h"
#include "common/shows_ids.h"
#include "wizard/world/record_bytes.h"
#include "wizard/world/toolkit_calls.h"
#include "wizard/world/wizard_fixture.h"

namespace {

// What was shown, in the order of the calls; what the pages connect, enable and fill is left out.
std::string idsOf(const std::vector<std::string>& calls)
{
    std::string shown;
    for (const std::string& call : calls) {
        const std::size_t begin = call.find('"');
        if (begin == std::string::npos || call.find('=', begin) == std::string::npos)
            continue;
        for (const char* kind :
             {"title ", "label ", "text ", "dialog ", "item ", "key ", "message ", "notice "}) {
            if (call.rfind(kind, 0) == 0)
                shown += kind + call.substr(begin, call.rfind('"') + 1 - begin) + '\n';
        }
    }
    return shown;
}

class Ids : public Wizard
{
protected:
    void TearDown() override
    {
        toolkitcalls::answersPopups = false;
        Wizard::TearDown();
    }

    std::string idsOfOpening(EntryPoint entry)
    {
        std::string ids;
        interposed::calls.clear();
        interposed::recording = true;
        Wizard::run(entry, {[&ids] {
                                interposed::recording = false;
                                ids = idsOf(interposed::calls);
                            },
                            cancel});
        return ids;
    }

    // What saving the profile "Old", changed by `change`, tells.
    std::string idsOfSaving(const std::function<void()>& change)
    {
        RecordBytes bytes;
        bytes.byte(1, 1).word(4, 0x400).text(8, "internet");
        napi.profiles["Old"] = bytes.record();
        std::string ids;
        edit("Old", {change, [&ids] {
                         toolkitcalls::answersPopups = true;
                         ids = idsOf(interposed::callsOf(
                             [] { QMetaObject::invokeMethod(wizardPage(1), "slotSaveProfile"); }));
                         toolkitcalls::answersPopups = false;
                         if (wizardPage(1) && wizardPage(1)->isVisible())
                             wizardPage(1)->hide();
                     }});
        return ids;
    }

    static std::function<void()> typing(const char* label, const char* text)
    {
        return [label, text] {
            YLineEdit* edit = editOf(wizardPage(1), label);
            ASSERT_TRUE(edit) << label;
            edit->setText(text);
        };
    }

    const ShowsIds translator;
};

const char* const nameLabel = "LABEL_FORMITEM_PROFILE_NAME_COLON_ASTERISK=Profile Name:*";

const char* const page1Ids =
    R"(title "HEADER_CONNECTION_SETUP=Connection Setup"
label "LABEL_FORMITEM_PROFILE_NAME_COLON_ASTERISK=Profile Name:*"
title "LABEL_FORMITEM_CONNECTION_PREFERENCE_COLON_ASTERISK=Connection Preference:*"
dialog "LABEL_FORMITEM_CONNECTION_PREFERENCE_COLON_ASTERISK=Connection Preference:*"
item "COMBOBOX_WIFI_THEN_CELLULAR=WiFi, then Cellular"
item "COMBOBOX_WIFI_ONLY=WiFi Only"
item "COMBOBOX_CELLULAR_ONLY=Cellular Only"
text "SEPARATOR_CELLULAR_CONNECTION_SETTINGS_COLON=Cellular Connection Settings:"
label "LABEL_FORMITEM_PROXY_1_COLON=Proxy 1:"
label "LABEL_FORMITEM_PORT_1_COLON=Port 1:"
label "LABEL_FORMITEM_DOMAIN_1_COLON=Domain 1:"
label "LABEL_FORMITEM_GPRS_APN_COLON=GPRS APN:"
label "LABEL_FORMITEM_USER_NAME_COLON=User Name:"
label "LABEL_FORMITEM_PASSWORD_COLON=Password:"
label "LABEL_FORMITEM_GPRS_DNS1_COLON=GPRS DNS 1:"
label "LABEL_FORMITEM_GPRS_DNS2_COLON=GPRS DNS 2:"
title "LABEL_FORMITEM_QUALITY_OF_SERVICE_POLICY_COLON=Quality of service Policy:"
dialog "LABEL_FORMITEM_QUALITY_OF_SERVICE_POLICY_COLON=Quality of service Policy:"
item "COMBOBOX_DATA=Data"
item "COMBOBOX_VOICE=Voice"
title "LABEL_FORMITEM_GPRS_TIMEOUT_COLON=GPRS Timeout:"
dialog "LABEL_FORMITEM_GPRS_TIMEOUT_COLON=GPRS Timeout:"
item "COMBOBOX_OFF=Off"
item "COMBOBOX_15_MIN=15 min"
item "COMBOBOX_1_HOUR=1 hour"
item "COMBOBOX_2_HOURS=2 hour"
item "COMBOBOX_6_HOURS=6 hour"
item "COMBOBOX_24_HOURS=24 hour"
text "BUTTON_ADDITIONAL_SETTINGS=Additional settings:"
)";

const char* const page2Ids =
    R"(title "HEADER_ADDITIONAL_SETTINGS=Additional Settings"
label "LABEL_FORMITEM_PROXY_2_COLON=Proxy 2:"
label "LABEL_FORMITEM_PORT_2_COLON=Port 2:"
label "LABEL_FORMITEM_DOMAIN_2_COLON=Domain 2:"
label "LABEL_FORMITEM_CSD_NUMBER_COLON=CSD Number:"
label "LABEL_FORMITEM_USER_NAME_COLON=User Name:"
label "LABEL_FORMITEM_PASSWORD_COLON=Password:"
title "LABEL_FORMITEM_SPEED_LPARENS_BPS_RPARENS_COLON=Speed(BPS):"
item "COMBOBOX_AUTO=Auto"
item "COMBOBOX_14400=14400"
item "COMBOBOX_9600=9600"
item "COMBOBOX_4800=4800"
item "COMBOBOX_2400=2400"
title "LABEL_FORMITEM_LINE_TYPE_COLON=Line Type:"
item "COMBOBOX_MODEM=Modem"
item "COMBOBOX_ISDN=ISDN"
title "LABEL_FORMITEM_CSD_TIMEOUT_COLON=CSD Timeout:"
item "COMBOBOX_OFF=Off"
item "COMBOBOX_1_MIN=1 min"
item "COMBOBOX_5_MIN=5 min"
item "COMBOBOX_15_MIN=15 min"
item "COMBOBOX_30_MIN=30 min"
item "COMBOBOX_60_MIN=60 min"
label "LABEL_FORMITEM_DNS_1_COLON=DNS 1:"
label "LABEL_FORMITEM_DNS_2_COLON=DNS 2:"
item "OPTION_CANCEL=Cancel"
key "SOFTKEY_OPTIONS=Options"
key "SOFTKEY_CANCEL=Cancel"
)";

std::string keys(const char* item)
{
    return "item \"" + std::string(item) +
           "\"\nkey \"SOFTKEY_OPTIONS=Options\"\nkey \"SOFTKEY_CANCEL=Cancel\"\n";
}

TEST_F(Ids, OfANewProfile)
{
    EXPECT_EQ(page1Ids + std::string(page2Ids) + keys("OPTION_CANCEL_PROFILE=Cancel Profile"),
              idsOfOpening(createProfilebyUser));
}

TEST_F(Ids, OfACopyAreThoseOfANewProfileButForTheTitle)
{
    napi.profiles["Old"] = NetworkProfile();
    name = "Old";
    std::string ids =
        page1Ids + std::string(page2Ids) + keys("OPTION_CANCEL_PROFILE=Cancel Profile");
    ids.replace(0, ids.find('\n'), "title \"HEADER_NEW_CONNECTION=New Connection\"");
    EXPECT_EQ(ids, idsOfOpening(copyProfilebyUser));
}

TEST_F(Ids, OfAnEditedProfileHaveAnotherMenu)
{
    napi.profiles["Old"] = NetworkProfile();
    name = "Old";
    std::string ids = page1Ids + std::string(page2Ids) + keys("OPTION_CANCEL_EDIT=Cancel Edit");
    ids.erase(0, ids.find('\n') + 1);
    EXPECT_EQ(ids, idsOfOpening(editProfilebyUser));
}

TEST_F(Ids, OfADuplicateName)
{
    napi.profiles["Taken"] = NetworkProfile();
    EXPECT_EQ(
        idsOfSaving(typing(nameLabel, "Taken")),
        "message \"HEADER_DUPLICATE_PROFILE=Duplicate Profile\" "
        "\"INSTRUCTIONALTXT_YOU_ALREADY_HAVE_A_PROFILE_NAMED_1_PLEASE_CHOOSE_ANOTHER_NAME=You "
        "already have a Profile named: Taken. Please choose another name.\"\n");
}

TEST_F(Ids, OfAMissingName)
{
    EXPECT_EQ(
        idsOfSaving(typing(nameLabel, " ")),
        "message \"HEADER_REQUIRED_FIELDS=Required Fields\" "
        "\"INSTRUCTIONALTXT_PLEASE_COMPLETE_THE_REQUIRED_FIELDS_REQUIRED_FIELDS_ARE_INDICATED_"
        "WITH_A_ASTERISK=Please complete the required fields.Required fields are indicated "
        "with a *.\"\n");
}

TEST_F(Ids, OfANameWithADot)
{
    EXPECT_EQ(
        idsOfSaving(typing(nameLabel, ".x")),
        "message \"HEADER_INVALID_NAME=Invalid Name\" "
        "\"INSTRUCTIONALTXT_A_PROFILE_NAME_CANNOT_START_WITH=A Profile name cannot start with "
        "\".\".\"\n");
}

TEST_F(Ids, OfAMissingAccessPoint)
{
    EXPECT_EQ(idsOfSaving(typing("LABEL_FORMITEM_GPRS_APN_COLON=GPRS APN:", "")),
              "message \"HEADER_MISSING_REQUIRED_FIELD=Missing Required Field(s)\" "
              "\"INSTRUCTIONALTXT_ENTER_A_GPRS_APN_OR_CSD_NUMBER=Please enter  a GPRS APN or CSD "
              "number.\"\n");
}

TEST_F(Ids, OfAWrongAddress)
{
    EXPECT_EQ(idsOfSaving(typing("LABEL_FORMITEM_GPRS_DNS1_COLON=GPRS DNS 1:", "x")),
              "message \"HEADER_INVALID_DNS=Invalid DNS\" "
              "\"INSTRUCTIONALTXT_WRONG_DNS_ONLY_IP=You've entered wrong DNS, only IP address is "
              "accepted\"\n");
}

TEST_F(Ids, OfTheSuccess)
{
    EXPECT_EQ(
        idsOfSaving([] {}),
        "notice \"\" \"INSTRUCTIONALTXT_YOU_HAVE_SUCCESSFULLY_SAVED_THE_PROFILE_NAMED=You have "
        "successfully saved the profile named: Old.\"\n");
}

TEST_F(Ids, OfAFullStore)
{
    napi.modifyResult = -152;
    EXPECT_EQ(
        idsOfSaving(typing("LABEL_FORMITEM_PROXY_1_COLON=Proxy 1:", "p")),
        "message \"HEADER_MEMORY_FULL=Memory Full\" "
        "\"INSTRUCTIONALTXT_THERE_IS_INSUFFICIENT_MEMORY_TO_CREATE_A_NEW_CONNECTION_DELETE_SOME_"
        "FILES=There is insufficient memory to create a new connection. You may delete some "
        "files in order to add a new one.\"\n");
}

TEST_F(Ids, OfARowThatIsSwitchedOff)
{
    RecordBytes bytes;
    bytes.byte(1, 1).word(4, 0x100);
    napi.profiles["Old"] = bytes.record();
    std::string ids;
    edit("Old", {[&ids] {
                     toolkitcalls::answersPopups = true;
                     walkTo(wizardPage(1), "LABEL_FORMITEM_GPRS_APN_COLON=GPRS APN:");
                     ids = idsOf(interposed::callsOf([] { press(Qt::Key_Return); }));
                     toolkitcalls::answersPopups = false;
                 },
                 cancel});
    EXPECT_EQ(
        ids,
        "message \"COMBOBOX_WIFI_ONLY=WiFi Only\" "
        "\"INSTRUCTIONALTXT_YOUR_CONNECTION_PREFERENCE_IS_WIFI_ONLYNO_GPRS_OR_CSD_CONNECTION_IS_"
        "USED_FOR_THIS_PROFILE=Your connection preference is WiFi only.No GPRS or CSD "
        "connection is used for this profile.\"\n");
}

TEST_F(Ids, OfAChange)
{
    const auto idsOfChange = [](int page) {
        return idsOf(interposed::callsOf(
            [page] { QMetaObject::invokeMethod(wizardPage(page), "slotContentChanged"); }));
    };
    create([&idsOfChange] {
        EXPECT_EQ(idsOfChange(1), "key \"SOFTKEY_SAVE=Save\"\n");
        EXPECT_EQ(idsOfChange(2), "key \"SOFTKEY_SAVE=Save\"\n");
        wizardPage(1)->hide();
    });
}

} // namespace
