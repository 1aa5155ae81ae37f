// The colours: whatever is written or drawn can be told from what it stands on.
#include <algorithm>
#include <cmath>

#include <toolkit/look/ytheme.h>

#include "common/gui_test.h"

namespace {

// How bright a colour is to the eye, from 0 to 1.
double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

// 1 for the same colour, 21 for black and white.
double contrast(const QColor& one, const QColor& other)
{
    const auto [dark, bright] = std::minmax({luminance(one), luminance(other)});
    return (bright + 0.05) / (dark + 0.05);
}

constexpr double letters = 4.5; // what small letters need to be read in the sun
constexpr double shapes = 3;    // and what a line or a large sign needs

struct Pair
{
    const char* name;
    QColor YTheme::*colour;
    QColor YTheme::*ground;
    double least;
};

constexpr Pair pairs[] = {
    {"TextOnAPage", &YTheme::text, &YTheme::background, letters},
    {"TextInAField", &YTheme::text, &YTheme::surface, letters},
    {"SoftKey", &YTheme::text, &YTheme::bar, letters},
    {"Label", &YTheme::mutedText, &YTheme::background, letters},
    {"NoteInAField", &YTheme::mutedText, &YTheme::surface, letters},
    {"TitleBarInformation", &YTheme::mutedText, &YTheme::bar, letters},
    {"LabelWithTheFocus", &YTheme::accent, &YTheme::background, letters},
    {"Button", &YTheme::accent, &YTheme::bar, letters},
    {"ChosenRow", &YTheme::onAccent, &YTheme::accent, letters},
    {"SwitchedOffRow", &YTheme::disabledText, &YTheme::background, shapes},
    {"SwitchedOffMenuItem", &YTheme::disabledText, &YTheme::surface, shapes},
    {"FocusOnAPage", &YTheme::accent, &YTheme::background, shapes},
    {"FieldOnAPage", &YTheme::outline, &YTheme::background, shapes},
    {"SignOfSuccess", &YTheme::success, &YTheme::surface, shapes},
    {"SignOfFailure", &YTheme::failure, &YTheme::surface, shapes},
    {"FocusBesideNoFocus", &YTheme::accent, &YTheme::outline, 1.5},
};

struct Row
{
    YTheme::Scheme scheme;
    Pair pair;
};

std::ostream& operator<<(std::ostream& out, const Row& row)
{
    return out << row.pair.name;
}

std::vector<Row> rows()
{
    std::vector<Row> all;
    for (const YTheme::Scheme scheme : {YTheme::Scheme::Light, YTheme::Scheme::Dark})
        for (const Pair& pair : pairs)
            all.push_back({scheme, pair});
    return all;
}

class Contrast : public ::testing::TestWithParam<Row>
{
protected:
    ~Contrast() override { YTheme::use(YTheme::Scheme::Light); }
};

TEST_P(Contrast, IsEnough)
{
    YTheme::use(GetParam().scheme);
    const Pair& pair = GetParam().pair;
    const YTheme& theme = YTheme::current();
    EXPECT_GE(contrast(theme.*pair.colour, theme.*pair.ground), pair.least);
}

INSTANTIATE_TEST_SUITE_P(Themes, Contrast, ::testing::ValuesIn(rows()), [](const auto& row) {
    const bool dark = row.param.scheme == YTheme::Scheme::Dark;
    return std::string(dark ? "Dark" : "Light") + row.param.pair.name;
});

} // namespace
