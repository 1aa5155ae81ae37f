// The ports of both pages: what can be typed and pasted, and what is stored of it.

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

namespace {

struct PortRow
{
    const char* name;
    const char* text;
    const char* typed; // what the field shows when the text was typed key by key
    unsigned typedPort;
    const char* pasted; // when it was pasted in one go
    unsigned pastedPort;
};

void PrintTo(const PortRow& row, std::ostream* out)
{
    *out << row.name;
}

class Ports : public Wizard, public testing::WithParamInterface<PortRow>
{
protected:
    void SetUp() override
    {
        Wizard::SetUp();
        setDefaultPreference("2");
        napi.profiles["Old"] = RecordBytes()
                                   .byte(1, 1)
                                   .word(4, 0x400)
                                   .text(8, "a")
                                   .half(860, 9)
                                   .half(1064, 9)
                                   .record();
    }

    // Empties the port's row, has `enter` fill it, and saves.
    void save(int page, const char* label, const std::function<void()>& enter, const char* shown)
    {
        const auto fill = [page, label, enter, shown] {
            walkTo(wizardPage(page), label);
            retype("");
            enter();
            EXPECT_EQ(shown, editOf(wizardPage(page), label)->text().toStdString());
        };
        const Steps open = page == 2 ? Steps(openPage2) : Steps([] {});
        EXPECT_EQ(edit("Old", {open, fill, opening(Wizard::save), dismiss}), 0);
    }

    static void typeIt() { type(GetParam().text); }
    static void paste()
    {
        QGuiApplication::clipboard()->setText(GetParam().text);
        QTest::keyClick(screen()->window()->windowHandle(), Qt::Key_V, Qt::ControlModifier);
    }
};

TEST_P(Ports, AreStoredAsTheyAreTyped)
{
    save(1, "Port 1:", typeIt, GetParam().typed);
    EXPECT_EQ(GetParam().typedPort, RecordBytes(napi.profiles["Old"]).read(860, 2));
    save(2, "Port 2:", typeIt, GetParam().typed);
    EXPECT_EQ(GetParam().typedPort, RecordBytes(napi.profiles["Old"]).read(1064, 2));
}

TEST_P(Ports, AreStoredAsTheyArePasted)
{
    save(1, "Port 1:", paste, GetParam().pasted);
    EXPECT_EQ(GetParam().pastedPort, RecordBytes(napi.profiles["Old"]).read(860, 2));
    save(2, "Port 2:", paste, GetParam().pasted);
    EXPECT_EQ(GetParam().pastedPort, RecordBytes(napi.profiles["Old"]).read(1064, 2));
}

// Digits alone come through, of whatever script, one by one; a text that is too large as a whole is
// refused as one.
const PortRow ports[] = {
    {"Empty", "", "", 0, "", 0},
    {"Zero", "0", "0", 0, "0", 0},
    {"Largest", "65535", "65535", 65535, "65535", 65535},
    {"TooLarge", "65536", "6553", 6553, "", 0},
    {"Negative", "-1", "1", 1, "1", 1},
    {"BlankBefore", " 7", "7", 7, "7", 7},
    {"LeadingZeros", "00080", "00080", 80, "00080", 80},
    {"Letters", "8a0", "80", 80, "80", 80},
    {"DigitsOfAnotherScript", "\xD9\xA7", "\xD9\xA7", 7, "\xD9\xA7", 7},
    {"FarTooLarge", "99999999999999999999", "9999", 9999, "", 0},
};
INSTANTIATE_TEST_SUITE_P(Table, Ports, testing::ValuesIn(ports),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
