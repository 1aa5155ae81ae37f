// How large everything is on the screens of real phones.
#include <gtest/gtest.h>

#include "body/launch/screenscale.h"

namespace {

using phone::DisplayFacts;

struct Screen
{
    const char* name;
    DisplayFacts facts;
    double pixels;
    int width;
    int height;
};

const Screen screens[] = {
    {"AModernPhone", {1080, 2340, 1, 68, 147}, 3.25, 332, 720},
    {"ASmallerModernPhone", {720, 1440, 1, 65, 130}, 2.25, 320, 640},
    {"TheSameTurned", {1440, 720, 1, 130, 65}, 2.25, 640, 320},
    {"AnOldPhone", {480, 800, 1, 52, 87}, 2, 240, 400},
    {"AVeryOldPhone", {240, 320, 1, 36, 49}, 1.5, 160, 213},
    {"AMonitorOnADesk", {1920, 1080, 1, 480, 270}, 1.25, 1536, 864},
    {"ADisplayThatDoesNotKnowItsSize", {720, 1280, 1, 0, 0}, 1.25, 576, 1024},
    {"ADisplayThatSaysWhatCannotBe", {720, 1280, 1, 1, 1}, 1.25, 576, 1024},
    {"ADisplayWhoseSidesDisagree", {720, 1280, 1, 130, 65}, 1.25, 576, 1024},
};

void PrintTo(const Screen& screen, std::ostream* out)
{
    *out << screen.name;
}

class ScaleOf : public ::testing::TestWithParam<Screen>
{};

INSTANTIATE_TEST_SUITE_P(Screens, ScaleOf, ::testing::ValuesIn(screens),
                         [](const auto& one) { return one.param.name; });

} // namespace

TEST_P(ScaleOf, LeavesTheScreenSoManyLogicalPixels)
{
    const phone::ScreenScale scale = phone::screenScale(GetParam().facts);
    EXPECT_EQ(scale.pixels, GetParam().pixels);
    EXPECT_EQ(scale.width, GetParam().width);
    EXPECT_EQ(scale.height, GetParam().height);
}

TEST_P(ScaleOf, MakesRowsAtLeast44PixelsHigh)
{
    const phone::ScreenScale scale = phone::screenScale(GetParam().facts);
    const bool small = std::min(scale.width, scale.height) < 220;
    EXPECT_GE((small ? 30 : 36) * scale.pixels, 44);
}
