// The screen: its size, its window, its layers, and the programs around it.
#include <algorithm>
#include <cmath>
#include <memory>

#include <QApplication>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <toolkit/look/ytheme.h>
#include <toolkit/yscreen.h>
#include <yglobal.h>
#include <ykbmainwidget.h>
#include <ypopup.h>
#include <ysoftkey.h>

#include "common/gui_test.h"

namespace {

struct Outcome
{
    int exitCode;
    QString output;
    QString warnings;
};

Outcome runProbe(const char* program, const QStringList& environment = {})
{
    QProcess process;
    QStringList variables = QProcess::systemEnvironment();
    // A folder for sockets of its own, of which Qt need not warn.
    const QTemporaryDir sockets;
    variables << "XDG_RUNTIME_DIR=" + sockets.path() << environment;
    process.setEnvironment(variables);
    process.start(SCREEN_PROBE, {program});
    if (!process.waitForFinished(60000))
        return {-1, QString(), "did not end"};
    if (process.exitStatus() != QProcess::NormalExit)
        return {-1, QString(), process.readAllStandardError()};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()).trimmed(),
            QString::fromUtf8(process.readAllStandardError())};
}

struct Size
{
    const char* name;
    const char* setting;
    const char* used;
    bool refused;
};

std::ostream& operator<<(std::ostream& out, const Size& row)
{
    return out << row.name;
}

class ScreenSize : public ::testing::TestWithParam<Size>
{};

TEST_P(ScreenSize, IsWhatTheEnvironmentAsksFor)
{
    const Outcome outcome = runProbe("size", {QString("VORN_SCREEN=") + GetParam().setting});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.warnings.toStdString();
    EXPECT_EQ(outcome.output, GetParam().used);
    EXPECT_EQ(outcome.warnings.contains("VORN_SCREEN"), GetParam().refused);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, ScreenSize,
    ::testing::Values(
        Size{"None", "", "240x320", false}, Size{"Landscape", "320x240", "320x240", false},
        Size{"Large", "480x800", "480x800", false}, Size{"Smallest", "160x160", "160x160", false},
        Size{"Largest", "4096x4096", "4096x4096", false},
        Size{"TooSmall", "159x320", "240x320", true}, Size{"TooLarge", "240x4097", "240x320", true},
        Size{"Overflow", "240x99999999999999999999", "240x320", true},
        Size{"Negative", "-240x320", "240x320", true}, Size{"OneNumber", "240", "240x320", true},
        Size{"WordBehind", "240x320px", "240x320", true}, Size{"Words", "large", "240x320", true}),
    [](const auto& row) { return std::string(row.param.name); });

struct Setting
{
    const char* name;
    const char* text; // VARIABLE=VALUE
    const char* told; // what standard error says of it
};

std::ostream& operator<<(std::ostream& out, const Setting& row)
{
    return out << row.name;
}

class Environment : public ::testing::TestWithParam<Setting>
{};

