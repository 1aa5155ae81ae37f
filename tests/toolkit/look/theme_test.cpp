// The theme: its files, what is chosen of it, and that whatever is written or drawn can be told
// from what it stands on.
#include <algorithm>
#include <cmath>

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <base/look_variables.h>
#include <toolkit/look/ytheme.h>
#include <toolkit/theme/ythemefile.h>
#include <toolkit/ylook.h>
#include <ylineedit.h>
#include <ymessagedlg.h>
#include <ysingleselectdlg.h>
#include <ysoftkey.h>

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
    {"LinkInAList", &YTheme::accent, &YTheme::surface, letters},
    {"Button", &YTheme::accent, &YTheme::bar, letters},
    {"ChosenRow", &YTheme::onAccent, &YTheme::accent, letters},
    {"SwitchedOffRow", &YTheme::disabledText, &YTheme::background, letters},
    {"SwitchedOffMenuItem", &YTheme::disabledText, &YTheme::surface, letters},
    {"SwitchedOffSoftKey", &YTheme::disabledText, &YTheme::bar, letters},
    {"Success", &YTheme::success, &YTheme::surface, letters},
    {"SuccessOnAPage", &YTheme::success, &YTheme::background, letters},
    {"Failure", &YTheme::failure, &YTheme::surface, letters},
    {"FailureOnAPage", &YTheme::failure, &YTheme::background, letters},
    {"Warning", &YTheme::warning, &YTheme::surface, letters},
    {"WarningOnAPage", &YTheme::warning, &YTheme::background, letters},
    {"FocusOnAPage", &YTheme::accent, &YTheme::background, shapes},
    {"FieldOnAPage", &YTheme::outline, &YTheme::background, shapes},
    {"FieldsSurface", &YTheme::outline, &YTheme::surface, shapes},
    {"ButtonsEdge", &YTheme::outline, &YTheme::bar, shapes},
    {"FocusBesideNoFocus", &YTheme::accent, &YTheme::outline, 1.5},
    {"SwitchedOffBesideUsual", &YTheme::text, &YTheme::disabledText, 2},
};

struct Row
{
    std::string name;
    QString theme;
    QString accent;
    Pair pair;
};

std::ostream& operator<<(std::ostream& out, const Row& row)
{
    return out << row.name;
}

std::vector<Row> rows()
{
    std::vector<Row> all;
    for (const char* theme : {"light", "dark"})
        for (const QString& accent : YThemeFile::standard().namesIn("accents"))
            for (const Pair& pair : pairs)
                all.push_back(
                    {theme + accent.toStdString() + pair.name, QString(theme), accent, pair});
    return all;
}

class Contrast : public ::testing::TestWithParam<Row>
{};

TEST_P(Contrast, IsEnough)
{
    const YLook look{GetParam().theme, GetParam().accent, QString(), false};
    const YTheme theme = YTheme::made(YThemeFile::standard(), look, QSize(240, 320));
    const Pair& pair = GetParam().pair;
    EXPECT_GE(contrast(theme.*pair.colour, theme.*pair.ground), pair.least);
}

INSTANTIATE_TEST_SUITE_P(Themes, Contrast, ::testing::ValuesIn(rows()),
                         [](const auto& row) { return row.param.name; });

TEST(ThemeFile, HasTheWordsThatTheEnvironmentMaySay)
{
    for (const QString& accent : YThemeFile::standard().namesIn("accents")) {
        qputenv("VORN_ACCENT", accent.toUtf8());
        EXPECT_EQ(base::lookValue("VORN_ACCENT"), accent.toStdString());
    }
    for (const QString& size : YThemeFile::standard().namesIn("textSizes")) {
        qputenv("VORN_TEXT_SIZE", size.toUtf8());
        EXPECT_EQ(base::lookValue("VORN_TEXT_SIZE"), size.toStdString());
    }
    EXPECT_EQ(YThemeFile::standard().namesIn("accents").size(), 3);
    EXPECT_EQ(YThemeFile::standard().namesIn("textSizes").size(), 4);
    qunsetenv("VORN_ACCENT");
    qunsetenv("VORN_TEXT_SIZE");
}

