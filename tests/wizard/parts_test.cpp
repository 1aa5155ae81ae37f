// What the wizard hands to the toolkit, in which order.

#include <functional>

#include <profilefunctions.h>
#include <ycombobox.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "common/interposed.h"
#include "wizard/world/record_bytes.h"
#include "wizard/world/toolkit_calls.h"
#include "wizard/world/wizard_fixture.h"

namespace {

// The calls as lines; what belongs to one row stands on one line. Qt's own affairs with its windows
// are left out.
std::string linesOf(const std::vector<std::string>& calls)
{
    std::string lines;
    for (const std::string& call : calls) {
        if (call.rfind("connect QWidgetWindow", 0) == 0)
            continue;
        bool endsLine = false;
        for (const char* last : {"add ", "title bar", "soft keys", "connect "})
            endsLine = endsLine || call.rfind(last, 0) == 0;
        lines += call + (endsLine ? "\n" : "; ");
    }
    return lines;
}

// A distinct value in each field.
NetworkProfile filledRecord(unsigned preference)
{
    RecordBytes bytes;
    bytes.byte(1, 1).word(4, preference).text(8, "internet").text(108, "ann").text(208, "secret");
    bytes.word(312, 0x0A010203).word(316, 0x0A010204).half(320, 360).byte(380, 1);
    bytes.text(381, "+49123").text(425, "bob").text(489, "hidden").word(560, 0xC0A80001);
    bytes.word(564, 0xC0A80002).half(568, 30).byte(571, 70);
    bytes.text(760, "proxy.one").half(860, 8080).text(862, "one.example");
    bytes.text(963, "proxy.two").half(1064, 3128).text(1066, "two.example");
    return bytes.record();
}

class Parts : public Wizard
{
protected:
    void SetUp() override
    {
        Wizard::SetUp();
        setDefaultPreference("2");
    }
    void TearDown() override
    {
        toolkitcalls::answersPopups = false;
        toolkitcalls::home = QRect();
        toolkitcalls::softKeyBar = QRect();
        Wizard::TearDown();
    }

    // What is called until the event loop runs.
    std::string callsOfOpening(EntryPoint entry)
    {
        std::string lines;
        interposed::calls.clear();
        interposed::recording = true;
        Wizard::run(entry, {[&lines] {
                                interposed::recording = false;
                                lines = linesOf(interposed::calls);
                            },
                            cancel});
        return lines;
    }

    // What a slot of one of the pages calls.
    static std::string callsOfSlot(int page, const char* slot)
    {
        return linesOf(interposed::callsOf(
            [page, slot] { QMetaObject::invokeMethod(wizardPage(page), slot); }));
    }
    static std::string callsOfChoosing(int preference)
    {
        return linesOf(interposed::callsOf([preference] {
            QMetaObject::invokeMethod(wizardPage(1), "slotPreferencChanged",
                                      Q_ARG(int, preference));
        }));
    }
    void inEdited(const std::function<void()>& look)
    {
        napi.profiles["Old"] = filledRecord(0x400);
        edit("Old", {look, [] {
                         toolkitcalls::answersPopups = false;
                         if (wizardPage(1) && wizardPage(1)->isVisible())
                             wizardPage(1)->hide();
                     }});
    }
};

const char* const page1Rows =
    R"(guarded combo of viewport none yes; auto-resize yes; title "Connection Preference:*"; dialog "Connection Preference:*" 0; item "WiFi, then Cellular"; item "WiFi Only"; item "Cellular Only"; add no none
setting DefConnPrefer; current Connection Preference:* 2; separator of viewport none 0 64; label of YSeparator none 0 86; text "Cellular Connection Settings:"; auto-resize yes; caption some; add yes none
edit of viewport none 39; label "Proxy 1:"; length 100; add yes none
edit of viewport none 39; label "Port 1:"; validator 0 65535; input method of Port 1: "{637a8c00-1098-42ca-969a-2bf163cd3c14}" 6; add yes none
edit of viewport none 39; label "Domain 1:"; length 100; add yes none
edit of viewport none 39; label "GPRS APN:"; length 99; add yes none
edit of viewport none 39; label "User Name:"; length 64; add yes none
edit of viewport none 39; label "Password:"; echo 2; input mode 8; length 64; add yes none
edit of viewport none 39; label "GPRS DNS 1:"; add yes none
edit of viewport none 39; label "GPRS DNS 2:"; add yes none
guarded combo of viewport none yes; auto-resize yes; title "Quality of service Policy:"; dialog "Quality of service Policy:" 1; item "Data"; item "Voice"; add no none
guarded combo of viewport none yes; auto-resize yes; title "GPRS Timeout:"; dialog "GPRS Timeout:" 1; item "Off"; item "15 min"; item "1 hour"; item "2 hour"; item "6 hour"; item "24 hour"; add no none
button of viewport none 60; text "Additional settings:"; add no none
)";

