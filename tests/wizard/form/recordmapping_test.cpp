// From a record to the form and back, field by field.

#include <cstring>
#include <string>

#include "profiles/recorder.h"
#include "support/text.h"
#include "wizard/form/array_form.h"
#include "wizard/form/recordmapping.h"
#include "wizard/world/record_bytes.h"

namespace {

using recorder::Calls;
using wizard::Choice;
using wizard::Text;

// A distinct value in each field, at the offsets of the stored format.
RecordBytes filledRecord()
{
    RecordBytes bytes;
    bytes.fill(0, 1168, 0xE7).word(4, 0xA5A5A25A);
    for (std::size_t offset : {8, 108, 208, 760, 862, 963, 1066})
        bytes.fill(offset, 100, 0);
    bytes.fill(381, 44, 0).fill(425, 64, 0).fill(489, 64, 0);
    bytes.text(8, "internet").text(108, "ann").text(208, "secret").word(312, 0x0A010203);
    bytes.word(316, 0x0A010204).half(320, 120).byte(380, 1);
    bytes.text(381, "+4912345").text(425, "bob").text(489, "hidden").word(560, 0xC0A80001);
    bytes.word(564, 0xC0A80002).half(568, 30).byte(571, 70);
    bytes.text(760, "proxy.one").half(860, 8080).text(862, "one.example");
    bytes.text(963, "proxy.two").half(1064, 3128).text(1066, "two.example");
    return bytes;
}

class Mapping : public recorder::Recording
{
protected:
    std::string text(Text field) const { return support::utf8(form.text(field)); }

