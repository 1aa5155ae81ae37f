// Records of every kind through the form and back, without widgets.

#include <set>
#include <string>

#include "profiles/recorder.h"
#include "support/text.h"
#include "wizard/form/array_form.h"
#include "wizard/form/recordmapping.h"
#include "wizard/world/record_bytes.h"
#include "wizard/world/record_generator.h"

namespace {

struct Region
{
    std::size_t offset;
    std::size_t width;
    wizard::Text field;
};

using wizard::Text;

const Region page1Texts[] = {
    {8, 100, Text::GprsApn},  {108, 100, Text::GprsUserName}, {208, 100, Text::GprsPassword},
    {760, 100, Text::Proxy1}, {862, 100, Text::Domain1},
};
const Region page2Texts[] = {
    {381, 44, Text::CsdNumber}, {425, 64, Text::CsdUserName}, {489, 64, Text::CsdPassword},
    {963, 100, Text::Proxy2},   {1066, 100, Text::Domain2},
};

// The text of a field as it is stored again: what the form showed, with NULs behind it.
std::string storedText(const QString& shown, std::size_t width)
{
    std::string bytes = support::utf8(shown);
    bytes.resize(width, '\0');
    return bytes;
}

// The text that the form has to show: the field's own bytes where they are UTF-8.
void expectShown(const RecordBytes& record, const Region& region, const ArrayForm& form)
{
    const std::string field = record.part(region.offset, region.width);
    const std::string bytes = field.substr(0, field.find('\0'));
    const std::string shown = support::utf8(form.text(region.field));
    if (shown.find("\xEF\xBF\xBD") == std::string::npos) {
        EXPECT_EQ(bytes, shown) << "offset " << region.offset;
    }
}

unsigned knownOr0(std::set<unsigned> known, unsigned value)
{
    return known.count(value) ? value : 0;
}

void expectPage1(RecordBytes& expected, const ArrayForm& form)
{
    for (const Region& region : page1Texts) {
        expectShown(expected, region, form);
        expected.text(region.offset, storedText(form.text(region.field), region.width));
    }
    expected.half(320, knownOr0({15, 60, 120, 360, 1440}, expected.read(320, 2)));
}

void expectPage2(RecordBytes& expected, const ArrayForm& form)
{
    for (const Region& region : page2Texts) {
        expectShown(expected, region, form);
        expected.text(region.offset, storedText(form.text(region.field), region.width));
    }
    expected.half(568, knownOr0({1, 5, 15, 30, 60}, expected.read(568, 2)));
    expected.byte(571, knownOr0({14, 7, 6, 4, 75, 71, 70, 68}, expected.read(571, 1)));
}

class RoundTrip : public recorder::Recording
{
protected:
    // Runs `check` over many records.
    template <typename Check> void forEachRecord(Check check)
    {
        const unsigned first = firstSeed();
        for (unsigned seed = first; seed != first + 2000 && !HasFailure(); ++seed) {
            SCOPED_TRACE("VORN_SEED=" + std::to_string(seed));
            check(RecordGenerator(seed).record());
            recorder::calls().clear();
        }
    }
};

TEST_F(RoundTrip, WithoutPageTwoChangesWhatPageOneShowsAndNothingElse)
{
    forEachRecord([](const RecordBytes& before) {
        ArrayForm form;
        NetworkProfile record = before.record();
        wizard::fillPage1(record, form);
        wizard::storePage1(form, &record);
        RecordBytes expected = before;
        expectPage1(expected, form);
        EXPECT_EQ(RecordBytes(record).difference(expected), "the same");
    });
}

TEST_F(RoundTrip, WithBothPagesKeepsEveryByteThatTheFormDoesNotShow)
{
    forEachRecord([](const RecordBytes& before) {
        ArrayForm form;
        NetworkProfile record = before.record();
        wizard::fillPage1(record, form);
        wizard::fillPage2(record, form);
        wizard::storePage1(form, &record);
        wizard::storePage2(form, &record);
        RecordBytes expected = before;
        expectPage1(expected, form);
        expectPage2(expected, form);
        EXPECT_EQ(RecordBytes(record).difference(expected), "the same");
    });
}

TEST_F(RoundTrip, ASecondTripChangesNothingMoreUnlessATextWasCut)
{
    forEachRecord([](const RecordBytes& before) {
        NetworkProfile record = before.record();
        for (int trip = 0; trip < 4; ++trip) {
            ArrayForm form;
            const NetworkProfile last = record;
            wizard::fillPage1(record, form);
            wizard::fillPage2(record, form);
            wizard::storePage1(form, &record);
            wizard::storePage2(form, &record);
            // A replacement character that is cut at the end of its field is replaced once more.
            if (trip == 3) {
                EXPECT_EQ(RecordBytes(record).difference(RecordBytes(last)), "the same");
            }
        }
    });
}

} // namespace