const char* const page2 =
    R"(page none none 0; morph mode 3; title "Additional Settings"; form of DataConnection_NewWiz2 none 23; content YFormContainer; area of DataConnection_NewWiz2 T none 3; append 1 "" null; title bar YAppInfoArea
edit of viewport none 39; label "Proxy 2:"; length 100; add yes none
edit of viewport none 39; label "Port 2:"; validator 0 65535; input method of Port 2: "{637a8c00-1098-42ca-969a-2bf163cd3c14}" 6; add yes none
edit of viewport none 39; label "Domain 2:"; length 100; add yes none
edit of viewport none 39; label "CSD Number:"; length 44; input method of CSD Number: "{637a8c00-1098-42ca-969a-2bf163cd3c14}" 4; add yes none
edit of viewport none 39; label "User Name:"; length 64; add yes none
edit of viewport none 39; label "Password:"; echo 2; input mode 8; length 64; add yes none
combo of viewport none yes; title "Speed(BPS):"; item "Auto"; item "14400"; item "9600"; item "4800"; item "2400"; add no none
combo of viewport none yes; title "Line Type:"; item "Modem"; item "ISDN"; add no none
combo of viewport none yes; title "CSD Timeout:"; item "Off"; item "1 min"; item "5 min"; item "15 min"; item "30 min"; item "60 min"; add no none
edit of viewport none 39; label "DNS 1:"; add yes none
edit of viewport none 39; label "DNS 2:"; add yes none
home no; bar; menu of DataConnection_NewWiz2 0 0 200 286 none 0 54; item "Cancel" none DataConnection_NewWiz2 1slotGotoPrevious() yes no no -1 -1 no; keys CST_2A DataConnection_NewWiz2 DataConnection_NewWiz2; key 0 "Options" 0; key 1 "Cancel" 0; opens 0 some; calls 1 DataConnection_NewWiz2 1slotGotoPrevious(); soft keys some
connect Proxy 2: 2textChanged(const QString&) DataConnection_NewWiz2 1slotContentChanged(void)
next of Proxy 2:; connect Port 2: 2textChanged(const QString&) DataConnection_NewWiz2 1slotContentChanged(void)
next of Port 2:; connect Domain 2: 2textChanged(const QString&) DataConnection_NewWiz2 1slotContentChanged(void)
next of Domain 2:; connect CSD Number: 2textChanged(const QString&) DataConnection_NewWiz2 1slotContentChanged(void)
next of CSD Number:; connect User Name: 2textChanged(const QString&) DataConnection_NewWiz2 1slotContentChanged(void)
next of User Name:; connect Password: 2textChanged(const QString&) DataConnection_NewWiz2 1slotContentChanged(void)
next of Password:; connect Speed(BPS): 2activated(int) DataConnection_NewWiz2 1slotLineSpeedChanged(void)
connect Line Type: 2activated(int) DataConnection_NewWiz2 1slotContentChanged(void)
connect CSD Timeout: 2activated(int) DataConnection_NewWiz2 1slotContentChanged(void)
connect DNS 1: 2textChanged(const QString&) DataConnection_NewWiz2 1slotContentChanged(void)
connect DNS 2: 2textChanged(const QString&) DataConnection_NewWiz2 1slotContentChanged(void)
)";

// Two questions list the profiles that there are, for a default name.
const char* const anyName = "list; list; ";
const char* const givenName = "";

// From the page itself to its name row.
std::string head(const char* question, const char* title, const char* profile)
{
    return std::string("page none none 0; morph mode 3; feature 431; ") + question + "title \"" +
           title +
           "\"; form of DataConnection_NewWiz1 none 23; content YFormContainer; area of "
           "DataConnection_NewWiz1 T none 3; append 1 \"\" null; title bar YAppInfoArea\n"
           "edit of viewport none 39; label \"Profile Name:*\"; text Profile Name:* \"" +
           profile + "\"; length 20; add yes none\n";
}

