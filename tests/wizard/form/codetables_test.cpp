// The four tables between the items of the form and the codes of a record.

#include <ostream>

#include <gtest/gtest.h>

#include "wizard/form/codetables.h"

namespace {

struct SpeedRow
{
    const char* name;
    int lineType;
    int speed;
    int code;
};

const SpeedRow speedRows[] = {
    {"ModemAuto", 0, 0, 0}, {"Modem14400", 0, 1, 14}, {"Modem9600", 0, 2, 7},
    {"Modem4800", 0, 3, 6}, {"Modem2400", 0, 4, 4},   {"Isdn14400", 1, 1, 75},
    {"Isdn9600", 1, 2, 71}, {"Isdn4800", 1, 3, 70},   {"Isdn2400", 1, 4, 68},
};

void PrintTo(const SpeedRow& row, std::ostream* out)
{
    *out << row.name;
}

class Speeds : public testing::TestWithParam<SpeedRow>
{};

TEST_P(Speeds, HaveOneCodeInBothDirections)
{
    uint8_t code = 255;
    EXPECT_TRUE(wizard::speedCodeOf({GetParam().lineType, GetParam().speed}, &code));
    EXPECT_EQ(GetParam().code, code);
    wizard::SpeedChoice choice = {-1, -1};
    EXPECT_TRUE(wizard::speedChoiceOf(uint8_t(GetParam().code), &choice));
    EXPECT_EQ(GetParam().lineType, choice.lineType);
    EXPECT_EQ(GetParam().speed, choice.speed);
}

INSTANTIATE_TEST_SUITE_P(Table, Speeds, testing::ValuesIn(speedRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(Speed, IsdnWithAutomaticSpeedHasTheCodeOfTheModem)
{
    uint8_t code = 255;
    EXPECT_TRUE(wizard::speedCodeOf({1, 0}, &code));
    EXPECT_EQ(code, 0);
}

TEST(Speed, EveryOtherCodeHasNoChoice)
{
    for (int code = 0; code < 256; ++code) {
        bool isKnown = false;
        for (const SpeedRow& row : speedRows)
            isKnown = isKnown || row.code == code;
        wizard::SpeedChoice choice = {-7, -8};
        EXPECT_EQ(isKnown, wizard::speedChoiceOf(uint8_t(code), &choice)) << code;
        if (!isKnown) {
            EXPECT_EQ(choice.lineType, -7) << code;
            EXPECT_EQ(choice.speed, -8) << code;
        }
    }
}

TEST(Speed, AChoiceOutsideOfTheTableHasNoCode)
{
    for (const wizard::SpeedChoice& choice :
         {wizard::SpeedChoice{0, -1}, {0, 5}, {-1, 0}, {2, 0}, {1, 1000}, {1000, 1}}) {
        uint8_t code = 99;
        EXPECT_FALSE(wizard::speedCodeOf(choice, &code));
        EXPECT_EQ(code, 99);
    }
}

struct TimeoutRow
{
    const char* name;
    const wizard::TimeoutTable* table;
    int item;
    int minutes;
};

void PrintTo(const TimeoutRow& row, std::ostream* out)
{
    *out << row.name;
}

const TimeoutRow timeoutRows[] = {
    {"GprsOff", &wizard::gprsTimeouts, 0, 0},      {"Gprs15Min", &wizard::gprsTimeouts, 1, 15},
    {"Gprs1Hour", &wizard::gprsTimeouts, 2, 60},   {"Gprs2Hours", &wizard::gprsTimeouts, 3, 120},
    {"Gprs6Hours", &wizard::gprsTimeouts, 4, 360}, {"Gprs24Hours", &wizard::gprsTimeouts, 5, 1440},
    {"CsdOff", &wizard::csdTimeouts, 0, 0},        {"Csd1Min", &wizard::csdTimeouts, 1, 1},
    {"Csd5Min", &wizard::csdTimeouts, 2, 5},       {"Csd15Min", &wizard::csdTimeouts, 3, 15},
    {"Csd30Min", &wizard::csdTimeouts, 4, 30},     {"Csd60Min", &wizard::csdTimeouts, 5, 60},
};

class Timeouts : public testing::TestWithParam<TimeoutRow>
{};

TEST_P(Timeouts, HaveTheirMinutesInBothDirections)
{
    const TimeoutRow& row = GetParam();
    uint16_t minutes = 9999;
    EXPECT_TRUE(row.table->minutesOf(row.item, &minutes));
    EXPECT_EQ(row.minutes, minutes);
    EXPECT_EQ(row.item, row.table->itemOf(uint16_t(row.minutes)));
}

INSTANTIATE_TEST_SUITE_P(Tables, Timeouts, testing::ValuesIn(timeoutRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(Timeout, AnUnknownNumberOfMinutesIsOff)
{
    for (int minutes : {1, 14, 16, 30, 59, 61, 1439, 1441, 32768, 65535})
        EXPECT_EQ(wizard::gprsTimeouts.itemOf(uint16_t(minutes)), 0) << minutes;
    for (int minutes : {2, 4, 14, 29, 31, 61, 120, 65535})
        EXPECT_EQ(wizard::csdTimeouts.itemOf(uint16_t(minutes)), 0) << minutes;
}

TEST(Timeout, AnItemOutsideOfTheTableHasNoMinutes)
{
    for (int item : {-1, 6, 1000, -2147483647}) {
        uint16_t minutes = 77;
        EXPECT_FALSE(wizard::gprsTimeouts.minutesOf(item, &minutes)) << item;
        EXPECT_FALSE(wizard::csdTimeouts.minutesOf(item, &minutes)) << item;
        EXPECT_EQ(minutes, 77) << item;
    }
}

TEST(Preference, EachOfTheSixteenCodesHasItsItemOrTheOtherOne)
{
    const int items[16] = {9, 1, 0, 9, 2, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9};
    for (unsigned code = 0; code < 16; ++code) {
        EXPECT_EQ(items[code], wizard::preferenceItemOf(code << 8, 9)) << code;
        EXPECT_EQ(items[code], wizard::preferenceItemOf((code << 8) | 0xFFFFF0FF, 9)) << code;
    }
}

TEST(Preference, AnItemReplacesTheFourBitsAndNoOther)
{
    EXPECT_EQ(wizard::withPreference(0xABCDEFEF, 0), 0xABCDE2EFu);
    EXPECT_EQ(wizard::withPreference(0xABCDEFEF, 1), 0xABCDE1EFu);
    EXPECT_EQ(wizard::withPreference(0xABCDEFEF, 2), 0xABCDE4EFu);
    EXPECT_EQ(wizard::withPreference(0, 0), 0x00000200u);
}

TEST(Preference, NoSuchItemLeavesTheFlags)
{
    for (int item : {-1, 3, 1000})
        EXPECT_EQ(wizard::withPreference(0xABCDEFEF, item), 0xABCDEFEFu) << item;
}

} // namespace