    ArrayForm form;
};

TEST_F(Mapping, FillsPageOneAndTheNumberToDial)
{
    wizard::fillPage1(filledRecord().record(), form);
    EXPECT_EQ(text(Text::GprsApn), "internet");
    EXPECT_EQ(text(Text::GprsUserName), "ann");
    EXPECT_EQ(text(Text::GprsPassword), "secret");
    EXPECT_EQ(text(Text::GprsDns1), "10.1.2.3");
    EXPECT_EQ(text(Text::GprsDns2), "10.1.2.4");
    EXPECT_EQ(form.choice(Choice::GprsTimeout), 3);
    EXPECT_EQ(form.choice(Choice::QosPolicy), 1);
    EXPECT_EQ(text(Text::Proxy1), "proxy.one");
    EXPECT_EQ(text(Text::Port1), "8080");
    EXPECT_EQ(text(Text::Domain1), "one.example");
    EXPECT_EQ(text(Text::CsdNumber), "+4912345");
    EXPECT_EQ(text(Text::CsdUserName), "");
    EXPECT_EQ(text(Text::ProfileName), "");
    EXPECT_EQ(Calls(), recorder::calls());
}

TEST_F(Mapping, FillsPageTwo)
{
    wizard::fillPage2(filledRecord().record(), form);
    EXPECT_EQ(text(Text::CsdNumber), "+4912345");
    EXPECT_EQ(text(Text::CsdUserName), "bob");
    EXPECT_EQ(text(Text::CsdPassword), "hidden");
    EXPECT_EQ(text(Text::CsdDns1), "192.168.0.1");
    EXPECT_EQ(text(Text::CsdDns2), "192.168.0.2");
    EXPECT_EQ(form.choice(Choice::CsdSpeed), 3);
    EXPECT_EQ(form.choice(Choice::LineType), 1);
    EXPECT_EQ(form.choice(Choice::CsdTimeout), 4);
    EXPECT_EQ(text(Text::Proxy2), "proxy.two");
    EXPECT_EQ(text(Text::Port2), "3128");
    EXPECT_EQ(text(Text::Domain2), "two.example");
    EXPECT_EQ(text(Text::GprsApn), "");
    EXPECT_EQ(Calls(), recorder::calls());
}

TEST_F(Mapping, BothPagesStoredGiveTheRecordBack)
{
    const RecordBytes before = filledRecord();
    NetworkProfile record = before.record();
    wizard::fillPage1(record, form);
    wizard::fillPage2(record, form);
    wizard::storePage1(form, &record);
    wizard::storePage2(form, &record);
    EXPECT_EQ(RecordBytes(record).difference(before), "the same");
}

TEST_F(Mapping, EachNumberIsStoredOverAnother)
{
    const RecordBytes wanted = filledRecord();
    wizard::fillPage1(wanted.record(), form);
    wizard::fillPage2(wanted.record(), form);
    RecordBytes other = wanted;
    other.word(312, 1).word(316, 1).half(320, 0).byte(380, 0).half(860, 1);
    other.word(560, 1).word(564, 1).half(568, 0).byte(571, 0).half(1064, 1);
    NetworkProfile record = other.record();
    wizard::storePage1(form, &record);
    wizard::storePage2(form, &record);
    EXPECT_EQ(RecordBytes(record).difference(wanted), "the same");
}

TEST_F(Mapping, APortOfZeroIsShownAsZero)
{
    wizard::fillPage1(NetworkProfile(), form);
    wizard::fillPage2(NetworkProfile(), form);
    EXPECT_EQ(text(Text::Port1), "0");
    EXPECT_EQ(text(Text::Port2), "0");
}

TEST_F(Mapping, AnAddressOfZeroLeavesItsFieldAsItWas)
{
    for (Text field : {Text::GprsDns1, Text::GprsDns2, Text::CsdDns1, Text::CsdDns2})
        form.setText(field, "9.9.9.9");
    wizard::fillPage1(NetworkProfile(), form);
    wizard::fillPage2(NetworkProfile(), form);
    for (Text field : {Text::GprsDns1, Text::GprsDns2, Text::CsdDns1, Text::CsdDns2})
        EXPECT_EQ(text(field), "9.9.9.9");
}

TEST_F(Mapping, AnUnknownSpeedIsLoggedAndLeavesBothChoices)
{
    NetworkProfile record = {};
    record.csdSpeed = 5;
    form.setChoice(Choice::CsdSpeed, 2);
    form.setChoice(Choice::LineType, 1);
    wizard::fillPage2(record, form);
    EXPECT_EQ(form.choice(Choice::CsdSpeed), 2);
    EXPECT_EQ(form.choice(Choice::LineType), 1);
    EXPECT_EQ(Calls{"log: unknown csd speed value for +CBST command\n"}, recorder::calls());
}

TEST_F(Mapping, ASpeedThatCannotBeStoredIsLoggedAndLeavesItsField)
{
    NetworkProfile record = {};
    record.csdSpeed = 71;
    form.setChoice(Choice::CsdSpeed, 5);
    form.setChoice(Choice::LineType, 1);
    wizard::storePage2(form, &record);
    form.setChoice(Choice::CsdSpeed, -1);
    wizard::storePage2(form, &record);
    form.setChoice(Choice::CsdSpeed, 1);
    form.setChoice(Choice::LineType, 2);
    wizard::storePage2(form, &record);
    EXPECT_EQ(record.csdSpeed, 71);
    std::string logged;
    for (const std::string& call : recorder::calls())
        logged += call.substr(call.find(' ') + 1);
    EXPECT_EQ(logged, "Invalid csdSpeed value.(lineType:1,baudRate:5)"
                      "Invalid csdSpeed value.(lineType:1,baudRate:-1)"
                      "Invalid csdSpeed value.(lineType:2,baudRate:1)");
}

TEST_F(Mapping, AnUnknownTimeoutIsOffAndStoredAsZero)
{
    NetworkProfile record = {};
    record.gprsTimeout = 30;
    record.csdTimeout = 120;
    form.setChoice(Choice::GprsTimeout, 4);
    form.setChoice(Choice::CsdTimeout, 4);
    wizard::fillPage1(record, form);
    wizard::fillPage2(record, form);
    EXPECT_EQ(form.choice(Choice::GprsTimeout), 0);
    EXPECT_EQ(form.choice(Choice::CsdTimeout), 0);
    wizard::storePage1(form, &record);
    wizard::storePage2(form, &record);
    EXPECT_EQ(record.gprsTimeout, 0);
    EXPECT_EQ(record.csdTimeout, 0);
}

TEST_F(Mapping, ATimeoutItemBeyondTheTableLeavesItsField)
{
    NetworkProfile record = {};
    record.gprsTimeout = 33;
    record.csdTimeout = 44;
    form.setChoice(Choice::GprsTimeout, 6);
    form.setChoice(Choice::CsdTimeout, -1);
    wizard::storePage1(form, &record);
    wizard::storePage2(form, &record);
    EXPECT_EQ(record.gprsTimeout, 33);
    EXPECT_EQ(record.csdTimeout, 44);
}

TEST_F(Mapping, AnAddressThatCannotBeReadIsLoggedAndLeavesItsField)
{
    NetworkProfile record = {};
    record.gprsDns1 = 0x01010101;
    record.gprsDns2 = 0x02020202;
    record.csdDns1 = 0x03030303;
    record.csdDns2 = 0x04040404;
    form.setText(Text::GprsDns1, "dns");
    form.setText(Text::CsdDns2, "1.2.3");
    wizard::storePage1(form, &record);
    wizard::storePage2(form, &record);
    EXPECT_EQ(record.gprsDns1, 0x01010101u);
    EXPECT_EQ(record.gprsDns2, 0u);
    EXPECT_EQ(record.csdDns1, 0u);
    EXPECT_EQ(record.csdDns2, 0x04040404u);
    EXPECT_EQ((Calls{"log: Wrong IP address\n", "log: Wrong IP address\n"}), recorder::calls());
}

TEST_F(Mapping, TextsAreCutAtTheWidthOfTheirFields)
{
    NetworkProfile record = {};
    for (int field = 0; field < wizard::textCount; ++field)
        form.setText(Text(field), QString("x").repeated(200));
    wizard::storePage1(form, &record);
    wizard::storePage2(form, &record);
    RecordBytes expected;
    for (std::size_t offset : {8, 108, 208, 760, 862, 963, 1066})
        expected.fill(offset, 100, 'x');
    expected.fill(381, 44, 'x').fill(425, 64, 'x').fill(489, 64, 'x');
    EXPECT_EQ(RecordBytes(record).difference(expected), "the same");
}

TEST_F(Mapping, FullFieldsAreReadWithinThemselves)
{
    RecordBytes bytes;
    bytes.fill(8, 100, 'a').fill(108, 100, 'b').fill(208, 100, 'c');
    bytes.fill(381, 44, 'd').fill(425, 64, 'e').fill(489, 64, 'f');
    bytes.fill(760, 100, 'g').fill(862, 100, 'h').fill(963, 100, 'i').fill(1066, 100, 'j');
    const NetworkProfile record = bytes.record();
    wizard::fillPage1(record, form);
    wizard::fillPage2(record, form);
    const std::pair<Text, std::string> expected[] = {
        {Text::GprsApn, std::string(100, 'a')},      {Text::GprsUserName, std::string(100, 'b')},
        {Text::GprsPassword, std::string(100, 'c')}, {Text::CsdNumber, std::string(44, 'd')},
        {Text::CsdUserName, std::string(64, 'e')},   {Text::CsdPassword, std::string(64, 'f')},
        {Text::Proxy1, std::string(100, 'g')},       {Text::Domain1, std::string(100, 'h')},
        {Text::Proxy2, std::string(100, 'i')},       {Text::Domain2, std::string(100, 'j')},
    };
    for (const auto& [field, value] : expected)
        EXPECT_EQ(value, text(field));
}

} // namespace
