// Single fields of the form and of the record.

#include <ostream>
#include <string>

#include "profiles/recorder.h"
#include "support/text.h"
#include "wizard/form/fieldtext.h"

namespace {

using recorder::Calls;

class FieldText : public recorder::Recording
{};

std::string stored(const QString& text, std::size_t width)
{
    std::string field(width + 1, '#');
    wizard::storeText(text, field.data(), width);
    EXPECT_EQ(field[width], '#') << "written past the field";
    return field.substr(0, width);
}

std::string shown(const std::string& field)
{
    return support::utf8(wizard::textOfField(field.data(), field.size()));
}

TEST_F(FieldText, OfAFieldWithANulEndsThere)
{
    EXPECT_EQ(shown(std::string("abc\0def", 7)), "abc");
    EXPECT_EQ(shown(std::string("\0abcdef", 7)), "");
}

TEST_F(FieldText, OfAFullFieldIsReadWithinTheField)
{
    const char memory[] = {'f', 'u', 'l', 'l', 'n', 'e', 'x', 't', '\0'};
    EXPECT_EQ(support::utf8(wizard::textOfField(memory, 4)), "full");
}

TEST_F(FieldText, ShowsEachByteThatIsNoUtf8)
{
    EXPECT_EQ(shown(std::string("a\xFF"
                                "b\0",
                                4)),
              "a\xEF\xBF\xBD"
              "b");
}

TEST_F(FieldText, IsStoredWithNulsBehindIt)
{
    EXPECT_EQ(std::string("abc\0\0\0\0", 7), stored("abc", 7));
    EXPECT_EQ(std::string(7, '\0'), stored("", 7));
    EXPECT_EQ(std::string(7, '\0'), stored(QString(), 7));
}

TEST_F(FieldText, FillsTheFieldWithoutANul)
{
    EXPECT_EQ(stored("abcdefg", 7), "abcdefg");
}

TEST_F(FieldText, IsCutAtTheEndOfTheFieldByBytes)
{
    EXPECT_EQ(stored("abcdefgh", 7), "abcdefg");
    // Three euro signs are nine bytes; the third is cut in two.
    EXPECT_EQ(stored(support::fromUtf8("\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC"), 7),
              "\xE2\x82\xAC\xE2\x82\xAC\xE2");
}

TEST_F(FieldText, EndsAtANulOfItsOwn)
{
    EXPECT_EQ(std::string("ab\0\0\0", 5), stored(support::fromUtf8("ab\0cd", 5), 5));
}

struct AddressRow
{
    const char* name;
    const char* text;
    bool isTaken;
    unsigned number; // what a field that held 7 before holds afterwards
};

void PrintTo(const AddressRow& row, std::ostream* out)
{
    *out << row.name;
}

const AddressRow addressRows[] = {
    {"Empty", "", true, 0},
    {"Plain", "192.168.0.1", true, 0xC0A80001},
    {"FirstPartHighest", "1.2.3.4", true, 0x01020304},
    {"Zeros", "0.0.0.0", true, 0},
    {"Ones", "255.255.255.255", true, 0xFFFFFFFF},
    {"LeadingZeroIsDecimal", "010.2.3.4", true, 0x0A020304},
    {"BlanksAround", " 1.2.3.4 ", true, 0x01020304},
    {"EmptyPartsAreSkipped", "1..2.3.4", true, 0x01020304},
    {"OneBlankIsNoAddress", " ", false, 7},
    {"PartTooLarge", "1.2.3.256", false, 7},
    {"ThreeParts", "1.2.3", false, 7},
    {"FiveParts", "1.2.3.4.5", false, 7},
    {"OneNumber", "16909060", false, 7},
    {"Name", "dns.example", false, 7},
    {"Ipv6", "::1", false, 7},
    {"Comma", "1,2,3,4", false, 7},
    {"Negative", "1.2.3.-4", false, 7},
};

class AddressField : public recorder::Recording, public testing::WithParamInterface<AddressRow>
{};

TEST_P(AddressField, IsCheckedAsItIsStored)
{
    const QString text = support::fromUtf8(GetParam().text);
    unsigned number = 7;
    EXPECT_EQ(GetParam().isTaken, wizard::isAddressOrEmpty(text));
    EXPECT_EQ(Calls(), recorder::calls());
    wizard::storeAddress(text, &number);
    EXPECT_EQ(GetParam().number, number);
    EXPECT_EQ(GetParam().isTaken ? Calls() : Calls{"log: Wrong IP address\n"}, recorder::calls());
}

INSTANTIATE_TEST_SUITE_P(Table, AddressField, testing::ValuesIn(addressRows),
                         [](const auto& test) { return std::string(test.param.name); });

struct PortRow
{
    const char* name;
    const char* text;
    unsigned port;
};

void PrintTo(const PortRow& row, std::ostream* out)
{
    *out << row.name;
}

const PortRow portRows[] = {
    {"Empty", "", 0},         {"Zero", "0", 0},         {"Largest", "65535", 65535},
    {"WrapsTo0", "65536", 0}, {"WrapsTo1", "65537", 1}, {"Negative", "-1", 0},
    {"BlankBefore", " 7", 7}, {"Letters", "80a", 0},    {"LeadingZero", "0080", 80},
};

class PortField : public testing::TestWithParam<PortRow>
{};

TEST_P(PortField, GivesItsLowestSixteenBits)
{
    EXPECT_EQ(GetParam().port, wizard::portOf(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Table, PortField, testing::ValuesIn(portRows),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
