// Codes that the form knows and codes that it does not, opened and saved through the pages.

#include <array>
#include <sstream>
#include <string>

#include <ycombobox.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

namespace {

RecordBytes storedRecord()
{
    return RecordBytes().byte(1, 1).word(4, 0x400).text(8, "a");
}

class Codes : public Wizard
{
protected:
    void SetUp() override
    {
        Wizard::SetUp();
        setDefaultPreference("2");
    }

    // Has the right key of a page offer to save, though nothing is changed.
    static void touch(int page, const char* label)
    {
        walkTo(wizardPage(page), label);
        press(Qt::Key_End);
        type("1");
        press(Qt::Key_Backspace);
    }

    // The rows of page 1 that are not switched off, by label.
    static std::string rowsThatAreOn()
    {
        std::istringstream rows(rowsOf(wizardPage(1)));
        std::string labels;
        for (std::string row; std::getline(rows, row);) {
            const std::size_t label = row.find(' ') + 1;
            if (row.find(" off", label) == std::string::npos)
                labels += row.substr(label, row.find('"') - label - 1) + "|";
        }
        return labels;
    }

    // What becomes of a record that is opened and saved from page 1, or from page 2.
    RecordBytes saved(const RecordBytes& record, int page, const std::function<void()>& look)
    {
        napi.profiles["Old"] = record.record();
        const Steps toPage = page == 2 ? Steps(openPage2) : Steps([] {});
        const char* label = page == 2 ? "Domain 2:" : "Profile Name:*";
        EXPECT_EQ(edit("Old", {look, toPage, [page, label] { touch(page, label); }, opening(save),
                               dismiss}),
                  0);
        return RecordBytes(napi.profiles["Old"]);
    }
};

struct PreferenceRow
{
    unsigned code;
    int item;
    unsigned stored;
};

// The default preference of these is "Cellular Only".
const PreferenceRow preferences[] = {
    {0x000, 2, 0x400}, {0x100, 1, 0x100}, {0x200, 0, 0x200}, {0x300, 2, 0x400},
    {0x400, 2, 0x400}, {0x500, 2, 0x400}, {0x600, 2, 0x400}, {0x700, 2, 0x400},
    {0x800, 2, 0x400}, {0x900, 2, 0x400}, {0xA00, 2, 0x400}, {0xB00, 2, 0x400},
    {0xC00, 2, 0x400}, {0xD00, 2, 0x400}, {0xE00, 2, 0x400}, {0xF00, 2, 0x400},
};

TEST_F(Codes, OfThePreferenceAreShownAndStoredWithTheOtherBitsKept)
{
    for (const PreferenceRow& row : preferences) {
        SCOPED_TRACE(row.code);
        for (unsigned others : {0u, 0xA5A5A05Au, 0xFFFFF0FFu}) {
            const RecordBytes before = storedRecord().word(4, others | row.code);
            const RecordBytes after = saved(before, 1, [&row] {
                EXPECT_EQ(row.item,
                          comboOf(wizardPage(1), "Connection Preference:*")->currentItem());
                EXPECT_EQ(row.item != 1, editOf(wizardPage(1), "GPRS APN:")->isYEnabled());
            });
            EXPECT_EQ(after.difference(storedRecord().word(4, others | row.stored)), "the same");
        }
    }
}

TEST_F(Codes, OfThePreferenceAreCellularOnlyWithoutTheWifiFeature)
{
    setWifi(false);
    for (const PreferenceRow& row : preferences) {
        const RecordBytes before = storedRecord().word(4, 0xA5A5A05A | row.code);
        const RecordBytes after = saved(before, 1, [] {
            EXPECT_FALSE(comboOf(wizardPage(1), "Connection Preference:*"));
            EXPECT_TRUE(editOf(wizardPage(1), "GPRS APN:")->isYEnabled());
        });
        EXPECT_EQ(after.difference(storedRecord().word(4, 0xA5A5A45A)), "the same") << row.code;
    }
}

TEST_F(Codes, OfAChosenPreferenceReplaceFourBits)
{
    const unsigned codes[] = {0xA5A5A25A, 0xA5A5A15A, 0xA5A5A45A};
    for (int item : {0, 1, 2}) {
        napi.profiles["Old"] = storedRecord().word(4, 0xA5A5AF5A).record();
        EXPECT_EQ(edit("Old", {chooseByKeys(1, "Connection Preference:*", item),
                               [] { touch(1, "Profile Name:*"); }, opening(save), dismiss}),
                  0);
        EXPECT_EQ(codes[item], napi.profiles["Old"].flags);
    }
}

TEST_F(Codes, OfWifiOnlySwitchTheRowsOfACopyOffToo)
{
    napi.profiles["Source"] = storedRecord().word(4, 0xA5A5A15A).record();
    EXPECT_EQ(copy("Source", {[] {
                                  EXPECT_EQ(rowsThatAreOn(),
                                            "Profile Name:*|Connection Preference:*|");
                                  EXPECT_TRUE(editOf(wizardPage(1), "Domain 1:")->isReadOnly());
                                  EXPECT_EQ(rightKeyOf(wizardPage(1)), "Cancel");
                                  touch(1, "Profile Name:*");
                              },
                              opening(save), dismiss}),
              0);
    EXPECT_EQ(RecordBytes(napi.written).difference(RecordBytes(napi.profiles["Source"])),
              "the same");
}

// A field of the record with a code that its row knows and one that it does not.
struct CodedField
{
    int page;
    const char* label;
    std::size_t offset;
    std::size_t width;
    unsigned known;
    int item;
    unsigned unknown;
    int itemOfUnknown;
    unsigned storedOfUnknown;
};

const std::array<CodedField, 5> fields = {{
    {1, "GPRS Timeout:", 320, 2, 1440, 5, 1441, 0, 0},
    {2, "CSD Timeout:", 568, 2, 15, 3, 16, 0, 0},
    {2, "Speed(BPS):", 571, 1, 71, 2, 72, 0, 0},
    {1, "Quality of service Policy:", 380, 1, 1, 1, 2, 0, 0},
    {1, "Connection Preference:*", 4, 4, 0xA5A5A25A, 0, 0xA5A5A65A, 2, 0xA5A5A45A},
}};

void put(RecordBytes& bytes, const CodedField& field, unsigned value)
{
    for (std::size_t i = 0; i < field.width; ++i)
        bytes.byte(field.offset + i, value >> (8 * i) & 255);
}

TEST_F(Codes, KnownAndUnknownInEveryCombinationDoNotTouchEachOther)
{
    for (unsigned mask = 0; mask < 32; ++mask) {
        SCOPED_TRACE("unknown: " + std::to_string(mask));
        RecordBytes before = storedRecord();
        RecordBytes expected[3] = {before, before, before};
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const CodedField& field = fields[i];
            const bool isKnown = !(mask >> i & 1);
            const unsigned code = isKnown ? field.known : field.unknown;
            put(before, field, code);
            put(expected[2], field, isKnown ? code : field.storedOfUnknown);
            put(expected[1], field, isKnown || field.page == 2 ? code : field.storedOfUnknown);
        }
        for (int page : {1, 2}) {
            const RecordBytes after = saved(before, page, [mask] {
                for (std::size_t i = 0; i < fields.size(); ++i) {
                    const CodedField& field = fields[i];
                    if (field.page == 1) {
                        EXPECT_EQ(mask >> i & 1 ? field.itemOfUnknown : field.item,
                                  comboOf(wizardPage(1), field.label)->currentItem())
                            << field.label;
                    }
                }
            });
            EXPECT_EQ(after.difference(expected[page]), "the same") << "page " << page;
        }
    }
}

