#include "ipaddressedit_validator.h"

#include <climits>

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPointer>

#include "widgets/segment_rows.h"

namespace {

class SegmentText : public testing::TestWithParam<SegmentRow>
{};

TEST_P(SegmentText, IsJudgedByTheNumberItIs)
{
    IPAddressEdit_Validator validator(nullptr);
    validator.setRange(0, 255);
    QString text = GetParam().text;
    int position = 1;
    EXPECT_EQ(validator.validate(text, position), GetParam().state);
    EXPECT_EQ(text, GetParam().text);
    EXPECT_EQ(position, 1);
}

INSTANTIATE_TEST_SUITE_P(Texts, SegmentText, testing::ValuesIn(segmentRows()),
                         [](const auto& row) { return std::string(row.param.name); });

struct RangeRow
{
    const char* name;
    int bottom;
    int top;
    const char* text;
    int state;
};

void PrintTo(const RangeRow& row, std::ostream* out)
{
    *out << row.name;
}

class RangeText : public testing::TestWithParam<RangeRow>
{};

TEST_P(RangeText, IsAcceptedFromBottomToTop)
{
    IPAddressEdit_Validator validator(nullptr);
    validator.setRange(GetParam().bottom, GetParam().top);
    QString text = GetParam().text;
    int position = 0;
    EXPECT_EQ(validator.validate(text, position), GetParam().state);
}

INSTANTIATE_TEST_SUITE_P(Ports, RangeText,
                         testing::Values(RangeRow{"Empty", 0, 65535, "", 1},
                                         RangeRow{"Zero", 0, 65535, "0", 2},
                                         RangeRow{"Largest", 0, 65535, "65535", 2},
                                         RangeRow{"OneAbove", 0, 65535, "65536", 0},
                                         RangeRow{"Negative", 0, 65535, "-1", 0},
                                         RangeRow{"BlankBefore", 0, 65535, " 7", 2},
                                         RangeRow{"LeadingZeros", 0, 65535, "00065535", 2},
                                         RangeRow{"Service", 0, 65535, "http", 0}),
                         [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    OtherRanges, RangeText,
    testing::Values(RangeRow{"NegativeBottom", -10, -5, "-10", 2},
                    RangeRow{"BelowNegativeBottom", -10, -5, "-11", 0},
                    RangeRow{"AboveNegativeTop", -10, -5, "-4", 0},
                    RangeRow{"BelowPositiveBottom", 10, 20, "9", 0},
                    RangeRow{"PrefixOfAnAcceptedOne", 10, 20, "1", 0},
                    RangeRow{"OneNumber", 5, 5, "5", 2}, RangeRow{"NoNumber", 6, 5, "5", 0},
                    RangeRow{"EmptyInARangeWithoutZero", 10, 20, "", 1},
                    RangeRow{"SmallestInt", INT_MIN, INT_MAX, "-2147483648", 2},
                    RangeRow{"LargestInt", INT_MIN, INT_MAX, "2147483647", 2},
                    RangeRow{"AboveTheLargestInt", INT_MIN, INT_MAX, "2147483648", 0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SegmentValidator, TakesTheRangeOfIntAtFirst)
{
    const IPAddressEdit_Validator validator(nullptr);
    EXPECT_EQ(validator.bottom(), INT_MIN);
    EXPECT_EQ(validator.top(), INT_MAX);
}

TEST(SegmentValidator, AddsNoMetaObjectOfItsOwn)
{
    const IPAddressEdit_Validator validator(nullptr);
    EXPECT_STREQ(validator.metaObject()->className(), "QIntValidator");
}

TEST(SegmentValidator, GoesWithTheLineEditThatItGuards)
{
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const QApplication application(count, arguments);
    auto* edit = new QLineEdit;
    const QPointer<IPAddressEdit_Validator> validator = new IPAddressEdit_Validator(edit);
    EXPECT_EQ(validator->parent(), edit);
    delete edit;
    EXPECT_TRUE(validator.isNull());
}

} // namespace
