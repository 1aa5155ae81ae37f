// The soft-key bar: alternatives by priority, hidden buttons, and what a click does.
#include <QPushButton>
#include <QSignalSpy>

#include <yoptionsmenu.h>
#include <ypopup.h>
#include <ysoftkey.h>

#include "common/gui_test.h"

namespace {

const QString wide(30, 'W');    // wider than a button
const QString narrow(4, 'W');   // fits a button of the usual bar
const QString narrower(2, 'W'); // fits half of it

class SoftKey : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        popup = std::make_unique<YPopup>(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
        bar = popup->getSoftKey();
        popup->show();
        settle();
    }

    void TearDown() override
    {
        popup.reset();
        GuiTest::TearDown();
    }

    std::unique_ptr<YPopup> popup;
    YSoftKey* bar = nullptr;
};

struct Alternatives
{
    const char* name;
    std::vector<std::pair<int, QString>> set; // priority and text, in the order of the calls
    QString shown;
};

std::ostream& operator<<(std::ostream& out, const Alternatives& row)
{
    return out << row.name;
}

class SoftKeyText : public SoftKey, public ::testing::WithParamInterface<Alternatives>
{};

TEST_P(SoftKeyText, IsTheFirstThatFits)
{
    for (const auto& [priority, text] : GetParam().set)
        bar->setText(YSoftKey::Right, text, priority);
    EXPECT_EQ(bar->text(YSoftKey::Right).toStdString(), GetParam().shown.toStdString());
    EXPECT_EQ(bar->text(YSoftKey::Left), "");
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SoftKeyText,
    ::testing::Values(
        Alternatives{"One", {{0, "Cancel"}}, "Cancel"},
        Alternatives{"TheLowestNumber", {{2, "Later"}, {1, "First"}, {3, "Last"}}, "First"},
        Alternatives{"TheNextWhenTheFirstIsTooWide", {{0, wide}, {1, narrow}}, narrow},
        Alternatives{"NotTheNarrowestButTheFirst", {{0, wide}, {1, narrow}, {2, "a"}}, narrow},
        Alternatives{"TheSamePriorityAgain", {{0, "Cancel"}, {0, "Save"}}, "Save"},
        Alternatives{"AnEmptyTextTakesItsOwnAway", {{0, "Cancel"}, {1, "No"}, {0, ""}}, "No"},
        Alternatives{"NoneLeft", {{0, "Cancel"}, {0, ""}}, ""},
        Alternatives{"AnAmpersandIsALetter", {{0, "A&B"}}, "A&B"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(SoftKey, ATextTooWideForEveryAlternativeEndsInDots)
{
    bar->setText(YSoftKey::Right, wide + wide, 0);
    bar->setText(YSoftKey::Right, wide, 1);
    const QString shown = bar->text(YSoftKey::Right);
    EXPECT_TRUE(shown.endsWith(QChar(0x2026))) << shown.toStdString();
    EXPECT_GT(shown.size(), 3);
}

TEST_F(SoftKey, ATextALittleTooWideTakesSmallerLettersOnBothKeys)
{
    const auto buttons = bar->findChildren<QPushButton*>();
    const int usual = buttons[YSoftKey::Left]->font().pixelSize();
    bar->resize(160, bar->height());
    bar->setText(YSoftKey::Left, "OK", 0);
    EXPECT_EQ(buttons[YSoftKey::Left]->font().pixelSize(), usual);
    const QString text = "Abbrechen!";
    bar->setText(YSoftKey::Right, text, 0);
    EXPECT_EQ(bar->text(YSoftKey::Right), text);
    EXPECT_LT(buttons[YSoftKey::Right]->font().pixelSize(), usual);
    EXPECT_EQ(buttons[YSoftKey::Left]->font(), buttons[YSoftKey::Right]->font());
    bar->setText(YSoftKey::Right, "No", 0);
    EXPECT_EQ(buttons[YSoftKey::Left]->font().pixelSize(), usual);
}

TEST_F(SoftKey, ANarrowerBarTakesAnotherAlternativeAndComesBackToTheFirst)
{
    bar->setText(YSoftKey::Left, narrow, 0);
    bar->setText(YSoftKey::Left, narrower, 1);
    EXPECT_EQ(bar->text(YSoftKey::Left), narrow);
    bar->resize(100, bar->height());
    EXPECT_EQ(bar->text(YSoftKey::Left), narrower);
    bar->resize(240, bar->height());
    EXPECT_EQ(bar->text(YSoftKey::Left), narrow);
}

TEST_F(SoftKey, ButtonsThatDoNotExistAreIgnored)
{
    for (const int button : {-1, 2}) {
        bar->setText(button, "text", 0);
        bar->showButton(button, false);
        bar->setClickedSlot(button, popup.get(), SLOT(accept()));
        bar->click(button);
        EXPECT_EQ(bar->text(button), "");
        EXPECT_FALSE(bar->isButtonVisible(button));
    }
    EXPECT_TRUE(popup->isVisible());
}

TEST_F(SoftKey, AHiddenButtonIsBackWithItsTextAndSlot)
{
    bar->setText(YSoftKey::Left, "OK", 0);
    bar->showButton(YSoftKey::Left, false);
    bar->click(YSoftKey::Left);
    EXPECT_TRUE(popup->isVisible());
    bar->showButton(YSoftKey::Left, true);
    EXPECT_EQ(bar->text(YSoftKey::Left), "OK");
    bar->click(YSoftKey::Left);
    EXPECT_FALSE(popup->isVisible());
}

TEST_F(SoftKey, ANullReceiverLeavesTheButtonWithoutASlot)
{
    bar->setClickedSlot(YSoftKey::Right, nullptr, nullptr);
    press(Qt::Key_F2);
    tap(bar->findChildren<QPushButton*>()[YSoftKey::Right]);
    EXPECT_TRUE(popup->isVisible());
}

struct Leaving
{
    const char* name;
    const char* left;
    const char* right;
    int clicked; // the button that Escape clicks, -1 for none
};

std::ostream& operator<<(std::ostream& out, const Leaving& row)
{
    return out << row.name;
}

class Clicks : public QObject
{
    Q_OBJECT

public:
    int last = -1;
    int count = 0;

public slots:
    void left() { note(YSoftKey::Left); }
    void right() { note(YSoftKey::Right); }

private:
    void note(int button)
    {
        last = button;
        ++count;
    }
};

class Escape : public SoftKey, public ::testing::WithParamInterface<Leaving>
{
protected:
    void SetUp() override
    {
        SoftKey::SetUp();
        bar->setClickedSlot(YSoftKey::Left, &clicks, SLOT(left()));
        bar->setClickedSlot(YSoftKey::Right, &clicks, SLOT(right()));
        bar->setText(YSoftKey::Left, GetParam().left, 0);
        bar->setText(YSoftKey::Right, GetParam().right, 0);
    }

    Clicks clicks;
};

TEST_P(Escape, IsTheKeyThatOffersTheWayOut)
{
    press(Qt::Key_Escape);
    EXPECT_EQ(clicks.last, GetParam().clicked);
}

TEST_P(Escape, LeavesTheOtherPhoneKeysAsTheyAre)
{
    press(Qt::Key_F1);
    EXPECT_EQ(clicks.last, YSoftKey::Left);
    press(Qt::Key_F2);
    EXPECT_EQ(clicks.last, YSoftKey::Right);
    EXPECT_EQ(clicks.count, 2);
}

INSTANTIATE_TEST_SUITE_P(Keys, Escape,
                         ::testing::Values(Leaving{"Cancel", "Options", "Cancel", YSoftKey::Right},
                                           Leaving{"Back", "Options", "Back", YSoftKey::Right},
                                           Leaving{"Close", "Options", "Close", YSoftKey::Right},
                                           Leaving{"No", "Yes", "No", YSoftKey::Right},
                                           Leaving{"Save", "Options", "Save", -1},
                                           Leaving{"BackOnTheLeft", "Back", "Save", YSoftKey::Left},
                                           Leaving{"TwoWaysOut", "Back", "Cancel", YSoftKey::Right},
                                           Leaving{"NoText", "", "", -1},
                                           Leaving{"OtherCase", "", "cancel", -1},
                                           Leaving{"PartOfAText", "", "Cancel all", -1}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(SoftKey, EscapeKnowsTheWayOutByEachOfItsTexts)
{
    Clicks clicks;
    bar->setClickedSlot(YSoftKey::Right, &clicks, SLOT(right()));
    bar->setText(YSoftKey::Right, "C.", 0);
    bar->setText(YSoftKey::Right, "Cancel", 1);
    press(Qt::Key_Escape);
    EXPECT_EQ(clicks.last, YSoftKey::Right);
}

TEST_F(SoftKey, EscapeDoesNothingOnceThePopupsOwnKeySaves)
{
    Clicks clicks;
    bar->setText(YSoftKey::Right, "Cancel", 0);
    bar->setClickedSlot(YSoftKey::Right, &clicks, SLOT(right()));
    bar->setText(YSoftKey::Right, "Save", 0);
    press(Qt::Key_Escape);
    EXPECT_EQ(clicks.count, 0);
    EXPECT_TRUE(popup->isVisible());
}

TEST_F(SoftKey, EscapeDoesNotClickAHiddenKey)
{
    bar->setText(YSoftKey::Right, "Cancel", 0);
    bar->showButton(YSoftKey::Right, false);
    press(Qt::Key_Escape);
    EXPECT_TRUE(popup->isVisible());
}

TEST_F(SoftKey, AMenuTakesThePlaceOfTheSlot)
{
    YOptionsMenu menu(QRect(0, 0, 200, 286), nullptr, nullptr, 0, 54);
    menu.insertItem("Save", nullptr, nullptr, nullptr, true, false, false, -1, -1, false);
    bar->setOptionsMenu(YSoftKey::Left, &menu);
    press(Qt::Key_F1);
    EXPECT_EQ(activeLayer(), &menu);
    EXPECT_TRUE(popup->isVisible());
}

} // namespace

#include "soft_key_test.moc"