// Behind the rows of both pages.
std::string keys(const char* item)
{
    return std::string(
               "home no; bar; menu of DataConnection_NewWiz1 0 0 200 286 none 0 54; item \"") +
           item +
           "\" none DataConnection_NewWiz1 1slotGotoPrevious() yes no no -1 -1 no; keys CST_2A "
           "DataConnection_NewWiz1 DataConnection_NewWiz1; key 0 \"Options\" 0; key 1 \"Cancel\" "
           "0; "
           "opens 0 some; calls 1 DataConnection_NewWiz1 1slotGotoPrevious(); soft keys some\n"
           "focus Profile Name:*; ";
}

const char* const preferenceConnection =
    "connect Connection Preference:* 2activated ( int ) DataConnection_NewWiz1 "
    "1slotPreferencChanged( int )\n";

const char* const shown =
    R"(connect Additional settings: 2clicked() DataConnection_NewWiz1 1slotGoToNext()
features gone; show DataConnection_NewWiz1; connect Profile Name:* 2textChanged (const QString &) DataConnection_NewWiz1 1slotContentChanged()
connect Proxy 1: 2textChanged (const QString &) DataConnection_NewWiz1 1slotContentChanged()
next of Proxy 1:; connect Port 1: 2textChanged (const QString &) DataConnection_NewWiz1 1slotContentChanged()
next of Port 1:; connect Domain 1: 2textChanged (const QString &) DataConnection_NewWiz1 1slotContentChanged()
next of Domain 1:; connect GPRS APN: 2textChanged (const QString &) DataConnection_NewWiz1 1slotContentChanged()
next of GPRS APN:; connect User Name: 2textChanged (const QString &) DataConnection_NewWiz1 1slotContentChanged()
next of User Name:; connect Password: 2textChanged (const QString &) DataConnection_NewWiz1 1slotContentChanged()
next of Password:; connect GPRS DNS 1: 2textChanged (const QString &) DataConnection_NewWiz1 1slotContentChanged()
next of GPRS DNS 1:; connect GPRS DNS 2: 2textChanged (const QString &) DataConnection_NewWiz1 1slotContentChanged()
next of GPRS DNS 2:; connect Quality of service Policy: 2activated(int) DataConnection_NewWiz1 1slotContentChanged()
connect GPRS Timeout: 2activated(int) DataConnection_NewWiz1 1slotContentChanged()
)";

// The cellular rows switched off, or on where the words for on and off are the other way round.
std::string switched(const char* on, const char* off)
{
    std::string calls;
    for (const char* edit : {"Proxy 1:", "Port 1:", "Domain 1:", "GPRS APN:", "User Name:",
                             "Password:", "GPRS DNS 1:", "GPRS DNS 2:"})
        calls +=
            std::string("enable ") + edit + ' ' + on + "; read only " + edit + ' ' + off + "; ";
    for (const char* other :
         {"Quality of service Policy:", "GPRS Timeout:", "Additional settings:", "YSeparator"})
        calls += std::string("enable ") + other + ' ' + on + "; ";
    return calls;
}

const char* const loaded =
    "read Old; text GPRS APN: \"internet\"; text User Name: \"ann\"; text Password: \"secret\"; "
    "current GPRS "
    "Timeout: 4; current Quality of service Policy: 1; text GPRS DNS 1: \"10.1.2.3\"; text GPRS "
    "DNS "
    "2: \"10.1.2.4\"; text Proxy 1: \"proxy.one\"; text Port 1: \"8080\"; text Domain 1: "
    "\"one.example\"; text CSD Number: \"+49123\"; ";

TEST_F(Parts, OfANewProfileAreMadeInTheirOrderWithTheToolkitsValues)
{
    EXPECT_EQ(head(anyName, "Connection Setup", "Profile1") + page1Rows + page2 +
                  keys("Cancel Profile") + preferenceConnection + shown,
              callsOfOpening(createProfilebyUser));
}

TEST_F(Parts, OfACopyAreFilledBehindBothPages)
{
    napi.profiles["Old"] = filledRecord(0x400);
    name = "Old";
    EXPECT_EQ("valid Old; " + head(anyName, "New Connection", "Profile1") + page1Rows + page2 +
                  loaded + "current Connection Preference:* 2; " + keys("Cancel Profile") +
                  preferenceConnection + shown,
              callsOfOpening(copyProfilebyUser));
}

