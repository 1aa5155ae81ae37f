// Saving a form with a fault: one message, the focus on the field at fault, and the wizard stays.

#include <ycombobox.h>
#include <yformcontainer.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

namespace {

using recorder::Calls;

struct FaultRow
{
    const char* name;
    const char* label; // the row of page 1 that is typed into
    const char* text;
    const char* apn;
    const char* message;
    const char* focus;      // on page 1 afterwards
    const char* page2Focus; // on page 2 afterwards; "" when it is not moved there
};

void PrintTo(const FaultRow& row, std::ostream* out)
{
    *out << row.name;
}

const char* const wrongDns = "Invalid DNS|You've entered wrong DNS, only IP address is accepted";

const FaultRow faults[] = {
    {"Duplicate", "Profile Name:*", " Taken ", "a",
     "Duplicate Profile|You already have a Profile named:  Taken . Please choose another name.",
     "Profile Name:*", ""},
    {"EmptyName", "Profile Name:*", "", "a",
     "Required Fields|Please complete the required fields.Required fields are indicated with a *.",
     "Profile Name:*", ""},
    {"BlankName", "Profile Name:*", "   ", "a",
     "Required Fields|Please complete the required fields.Required fields are indicated with a *.",
     "Profile Name:*", ""},
    {"DottedName", "Profile Name:*", " .x", "a",
     "Invalid Name|A Profile name cannot start with \".\".", "Profile Name:*", ""},
    {"NoApn", "Proxy 1:", "p", "",
     "Missing Required Field(s)|Please enter  a GPRS APN or CSD number.",
     "GPRS APN:", "CSD Number:"},
    {"Dns1", "GPRS DNS 1:", "1.2.3", "a", wrongDns, "GPRS DNS 1:", "DNS 1:"},
    {"Dns2", "GPRS DNS 2:", "x", "a", wrongDns, "GPRS DNS 1:", "DNS 1:"},
};

class Fault : public Wizard, public testing::WithParamInterface<FaultRow>
{
protected:
    static YKbMainWidget* page() { return wizardPage(1); }
};

TEST_P(Fault, IsToldAndTheFocusGoesToItsField)
{
    setDefaultPreference("0");
    napi.profiles["Taken"] = NetworkProfile();
    EXPECT_EQ(create({[] {
                          walkTo(page(), "GPRS APN:");
                          retype(GetParam().apn);
                          walkTo(page(), GetParam().label);
                          retype("#");
                          retype(GetParam().text);
                          take();
                      },
                      opening(save),
                      [] {
                          EXPECT_EQ(GetParam().message, popupText());
                          press(Qt::Key_Return);
                      },
                      [] {
                          EXPECT_EQ(page(), activeLayer());
                          EXPECT_EQ(GetParam().focus, focusOf(page()));
                          EXPECT_EQ(GetParam().page2Focus, focusOf(wizardPage(2)));
                          EXPECT_EQ(take().size(), 1u) << "nothing but the name is asked for";
                          press(Qt::Key_F1);
                      },
                      [] { press(Qt::Key_Return); }}),
              1);
    EXPECT_EQ(napi.profiles.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Table, Fault, testing::ValuesIn(faults),
                         [](const auto& test) { return std::string(test.param.name); });

class FaultOnPage : public Wizard
{};

TEST_F(FaultOnPage, BringsItsRowToTheTopOfTheForm)
{
    create({[] { type("1"); }, opening(save), dismiss,
            [] {
                YFormContainer* form = formOf(wizardPage(1));
                const int top = form->childY(editOf(wizardPage(1), "GPRS APN:"));
                EXPECT_GT(top, 0);
                EXPECT_EQ(top, form->contentsY());
                EXPECT_EQ(focusOf(wizardPage(1)), "GPRS APN:");
                wizardPage(1)->hide();
            }});
}

TEST_F(FaultOnPage, TwoKeepsTheFocusOfPageTwo)
{
    create({openPage2,
            [] {
                walkTo(wizardPage(2), "DNS 2:");
                type("x");
                walkTo(wizardPage(2), "CSD Number:");
                type("1");
                walkTo(wizardPage(2), "DNS 2:");
            },
            opening(save),
            [] {
                EXPECT_EQ(wrongDns, popupText());
                press(Qt::Key_Return);
            },
            [] {
                EXPECT_EQ(wizardPage(2), activeLayer());
                EXPECT_EQ(focusOf(wizardPage(2)), "DNS 1:");
                wizardPage(1)->hide();
            }});
}

TEST_F(FaultOnPage, IsNotLookedForWhereOnlyWifiIsWanted)
{
    EXPECT_EQ(create({[] {
                          walkTo(wizardPage(1), "GPRS DNS 1:");
                          type("x");
                      },
                      chooseByKeys(1, "Connection Preference:*", 1), opening(save), dismiss}),
              0);
    EXPECT_EQ(napi.profiles.count("Profile1"), 1u);
    EXPECT_EQ(napi.written.flags, 0x100u);
}

TEST_F(FaultOnPage, ANumberToDialOfTheStoredProfileIsEnough)
{
    setDefaultPreference("0");
    napi.profiles["Old"] = RecordBytes().byte(1, 1).word(4, 0x400).text(381, "123").record();
    EXPECT_EQ(edit("Old", {[] {
                               walkTo(wizardPage(1), "Proxy 1:");
                               type("p");
                           },
                           opening(save), dismiss}),
              0);
    EXPECT_EQ(
        RecordBytes(napi.written).difference(RecordBytes(napi.profiles["Old"]).text(760, "p")),
        "the same");
}

struct DnsRow
{
    const char* name;
    const char* text;
    bool isTaken;
    unsigned number;
};

void PrintTo(const DnsRow& row, std::ostream* out)
{
    *out << row.name;
}

class Dns : public Wizard, public testing::WithParamInterface<DnsRow>
{
protected:
    // Types the text into a row of a page and saves. Result: that of the wizard, which is closed
    // where the text is refused.
    int enter(int page, const char* label)
    {
        setDefaultPreference("2");
        const Steps open = page == 2 ? Steps(openPage2) : Steps([] {});
        return create({[] {
                           walkTo(wizardPage(1), "GPRS APN:");
                           type("a");
                       },
                       open,
                       [page, label] {
                           walkTo(wizardPage(page), label);
                           retype("#");
                           retype(GetParam().text);
                       },
                       opening(save),
                       [] {
                           EXPECT_EQ(GetParam().isTaken, popupText()[0] == '|') << popupText();
                           if (!GetParam().isTaken) {
                               EXPECT_EQ(wrongDns, popupText());
                           }
                           press(Qt::Key_Return);
                       },
                       [] {
                           if (wizardPage(1))
                               wizardPage(1)->hide();
                       }});
    }
};

TEST_P(Dns, OfPageOneIsStoredAsItIsChecked)
{
    napi.written.gprsDns2 = 7;
    EXPECT_EQ(GetParam().isTaken ? 0 : 2, enter(1, "GPRS DNS 2:"));
    EXPECT_EQ(GetParam().number, RecordBytes(napi.written).read(316, 4));
}

TEST_P(Dns, OfPageTwoIsStoredAsItIsChecked)
{
    napi.written.csdDns1 = 7;
    EXPECT_EQ(GetParam().isTaken ? 0 : 2, enter(2, "DNS 1:"));
    EXPECT_EQ(GetParam().number, RecordBytes(napi.written).read(560, 4));
}

// Where it is refused, nothing is written, and the 7 from before stays.
const DnsRow dnsTexts[] = {
    {"Empty", "", true, 0},
    {"Plain", "192.168.0.1", true, 0xC0A80001},
    {"Ones", "255.255.255.255", true, 0xFFFFFFFF},
    {"LeadingZeroIsDecimal", "010.2.3.4", true, 0x0A020304},
    {"BlanksAround", " 1.2.3.4 ", true, 0x01020304},
    {"EmptyPartsAreSkipped", "1..2.3.4", true, 0x01020304},
    {"OneBlank", " ", false, 7},
    {"PartTooLarge", "1.2.3.256", false, 7},
    {"ThreeParts", "1.2.3", false, 7},
    {"FiveParts", "1.2.3.4.5", false, 7},
    {"OneNumber", "16909060", false, 7},
    {"Name", "dns.example", false, 7},
    {"Ipv6", "::1", false, 7},
    {"Negative", "1.2.3.-4", false, 7},
};
INSTANTIATE_TEST_SUITE_P(Table, Dns, testing::ValuesIn(dnsTexts),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