// A program with two applications, one after the other.
TEST_P(Environment, IsToldOnceOfWhatHasNoMeaning)
{
    const Outcome outcome = runProbe("twice", {GetParam().text});
    EXPECT_EQ(outcome.output, "11");
    EXPECT_EQ(outcome.warnings.toStdString(), GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, Environment,
    ::testing::Values(
        Setting{"Theme", "VORN_THEME=drak",
                "VORN_THEME=drak is ignored; it may be light, dark, system or "
                "the path of a theme file\n"},
        Setting{"ThemeInCapitals", "VORN_THEME=Dark",
                "VORN_THEME=Dark is ignored; it may be light, dark, system or "
                "the path of a theme file\n"},
        Setting{"KnownTheme", "VORN_THEME=dark", ""}, Setting{"NoTheme", "VORN_THEME=", ""},
        Setting{"Language", "VORN_LANG=klingon",
                "VORN_LANG=klingon is ignored; it may be en, ar, de, es, fr, ja, "
                "pt, ru, zh_CN or zh_TW\n"},
        Setting{"TraditionalChinese", "VORN_LANG=zh_TW.UTF-8", ""},
        Setting{"Accent", "VORN_ACCENT=mud",
                "VORN_ACCENT=mud is ignored; it may be blue, plum or teal\n"},
        Setting{"TextSize", "VORN_TEXT_SIZE=9",
                "VORN_TEXT_SIZE=9 is ignored; it may be small, normal, large or largest\n"},
        Setting{"Motion", "VORN_MOTION=none",
                "VORN_MOTION=none is ignored; it may be full or reduced\n"},
        Setting{"ThemeFile", "VORN_THEME=/nowhere/theme.json",
                "theme /nowhere/theme.json: No such file or directory\n"},
        Setting{"Austria", "VORN_LANG=de_AT.UTF-8@euro", ""},
        Setting{"English", "VORN_LANG=en", ""}, Setting{"Chinese", "VORN_LANG=zh", ""},
        Setting{"SimplifiedChinese", "VORN_LANG=zh_CN", ""},
        Setting{"NoLanguage", "VORN_LANG=C", ""},
        Setting{"Keypad", "VORN_KEYPAD=yes", "VORN_KEYPAD=yes is ignored; it may be 0 or 1\n"},
        Setting{"NoKeypad", "VORN_KEYPAD=0", ""}, Setting{"AKeypad", "VORN_KEYPAD=1", ""},
        Setting{"Screen", "VORN_SCREEN=large",
                "VORN_SCREEN=large is ignored; it may be WIDTHxHEIGHT, each 160 to 4096, for "
                "instance 240x320\n"},
        Setting{"ControlCharacters", "VORN_THEME=\033[2J\n",
                "VORN_THEME=?[2J? is ignored; it may be light, dark, system or "
                "the path of a theme file\n"},
        Setting{
            "LongValue", "VORN_KEYPAD=0123456789012345678901234567890123456789+",
            "VORN_KEYPAD=0123456789012345678901234567890123456789... is ignored; it may be 0 or "
            "1\n"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ScreenPrograms, TheFirstPopupIsOnTheScreen)
{
    EXPECT_EQ(runProbe("firstPopup").output, "on the screen");
}

TEST(ScreenPrograms, AnUnknownLanguageIsAsIfNoneWereChosen)
{
    EXPECT_EQ(runProbe("early", {"VORN_LANG=xx", "LC_ALL=zh_CN.UTF-8"}).output,
              QString::fromUtf8("确定"));
}

TEST(ScreenPrograms, APlainApplicationWillDo)
{
    const Outcome outcome = runProbe("plain");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.warnings.toStdString();
    EXPECT_EQ(outcome.output, "1 OK");
}

TEST(ScreenPrograms, TextsAreThereBeforeAnyWidget)
{
    EXPECT_EQ(runProbe("early").output, "OK");
    EXPECT_EQ(runProbe("early", {"VORN_LANG=zh_CN"}).output, QString::fromUtf8("确定"));
}

TEST(ScreenPrograms, APopupMayOutliveTheApplication)
{
    const Outcome outcome = runProbe("outlive");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.warnings.toStdString();
    EXPECT_EQ(outcome.output, "gone");
}

TEST(ScreenPrograms, APopupThatOutlivesTheApplicationIsDeletedOnce)
{
    const Outcome popupFirst = runProbe("outliveOwner");
    EXPECT_EQ(popupFirst.exitCode, 0) << popupFirst.warnings.toStdString();
    EXPECT_EQ(popupFirst.output, "gone");
    const Outcome byOwner = runProbe("outliveOwned");
    EXPECT_EQ(byOwner.exitCode, 0) << byOwner.warnings.toStdString();
    EXPECT_EQ(byOwner.output, "popup\ngone");
}

TEST(ScreenPrograms, OneApplicationMayFollowAnother)
{
    const Outcome outcome = runProbe("twice");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.warnings.toStdString();
    EXPECT_EQ(outcome.output, "11");
}

TEST(ScreenPrograms, ClosingTheOnlyWindowEndsTheProgram)
{
    const Outcome outcome = runProbe("lastWindow");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.warnings.toStdString();
    EXPECT_EQ(outcome.output, "0");
}

class Screen : public GuiTest
{
protected:
    // A layer that is no popup: it fills the screen, as pages do.
    struct Page : QWidget
    {
        explicit Page(QWidget* owner = nullptr)
        {
            YScreen::instance()->addLayer(this, owner, YScreen::Kind::Page, false);
            setGeometry(YScreen::instance()->rect());
        }
        ~Page() override { YScreen::removeLayer(this); }
    };

    static std::unique_ptr<YPopup> popup(bool modal = true)
    {
        return std::make_unique<YPopup>(0, nullptr, nullptr, modal, YPopup::PlainStyle, 0);
    }
};

TEST_F(Screen, ALaterPageLiesOnTop)
{
    Page first;
    Page second;
    second.show();
    first.show();
    EXPECT_EQ(activeLayer(), &first);
    first.hide();
    EXPECT_EQ(activeLayer(), &second);
}

TEST_F(Screen, APageStaysBelowAPopupThatWasShownBefore)
{
    auto dialog = popup();
    dialog->show();
    Page page;
    page.show();
    EXPECT_EQ(activeLayer(), dialog.get());
    dialog->hide();
    EXPECT_EQ(activeLayer(), &page);
}

TEST_F(Screen, ShowingAShownLayerAgainChangesNothing)
{
    Page first;
    Page second;
    first.show();
    second.show();
    first.show();
    EXPECT_EQ(activeLayer(), &second);
}

TEST_F(Screen, AFocusGivenToAHiddenLayerIsThereWhenItIsShown)
{
    Page page;
    QPushButton first("first", &page);
    QPushButton second("second", &page);
    second.setFocus();
    page.show();
    press(Qt::Key_Shift);
    EXPECT_EQ(QApplication::focusWidget(), &second);
}

TEST_F(Screen, TheFirstWidgetOfALayerGetsTheFocusWhereNoneWasChosen)
{
    Page page;
    QPushButton first("first", &page);
    QPushButton second("second", &page);
    page.show();
    press(Qt::Key_Shift);
    EXPECT_EQ(QApplication::focusWidget(), &first);
}

TEST_F(Screen, TheFocusComesBackWithItsLayer)
{
    Page page;
    QPushButton first("first", &page);
    QPushButton second("second", &page);
    page.show();
    second.setFocus();
    auto dialog = popup();
    dialog->show();
    press(Qt::Key_Shift);
    EXPECT_FALSE(page.isAncestorOf(QApplication::focusWidget()));
    dialog->hide();
    press(Qt::Key_Shift);
    EXPECT_EQ(QApplication::focusWidget(), &second);
}

TEST_F(Screen, AFocusGivenBelowAPopupHoldsWhenThePopupIsGone)
{
    Page page;
    QPushButton first("first", &page);
    QPushButton second("second", &page);
    page.show();
    auto dialog = popup();
    dialog->show();
    press(Qt::Key_Shift);
    second.setFocus();
    EXPECT_FALSE(second.hasFocus());
    dialog->hide();
    EXPECT_TRUE(second.hasFocus());
}

TEST_F(Screen, AWidgetBelowAPopupHearsNothingOfAFocusThatItIsGivenInVain)
{
    struct Listener : QPushButton
    {
        using QPushButton::QPushButton;
        int heard = 0;
        void focusInEvent(QFocusEvent* event) override
        {
            ++heard;
            QPushButton::focusInEvent(event);
        }
    };
    Page page;
    QPushButton first("first", &page);
    Listener listener("second", &page);
    page.show();
    auto dialog = popup();
    dialog->show();
    press(Qt::Key_Shift);
    listener.setFocus();
    EXPECT_EQ(listener.heard, 0);
    dialog->hide();
    EXPECT_EQ(listener.heard, 1);
}

TEST_F(Screen, APopupThatIsNotModalLeavesThePageToTheFinger)
{
    Page page;
    QPushButton button("page", &page);
    button.setGeometry(20, 20, 100, 40);
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
    page.show();
    auto dialog = popup(false);
    dialog->show();
    tap(&button);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Screen, AModalPopupDimsWhatLiesBelow)
{
    Page page;
    page.show();
    const QColor before = screen()->grab().toImage().pixelColor(120, 40);
    auto dialog = popup();
    dialog->show();
    const QColor dimmed = screen()->grab().toImage().pixelColor(120, 40);
    EXPECT_LT(dimmed.lightness(), before.lightness());
    auto second = popup();
    second->show();
    EXPECT_EQ(screen()->grab().toImage().pixelColor(120, 40), dimmed) << "dimmed once, not twice";
    second.reset();
    dialog.reset();
    EXPECT_EQ(screen()->grab().toImage().pixelColor(120, 40), before);
}

TEST_F(Screen, ClosingItsWindowCancelsThePopupsAndHidesThePages)
{
    Page page;
    page.show();
    auto dialog = popup();
    later([] { screen()->close(); });
    EXPECT_EQ(dialog->exec(), 0);
    EXPECT_FALSE(page.isVisible());
    EXPECT_FALSE(screen()->isVisible());
}

// What a program does to the screen, or to a window of its own in which it has put it, while
// something on the screen is being waited for.
struct Going
{
    const char* name;
    bool framed;
    void (*act)(QWidget* window);
};

std::ostream& operator<<(std::ostream& out, const Going& row)
{
    return out << row.name;
}

class GoingScreen : public GuiTest, public ::testing::WithParamInterface<Going>
{
protected:
    void TearDown() override
    {
        GuiTest::TearDown();
        // The next test begins with a screen, as this one did.
        YScreen::instance();
    }
};

TEST_P(GoingScreen, ClosesWhatIsOnIt)
{
    QPointer<QWidget> frame;
    if (GetParam().framed) {
        frame = new QWidget;
        screen()->setParent(frame);
        screen()->show();
        frame->show();
    }
    YKbMainWidget page(nullptr, nullptr, 0);
    page.show();
    YPopup dialog(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
    QWidget* window = GetParam().framed ? frame.data() : screen();
    later([&] { GetParam().act(window); });
    EXPECT_EQ(dialog.exec(), 0);
    EXPECT_TRUE(waitFor([&] { return page.isHidden(); }));
    if (frame && screen()->parentWidget() == frame)
        screen()->setParent(nullptr);
    delete frame;
}

INSTANTIATE_TEST_SUITE_P(
    Ways, GoingScreen,
    ::testing::Values(Going{"Closed", false, [](QWidget* window) { window->close(); }},
                      Going{"Hidden", false, [](QWidget* window) { window->hide(); }},
                      Going{"Deleted", false, [](QWidget* window) { delete window; }},
                      Going{"ClosedWithItsFrame", true, [](QWidget* window) { window->close(); }},
                      Going{"HiddenWithItsFrame", true, [](QWidget* window) { window->hide(); }},
                      Going{"DeletedWithItsFrame", true, [](QWidget* window) { delete window; }}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(Screen, WhatLiesOnItStaysWhenItIsPutIntoAnotherWindow)
{
    Page page;
    page.show();
    QWidget phone;
    screen()->setParent(&phone);
    phone.show();
    screen()->show();
    settle();
    EXPECT_TRUE(page.isVisible());
    page.hide();
    screen()->setParent(nullptr);
}

TEST_F(Screen, ANewLayerOpensAClosedWindowAgain)
{
    auto dialog = popup();
    dialog->show();
    screen()->close();
    dialog->show();
    EXPECT_TRUE(screen()->isVisible());
    press(Qt::Key_F1);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(Screen, InAnotherWidgetItStaysWhereItIs)
{
    QWidget phone;
    phone.resize(300, 500);
    screen()->setParent(&phone);
    screen()->move(30, 20);
    phone.show();
    phone.activateWindow();
    screen()->show();
    auto dialog = popup();
    dialog->getSoftKey()->setText(YSoftKey::Right, "Cancel", 0);
    dialog->show();
    EXPECT_EQ(screen()->parentWidget(), &phone);
    EXPECT_EQ(screen()->window(), &phone);
    press(Qt::Key_F2);
    EXPECT_FALSE(dialog->isVisible());
    settle();
    EXPECT_TRUE(screen()->isVisible()) << "a phone does not lose its screen";
    screen()->setParent(nullptr);
}

TEST_F(Screen, TheRectanglesLieWithinTheScreen)
{
    const QRect whole = screen()->rect();
    EXPECT_EQ(YGlobal::getHomeR(false), whole);
    for (const QRect& part : {YGlobal::getCstR(), YGlobal::getTitleR(), YGlobal::getMainContentR(),
                              YGlobal::getDlgSmallR(), YGlobal::getDlgSmallConR(),
                              YGlobal::getDlgLargeR(), YGlobal::getDlgLargeConR()})
        EXPECT_TRUE(whole.contains(part));
    EXPECT_EQ(YGlobal::getCstR().bottom(), whole.bottom());
    EXPECT_EQ(YGlobal::getTitleR().height() + YGlobal::getMainContentR().height() +
                  YGlobal::getCstR().height(),
              whole.height());
    EXPECT_TRUE(YGlobal::getDlgSmallR().contains(YGlobal::getDlgSmallConR()));
    EXPECT_TRUE(YGlobal::getDlgLargeR().contains(YGlobal::getDlgLargeConR()));
}

TEST_F(Screen, RectanglesAreMappedIntoAWidgetOfTheScreen)
{
    auto dialog = popup();
    dialog->setGeometry(10, 200, 220, 120);
    EXPECT_EQ(YGlobal::mapFromGlobalR(dialog.get(), QRect(30, 210, 50, 60)), QRect(20, 10, 50, 60));
    const QWidget outside;
    EXPECT_EQ(YGlobal::mapFromGlobalR(const_cast<QWidget*>(&outside), QRect(1, 2, 3, 4)),
              QRect(1, 2, 3, 4));
}

TEST_F(Screen, AThemeChangesWhatIsShown)
{
    auto dialog = popup();
    dialog->show();
    const QPoint inside(120, 230);
    const QColor light = screen()->grab().toImage().pixelColor(inside);
    YTheme::use(YTheme::Scheme::Dark);
    const QColor dark = screen()->grab().toImage().pixelColor(inside);
    YTheme::use(YTheme::Scheme::Light);
    EXPECT_GT(light.lightness(), 200);
    EXPECT_LT(dark.lightness(), 60);
}

double contrast(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

TEST_F(Screen, TextsCanBeReadInBothThemes)
{
    for (const YTheme::Scheme scheme : {YTheme::Scheme::Dark, YTheme::Scheme::Light}) {
        YTheme::use(scheme);
        const YTheme& theme = YTheme::current();
        // 4.5 is what the accessibility guidelines for the web ask of texts, 3 of signs.
        for (const QColor& ground : {theme.background, theme.surface, theme.bar}) {
            EXPECT_GE(contrast(theme.text, ground), 4.5);
            EXPECT_GE(contrast(theme.mutedText, ground), 4.5);
        }
        EXPECT_GE(contrast(theme.onAccent, theme.accent), 4.5);
        EXPECT_GE(contrast(theme.accent, theme.surface), 3);
        EXPECT_GE(contrast(theme.success, theme.surface), 3);
        EXPECT_GE(contrast(theme.failure, theme.surface), 3);
    }
}

} // namespace