TEST_F(Parts, OfAnEditedWifiOnlyProfileAreSwitchedOffInTheirOrder)
{
    napi.profiles["Old"] = filledRecord(0x100);
    name = "Old";
    EXPECT_EQ("valid Old; " + head(givenName, "Old", "Old") + page1Rows + page2 + loaded +
                  "current Connection Preference:* 1; " + switched("no", "yes") +
                  keys("Cancel Edit") + preferenceConnection + shown,
              callsOfOpening(editProfilebyUser));
}

TEST_F(Parts, OfAProfileThatCannotBeReadAreMadeAllTheSame)
{
    napi.profiles["Old"] = filledRecord(0x400);
    napi.readResult = NAPI_ERR_IO;
    name = "Old";
    EXPECT_EQ("valid Old; " + head(givenName, "Old", "Old") + page1Rows + page2 + "read Old; " +
                  keys("Cancel Edit") + preferenceConnection + shown,
              callsOfOpening(editProfilebyUser));
}

TEST_F(Parts, OfTheMenusAreBelowTheScreensCornerAndAboveTheSoftKeys)
{
    toolkitcalls::home = QRect(5, 7, 230, 300);
    toolkitcalls::softKeyBar = QRect(9, 280, 210, 27);
    const std::string calls = callsOfOpening(createProfilebyUser);
    for (const char* page : {"1", "2"}) {
        const std::string menu = std::string("home no; bar; menu of DataConnection_NewWiz") + page +
                                 " 5 7 200 273 none 0 54; ";
        EXPECT_NE(std::string::npos, calls.find(menu)) << menu << calls;
    }
}

TEST_F(Parts, WithoutTheWifiFeatureHaveNoPreference)
{
    setWifi(false);
    napi.profiles["Old"] = filledRecord(0x100);
    name = "Old";
    std::string rows = page1Rows;
    rows.erase(0, rows.find("edit of"));
    EXPECT_EQ("valid Old; " + head(givenName, "Old", "Old") + rows + page2 + loaded +
                  keys("Cancel Edit") + shown,
              callsOfOpening(editProfilebyUser));
}

const std::string offerToSave =
    "key 1 \"Save\" 0; calls 1 DataConnection_NewWiz1 1slotSaveProfile(); ";

TEST_F(Parts, AreSwitchedWithThePreference)
{
    inEdited([] {
        EXPECT_EQ(offerToSave, callsOfChoosing(0));
        EXPECT_EQ(offerToSave, callsOfChoosing(2));
        EXPECT_EQ(switched("no", "yes") + offerToSave, callsOfChoosing(1));
        EXPECT_EQ(switched("no", "yes") + offerToSave, callsOfChoosing(1));
        EXPECT_EQ(switched("yes", "no") + offerToSave, callsOfChoosing(2));
        EXPECT_EQ(offerToSave, callsOfSlot(1, "slotContentChanged"));
    });
}

TEST_F(Parts, OfPageTwoAreFilledBeforeItIsShown)
{
    inEdited([] {
        EXPECT_EQ(callsOfSlot(1, "slotGoToNext"),
                  "text CSD Number: \"+49123\"; text User Name: \"bob\"; text Password: "
                  "\"hidden\"; current Speed(BPS): 3; current Line Type: 1; current CSD Timeout: "
                  "4; text DNS 1: \"192.168.0.1\"; text DNS 2: \"192.168.0.2\"; text Proxy 2: "
                  "\"proxy.two\"; text Port 2: \"3128\"; text Domain 2: \"two.example\"; enable "
                  "Line Type: yes; key 1 \"Cancel\" 0; calls 1 DataConnection_NewWiz2 "
                  "1slotGotoPrevious(); show DataConnection_NewWiz2; ");
        EXPECT_EQ(callsOfSlot(2, "slotLineSpeedChanged"),
                  "enable Line Type: yes; key 1 \"Save\" 0; calls 1 DataConnection_NewWiz2 "
                  "1slotSaveProfile(); ");
        EXPECT_EQ(callsOfSlot(2, "slotContentChanged"),
                  "key 1 \"Save\" 0; calls 1 DataConnection_NewWiz2 1slotSaveProfile(); ");
        EXPECT_EQ(callsOfSlot(2, "slotGotoPrevious"),
                  "focus Profile Name:*; y of Profile Name:*; scroll 0 to the row; show "
                  "DataConnection_NewWiz1; hide DataConnection_NewWiz2; ");
    });
}

