// The rows of the wizard while they are switched off.

#include <QApplication>
#include <QKeyEvent>

#include <ycombobox.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>
#include <ypressbutton.h>

#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

namespace {

using recorder::Calls;

const char* const message =
    "WiFi Only|Your connection preference is WiFi only.No GPRS or CSD connection is used for this "
    "profile.";

struct OffRow
{
    const char* name;
    const char* label;
};

void PrintTo(const OffRow& row, std::ostream* out)
{
    *out << row.name;
}

class SwitchedOff : public Wizard, public testing::WithParamInterface<OffRow>
{
protected:
    static YKbMainWidget* page() { return wizardPage(1); }
    static void walk() { walkTo(page(), GetParam().label); }

    int editWifiOnly(const Steps& steps)
    {
        setDefaultPreference("0");
        napi.profiles["Old"] = RecordBytes().word(4, 0x100).text(8, "internet").record();
        return edit("Old", steps);
    }
};

TEST_P(SwitchedOff, SaysWhyOnReturnAndDoesNothingElse)
{
    std::string before;
    editWifiOnly({walk, [&before] { before = rowsOf(page()); },
                  opening([] { press(Qt::Key_Return); }),
                  [] {
                      EXPECT_EQ(message, popupText());
                      press(Qt::Key_Return);
                  },
                  [&before] {
                      EXPECT_EQ(page(), activeLayer());
                      EXPECT_EQ(before, rowsOf(page()));
                      EXPECT_EQ(GetParam().label, focusOf(page()));
                      EXPECT_FALSE(wizardPage(2)->isVisible());
                  },
                  cancel});
}

TEST_P(SwitchedOff, SaysWhyOnEnterAndOncePerKey)
{
    editWifiOnly({walk, opening([] { press(Qt::Key_Enter); }), [] { press(Qt::Key_Return); },
                  opening([] { press(Qt::Key_Enter); }),
                  [] {
                      EXPECT_EQ(message, popupText());
                      press(Qt::Key_Return);
                  },
                  [] { EXPECT_EQ(page(), activeLayer()); }, cancel});
}

TEST_P(SwitchedOff, SaysWhyToTheFinger)
{
    editWifiOnly({walk, opening([] {
                      QWidget* row = page()->focusWidget();
                      tap(row);
                  }),
                  [] {
                      EXPECT_EQ(message, popupText());
                      press(Qt::Key_Return);
                  },
                  cancel});
}

TEST_P(SwitchedOff, IsPassedWithUpAndDown)
{
    editWifiOnly({walk,
                  [] {
                      press(Qt::Key_Down);
                      EXPECT_NE(GetParam().label, focusOf(page()));
                      press(Qt::Key_Up);
                      EXPECT_EQ(GetParam().label, focusOf(page()));
                  },
                  cancel});
}

TEST_P(SwitchedOff, TakesNoText)
{
    std::string before;
    editWifiOnly({walk,
                  [&before] {
                      before = rowsOf(page());
                      type("7");
                      press(Qt::Key_Backspace);
                      EXPECT_EQ(before, rowsOf(page()));
                      EXPECT_EQ(rightKeyOf(page()), "Cancel");
                  },
                  cancel});
}

const OffRow offRows[] = {
    {"Proxy1", "Proxy 1:"},
    {"Port1", "Port 1:"},
    {"Domain1", "Domain 1:"},
    {"Apn", "GPRS APN:"},
    {"UserName", "User Name:"},
    {"Password", "Password:"},
    {"Dns1", "GPRS DNS 1:"},
    {"Dns2", "GPRS DNS 2:"},
    {"Policy", "Quality of service Policy:"},
    {"Timeout", "GPRS Timeout:"},
    {"Button", "Additional settings:"},
};
INSTANTIATE_TEST_SUITE_P(Rows, SwitchedOff, testing::ValuesIn(offRows),
                         [](const auto& test) { return std::string(test.param.name); });

class SwitchedOn : public Wizard, public testing::WithParamInterface<int>
{
protected:
    static Qt::Key key() { return Qt::Key(GetParam()); }
};

TEST_P(SwitchedOn, AChoiceOpensItsList)
{
    setDefaultPreference("0");
    create({[] { walkTo(wizardPage(1), "GPRS Timeout:"); }, opening([] { press(key()); }),
            [] {
                EXPECT_EQ(popupText(), "GPRS Timeout:|");
                press(Qt::Key_Escape);
            },
            cancel});
}

TEST_P(SwitchedOn, TheButtonOpensPageTwo)
{
    setDefaultPreference("0");
    create({[] { walkTo(wizardPage(1), "Additional settings:"); }, [] { press(key()); },
            [] {
                EXPECT_EQ(wizardPage(2), activeLayer());
                wizardPage(1)->hide();
            }});
}

INSTANTIATE_TEST_SUITE_P(Keys, SwitchedOn, testing::Values(Qt::Key_Return, Qt::Key_Enter),
                         [](const auto& test) {
                             return test.param == Qt::Key_Return ? "Return" : "Enter";
                         });

class Button : public Wizard
{};

TEST_F(Button, LogsEveryKeyWhileItIsSwitchedOff)
{
    setDefaultPreference("0");
    napi.profiles["Old"] = RecordBytes().word(4, 0x100).record();
    edit("Old", {[] {
                     walkTo(wizardPage(1), "Additional settings:");
                     take();
                     type("x");
                     EXPECT_EQ(Calls{"log: click the exibition button\n"}, take());
                 },
                 opening([] { press(Qt::Key_Return); }),
                 [] {
                     EXPECT_EQ(message, popupText());
                     EXPECT_EQ(Calls{"log: click the exibition button\n"}, take());
                     press(Qt::Key_Return);
                 },
                 cancel});
}

TEST_F(Button, LogsEveryKey)
{
    setDefaultPreference("0");
    create({[] {
                walkTo(wizardPage(1), "Additional settings:");
                take();
                type("x");
                type("y");
                EXPECT_EQ(Calls{"log: click the exibition button\nclick the exibition button\n"},
                          take());
            },
            cancel});
}

} // namespace