TEST_F(Codes, OfAnUnknownSpeedKeepWhatWasChosenOnAnEarlierVisit)
{
    napi.profiles["Old"] = storedRecord().byte(571, 5).record();
    const auto expectChoices = [] {
        EXPECT_EQ(comboOf(wizardPage(2), "Speed(BPS):")->currentItem(), 3);
        EXPECT_EQ(comboOf(wizardPage(2), "Line Type:")->currentItem(), 1);
        EXPECT_TRUE(comboOf(wizardPage(2), "Line Type:")->isYEnabled());
        EXPECT_EQ(comboOf(wizardPage(2), "CSD Timeout:")->currentItem(), 0);
    };
    EXPECT_EQ(edit("Old", {openPage2, chooseByKeys(2, "Speed(BPS):", 3),
                           chooseByKeys(2, "Line Type:", 1), chooseByKeys(2, "CSD Timeout:", 2),
                           [] { press(Qt::Key_F1); }, dismiss, openPage2, expectChoices,
                           [] { EXPECT_EQ(rightKeyOf(wizardPage(2)), "Cancel"); },
                           [] { touch(2, "Domain 2:"); }, opening(save), dismiss}),
              0);
    EXPECT_EQ(RecordBytes(napi.profiles["Old"]).difference(storedRecord().byte(571, 70)),
              "the same");
}

} // namespace