TEST_F(Parts, EndWithPageOneHidden)
{
    inEdited(
        [] { EXPECT_EQ(callsOfSlot(1, "slotGotoPrevious"), "hide DataConnection_NewWiz1; "); });
    inEdited([] { EXPECT_EQ(callsOfSlot(2, "slotCancelSetup"), "hide DataConnection_NewWiz1; "); });
}

std::string toRow(const char* label)
{
    return std::string("focus ") + label + "; y of " + label + "; scroll 0 to the row; ";
}

struct MessageRow
{
    const char* name;
    const char* label;
    const char* text;
    std::string question;
    const char* message;
    std::string focus;
};

void PrintTo(const MessageRow& row, std::ostream* out)
{
    *out << row.name;
}

class Message : public Parts, public testing::WithParamInterface<MessageRow>
{};

TEST_P(Message, ComesBeforeTheFocusMoves)
{
    napi.profiles["Taken"] = NetworkProfile();
    inEdited([] {
        const MessageRow& row = GetParam();
        editOf(wizardPage(1), row.label)->setText(row.text);
        editOf(wizardPage(2), "CSD Number:")->setText("");
        toolkitcalls::answersPopups = true;
        EXPECT_EQ(row.question + "message " + row.message + " 2 0 none none yes 0; exec; " +
                      row.focus,
                  callsOfSlot(1, "slotSaveProfile"));
    });
}

const MessageRow messages[] = {
    {"Duplicate", "Profile Name:*", "Taken", "valid Taken; ",
     R"("Duplicate Profile" "You already have a Profile named: Taken. Please choose another name.")",
     ""},
    {"NoName", "Profile Name:*", "", "valid ; ",
     R"("Required Fields" "Please complete the required fields.Required fields are indicated with a *.")",
     toRow("Profile Name:*")},
    {"Dot", "Profile Name:*", ".x", "valid .x; ",
     R"("Invalid Name" "A Profile name cannot start with ".".")", toRow("Profile Name:*")},
    {"NoAccessPoint", "GPRS APN:", "", "",
     R"x("Missing Required Field(s)" "Please enter  a GPRS APN or CSD number.")x",
     toRow("GPRS APN:") + toRow("CSD Number:")},
    {"Dns", "GPRS DNS 2:", "x", "",
     R"("Invalid DNS" "You've entered wrong DNS, only IP address is accepted")",
     toRow("DNS 1:") + toRow("GPRS DNS 1:")},
};
INSTANTIATE_TEST_SUITE_P(Table, Message, testing::ValuesIn(messages),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(Parts, OfTheSuccessAreANoticeAndThePageHidden)
{
    inEdited([] {
        toolkitcalls::answersPopups = true;
        EXPECT_EQ(callsOfSlot(1, "slotSaveProfile"),
                  "notice 0 \"\" \"You have successfully saved the profile named: Old.\" none none "
                  "yes 0; exec; hide DataConnection_NewWiz1; ");
    });
}

TEST_F(Parts, OfAFullStoreAreAMessageAndThePageHidden)
{
    napi.modifyResult = -152;
    inEdited([] {
        editOf(wizardPage(1), "Proxy 1:")->setText("p");
        toolkitcalls::answersPopups = true;
        EXPECT_EQ(
            callsOfSlot(2, "slotSaveProfile"),
            "modify Old; message \"Memory Full\" \"There is insufficient memory to create a new "
            "connection. You may delete some files in order to add a new one.\" 2 0 none none "
            "yes 0; exec; hide DataConnection_NewWiz1; ");
    });
}

TEST_F(Parts, OfAnotherRefusalAreThePageHiddenAlone)
{
    napi.modifyResult = -208;
    inEdited([] {
        editOf(wizardPage(1), "Proxy 1:")->setText("p");
        EXPECT_EQ(callsOfSlot(1, "slotSaveProfile"), "modify Old; hide DataConnection_NewWiz1; ");
    });
}

TEST_F(Parts, OfASwitchedOffRowAreAMessage)
{
    inEdited([] {
        callsOfChoosing(1);
        toolkitcalls::answersPopups = true;
        walkTo(wizardPage(1), "GPRS APN:");
        const auto calls = interposed::callsOf([] { press(Qt::Key_Return); });
        const std::string lines = linesOf(calls);
        EXPECT_NE(std::string::npos,
                  lines.find("message \"WiFi Only\" \"Your connection preference is WiFi only.No "
                             "GPRS or CSD connection is used for this profile.\" 2 0 none none yes "
                             "0; exec; "))
            << lines;
    });
}

} // namespace