TEST(ThemeFile, TakesWhatAFileNamesAndKeepsTheRest)
{
    YThemeFile file = YThemeFile::standard();
    const int row = file.number("heights.row");
    const QStringList wrong = file.take(
        R"({"letters": {"body": 19}, "colours": {"dark": {"text": "#010203", "shade": "#01020304"}}})");
    EXPECT_EQ(wrong.join('\n').toStdString(), "");
    EXPECT_EQ(file.number("letters.body"), 19);
    EXPECT_EQ(file.colour("colours.dark.text"), QColor(1, 2, 3));
    EXPECT_EQ(file.colour("colours.dark.shade"), QColor(1, 2, 3, 4));
    EXPECT_EQ(file.number("heights.row"), row);
}

TEST(ThemeFile, TakesAValueForOneKindOfScreen)
{
    YThemeFile file = YThemeFile::standard();
    EXPECT_EQ(file.take(R"({"screens": {"large": {"durations": {"slide": 7}}}})").size(), 0);
    EXPECT_EQ(YTheme::made(file, YLook(), QSize(400, 800)).slideTime, 7);
    EXPECT_NE(YTheme::made(file, YLook(), QSize(240, 320)).slideTime, 7);
}

struct Wrong
{
    const char* name;
    const char* json;
    const char* told;
};

std::ostream& operator<<(std::ostream& out, const Wrong& row)
{
    return out << row.name;
}

class WrongThemeFile : public ::testing::TestWithParam<Wrong>
{};

TEST_P(WrongThemeFile, IsToldAndChangesNothing)
{
    YThemeFile file = YThemeFile::standard();
    EXPECT_EQ(file.take(GetParam().json).join('\n').toStdString(), GetParam().told);
    EXPECT_EQ(file.number("letters.body"), YThemeFile::standard().number("letters.body"));
    EXPECT_EQ(file.colour("colours.light.text"),
              YThemeFile::standard().colour("colours.light.text"));
}

INSTANTIATE_TEST_SUITE_P(
    Files, WrongThemeFile,
    ::testing::Values(
        Wrong{"Text", R"({"letters": {"body": "14"}})",
              "letters.body: \"14\" is no whole number of 6 to 4000"},
        Wrong{"Fraction", R"({"letters": {"body": 14.5}})",
              "letters.body: 14.5 is no whole number of 6 to 4000"},
        Wrong{"TooSmall", R"({"letters": {"body": 5}})",
              "letters.body: 5 is no whole number of 6 to 4000"},
        Wrong{"Negative", R"({"spaces": {"margin": -1}})",
              "spaces.margin: -1 is no whole number of 0 to 4000"},
        Wrong{"TooLarge", R"({"spaces": {"margin": 4001}})",
              "spaces.margin: 4001 is no whole number of 0 to 4000"},
        Wrong{"TruthValue", R"({"letters": {"body": true}})",
              "letters.body: true is no whole number of 6 to 4000"},
        Wrong{"NoColour", R"({"colours": {"light": {"text": "red"}}})",
              "colours.light.text: \"red\" is no colour; #RRGGBB and #RRGGBBAA are"},
        Wrong{"ShortColour", R"({"colours": {"light": {"text": "#12345"}}})",
              "colours.light.text: \"#12345\" is no colour; #RRGGBB and #RRGGBBAA are"},
        Wrong{"NumberForAColour", R"({"colours": {"light": {"text": 0}}})",
              "colours.light.text: 0 is no colour; #RRGGBB and #RRGGBBAA are"},
        Wrong{"UnknownName", R"({"letters": {"bodi": 14}})",
              "letters.bodi: there is no value of this name"},
        Wrong{"UnknownOfAScreen", R"({"screens": {"large": {"letters": {"bodi": 14}}}})",
              "screens.large.letters.bodi: there is no value of this name"},
        Wrong{"ValueForAGroup", R"({"letters": 14})", "letters: there is no value of this name"},
        Wrong{"Array", R"([1])", "a theme file is a JSON object"},
        Wrong{"Empty", "", "illegal value at byte 0"},
        Wrong{"CutOff", R"({"letters": {"body": 14)", "invalid termination by number at byte 23"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ThemeFile, ThatCannotBeReadIsTold)
{
    YThemeFile file = YThemeFile::standard();
    const QTemporaryDir folder;
    EXPECT_EQ(file.takeFile(folder.filePath("none.json")).join('\n').toStdString(),
              "No such file or directory");
}

class Look : public GuiTest
{
protected:
    void TearDown() override
    {
        YLook::use({"light", QString(), QString(), false});
        YLook::useLanguage(QString());
        GuiTest::TearDown();
    }
};

TEST_F(Look, AWordThatIsUnknownCountsAsNone)
{
    YLook::use({"pink", "mud", "vast", false});
    EXPECT_EQ(YLook::current().theme, "light");
    EXPECT_EQ(YLook::current().accent, "");
    EXPECT_EQ(YLook::current().textSize, "");
    EXPECT_EQ(YTheme::current().accent, QColor(0x14, 0x5F, 0xC8));
}

TEST_F(Look, AnAccentChangesWhatIsShown)
{
    YSingleSelectDlg dialog("Title", QString(), nullptr, nullptr, true, 0, 0);
    for (const char* text : {"One", "Two"}) {
        auto* item = new YListBoxItem(dialog.getListBox(), "%M");
        item->appendSubItem(1, text, false, nullptr);
        dialog.getListBox()->insertItem(item, -1, true);
    }
    dialog.show();
    settle();
    const auto shown = [&dialog] {
        return dialog.grab().toImage().pixelColor(dialog.width() / 2, dialog.getListBox()->y() + 3);
    };
    EXPECT_EQ(shown(), YThemeFile::standard().colour("accents.blue.light.accent"));
    YLook::use({"dark", "plum", QString(), false});
    settle();
    EXPECT_EQ(shown(), YThemeFile::standard().colour("accents.plum.dark.accent"));
}

TEST_F(Look, LargerLettersHaveHigherRows)
{
    YMessageDlg message("A title", "A text.", 2, 0, nullptr, nullptr, true, 0);
    YLineEdit row(&message, nullptr, 0);
    message.show();
    settle();
    const int before = message.height();
    const int rowBefore = row.heightForWidth(200);
    const int keysBefore = message.getSoftKey()->height();
    YLook::use({"light", QString(), "largest", false});
    settle();
    EXPECT_GT(message.height(), before);
    EXPECT_GT(row.heightForWidth(200), rowBefore);
    EXPECT_GT(message.getSoftKey()->height(), keysBefore);
    EXPECT_EQ(message.geometry().bottom(), screen()->rect().bottom());
}

TEST_F(Look, TextSizesAreInTheirOrder)
{
    EXPECT_EQ(YLook::textSizes(), (QStringList{"small", "normal", "large", "largest"}));
    int body = 0;
    for (const QString& size : YLook::textSizes()) {
        YLook::use({"light", QString(), size, false});
        EXPECT_GT(YTheme::current().body, body);
        body = YTheme::current().body;
    }
}

TEST_F(Look, AnotherLanguageHasItsTextsAndItsDirection)
{
    YLook::useLanguage("ar");
    EXPECT_EQ(YLook::language(), "ar");
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(YSoftKey::tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"), "إلغاء");
    YLook::useLanguage("de");
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(YSoftKey::tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"), "Abbrechen");
    YLook::useLanguage("la");
    EXPECT_EQ(YLook::language(), "en");
    EXPECT_EQ(YSoftKey::tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"), "Cancel");
}

TEST_F(Look, EachLanguageIsCalledAsItsSpeakersDo)
{
    QStringList names;
    for (const QString& language : YLook::languages())
        names << YLook::nameOf(language);
    EXPECT_EQ(
        names.join(' ').toStdString(),
        "English العربية Deutsch Español Français 日本語 Português Русский 简体中文 繁體中文");
}

TEST_F(Look, TheEnvironmentMayNameEachLanguage)
{
    const QByteArray before = qgetenv("VORN_LANG");
    for (const QString& language : YLook::languages()) {
        qputenv("VORN_LANG", language.toUtf8());
        EXPECT_EQ(base::lookValue("VORN_LANG"), language.toStdString());
    }
    if (before.isNull())
        qunsetenv("VORN_LANG");
    else
        qputenv("VORN_LANG", before);
}

} // namespace
