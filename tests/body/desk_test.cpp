// The phone on the desk: every key by click and by keyboard, and a window that is the phone.
#include <QAccessible>

#include <toolkit/look/ytheme.h>
#include <yinputfield.h>
#include <ypopup.h>

#include "body/body_fixture.h"

namespace {

struct DeskKey
{
    const char* button;
    int key;
    bool keypad;
};

const DeskKey deskKeys[] = {
    {"Left soft key", Qt::Key_F1, false},
    {"Right soft key", Qt::Key_F2, false},
    {"Clear", Qt::Key_Backspace, false},
    {"Back", Qt::Key_Escape, false},
    {"Up", Qt::Key_Up, false},
    {"Down", Qt::Key_Down, false},
    {"Left", Qt::Key_Left, false},
    {"Right", Qt::Key_Right, false},
    {"OK", Qt::Key_Return, false},
    {"1", Qt::Key_1, true},
    {"2 abc", Qt::Key_2, true},
    {"3 def", Qt::Key_3, true},
    {"4 ghi", Qt::Key_4, true},
    {"5 jkl", Qt::Key_5, true},
    {"6 mno", Qt::Key_6, true},
    {"7 pqrs", Qt::Key_7, true},
    {"8 tuv", Qt::Key_8, true},
    {"9 wxyz", Qt::Key_9, true},
    {"Star", Qt::Key_Asterisk, true},
    {"0 space", Qt::Key_0, true},
    {"Hash", Qt::Key_NumberSign, true},
};

void PrintTo(const DeskKey& key, std::ostream* out)
{
    *out << key.button;
}

class Desk : public BodyTest
{
protected:
    void TearDown() override
    {
        body()->resize(body()->minimumSize());
        BodyTest::TearDown();
    }
};

class EveryDeskKey : public Desk, public ::testing::WithParamInterface<DeskKey>
{};

INSTANTIATE_TEST_SUITE_P(Keys, EveryDeskKey, ::testing::ValuesIn(deskKeys),
                         [](const auto& one) { return "Key" + std::to_string(one.index); });

} // namespace

TEST_P(EveryDeskKey, ArrivesByClickAsItDoesFromTheKeyboard)
{
    // The page's own soft keys would take theirs.
    page->setSoftKey(nullptr);
    KeyWitness* witness = openWitness();
    ASSERT_NE(button(GetParam().button), nullptr);
    click(button(GetParam().button));
    ASSERT_EQ(witness->keys.size(), 2U);
    EXPECT_EQ(witness->keys[0].key, GetParam().key);
    EXPECT_TRUE(witness->keys[0].down);
    EXPECT_FALSE(witness->keys[0].repeated);
    EXPECT_EQ(witness->keys[0].modifiers.testFlag(Qt::KeypadModifier), GetParam().keypad);
    EXPECT_EQ(witness->keys[1].key, GetParam().key);
    EXPECT_FALSE(witness->keys[1].down);
}

TEST_P(EveryDeskKey, IsSeenToBePressedWhileTheKeyboardsIs)
{
    openWitness();
    QAbstractButton* key = button(GetParam().button);
    const QImage before = key->grab().toImage();
    QTest::keyPress(body()->windowHandle(), static_cast<Qt::Key>(GetParam().key));
    const QImage during = key->grab().toImage();
    QTest::keyRelease(body()->windowHandle(), static_cast<Qt::Key>(GetParam().key));
    EXPECT_NE(during, before);
    EXPECT_EQ(key->grab().toImage(), before);
}

TEST_P(EveryDeskKey, IsSeenToBePressedWhileItIsClicked)
{
    openWitness();
    QAbstractButton* key = button(GetParam().button);
    const QImage before = key->grab().toImage();
    QTest::mousePress(body()->windowHandle(), Qt::LeftButton, Qt::NoModifier, centre(key));
    const QImage during = key->grab().toImage();
    QTest::mouseRelease(body()->windowHandle(), Qt::LeftButton, Qt::NoModifier, centre(key));
    settle();
    EXPECT_NE(during, before);
    EXPECT_EQ(key->grab().toImage(), before);
}

TEST_P(EveryDeskKey, HasANameForScreenReadersAndTakesNoFocus)
{
    openWitness();
    QAbstractButton* key = button(GetParam().button);
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(key);
    EXPECT_EQ(told->role(), QAccessible::Button);
    EXPECT_EQ(told->text(QAccessible::Name), key->objectName());
    EXPECT_EQ(key->focusPolicy(), Qt::NoFocus);
}

TEST_P(EveryDeskKey, CanBePressedByAScreenReader)
{
    page->setSoftKey(nullptr);
    KeyWitness* witness = openWitness();
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(button(GetParam().button));
    told->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(waitFor([witness] { return witness->keys.size() == 2; }));
    EXPECT_EQ(witness->keys[0].key, GetParam().key);
}

TEST_F(Desk, AKeyThatIsHeldComesAgainAndAgain)
{
    KeyWitness* witness = openWitness();
    const QPoint place = centre(button("Down"));
    QTest::mousePress(body()->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_TRUE(waitFor([witness] { return witness->keys.size() >= 3; }));
    QTest::mouseRelease(body()->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    settle();
    EXPECT_FALSE(witness->keys[0].repeated);
    EXPECT_TRUE(witness->keys[1].repeated);
    EXPECT_TRUE(witness->keys[2].repeated);
    EXPECT_FALSE(witness->keys.back().down);
    const std::size_t count = witness->keys.size();
    QTest::qWait(250);
    EXPECT_EQ(witness->keys.size(), count);
}

TEST_F(Desk, AKeyOfTheKeypadGivesItsNextLetterWhenItIsPressedAgain)
{
    YLineEdit* edit = addEdit();
    open();
    click(button("2 abc"));
    click(button("2 abc"));
    EXPECT_EQ(edit->text(), "b");
}

TEST_F(Desk, ADigitOfTheKeyboardStaysADigit)
{
    YLineEdit* edit = addEdit();
    open();
    type("2");
    EXPECT_EQ(edit->text(), "2");
}

TEST_F(Desk, ClearTakesTheLetterBeforeTheCursor)
{
    YLineEdit* edit = addEdit();
    open();
    type("web");
    click(button("Clear"));
    EXPECT_EQ(edit->text(), "we");
}

TEST_F(Desk, TheSoftKeysAndBackAreThoseOfThePopup)
{
    YPopup popup(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
    popup.getSoftKey()->setText(YSoftKey::Left, "OK", 0);
    popup.getSoftKey()->setText(YSoftKey::Right, "Cancel", 0);
    later([] { click(button("Left soft key")); });
    EXPECT_EQ(popup.exec(), YPopup::Accepted);
    later([] { click(button("Back")); });
    EXPECT_EQ(popup.exec(), YPopup::Cancelled);
}

TEST_F(Desk, TheWindowHasATitleAndAnIconOfItsOwn)
{
    QGuiApplication::setApplicationDisplayName("A program");
    open();
    EXPECT_FALSE(body()->windowTitle().isEmpty());
    ASSERT_FALSE(body()->windowIcon().isNull());
    EXPECT_FALSE(body()->windowIcon().pixmap(64, 64).toImage().allGray());
}

TEST_F(Desk, TheKeysDoNotTakeRoomFromTheScreen)
{
    open();
    EXPECT_EQ(screen()->size(), QSize(240, 320));
}

TEST_F(Desk, EverythingGrowsWithTheWindow)
{
    open();
    const QSize small = button("5 jkl")->size();
    body()->resize(body()->minimumSize() * 2);
    settle();
    EXPECT_EQ(screen()->size(), QSize(480, 640));
    EXPECT_NEAR(button("5 jkl")->width(), 2 * small.width(), 2);
    EXPECT_NEAR(button("5 jkl")->height(), 2 * small.height(), 2);
    EXPECT_EQ(page->size(), QSize(480, 640));
}

TEST_F(Desk, NothingLiesOnAnythingElse)
{
    open();
    std::vector<QRect> places = {QRect(screen()->mapTo(body(), QPoint()), screen()->size())};
    for (const DeskKey& key : deskKeys)
        places.push_back(button(key.button)->geometry());
    for (std::size_t one = 0; one < places.size(); ++one) {
        EXPECT_TRUE(body()->rect().contains(places[one])) << one;
        for (std::size_t other = 0; other < one; ++other) {
            const QRect shared = places[one].intersected(places[other]);
            // The disc of OK reaches into the corners of the arrows' places by a pixel of rounding.
            EXPECT_LE(std::min(shared.width(), shared.height()), 2) << one << " on " << other;
        }
    }
}

TEST_F(Desk, TheCaseGoesWithTheTheme)
{
    open();
    const QPoint place(body()->width() / 2, body()->height() - 20);
    YTheme::use(YTheme::Scheme::Light);
    settle();
    EXPECT_GT(body()->grab().toImage().pixelColor(place).lightness(), 150);
    YTheme::use(YTheme::Scheme::Dark);
    settle();
    EXPECT_LT(body()->grab().toImage().pixelColor(place).lightness(), 90);
    YTheme::use(YTheme::Scheme::Light);
}

TEST_F(Desk, StaysOpenWhenNothingIsShown)
{
    open();
    page->hide();
    settle();
    EXPECT_TRUE(body()->isVisible());
}

TEST_F(Desk, ClosingTheWindowSaysNoToWhatIsShown)
{
    YPopup popup(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
    later([] { body()->close(); });
    EXPECT_EQ(popup.exec(), YPopup::Cancelled);
    EXPECT_FALSE(body()->isVisible());
    open();
    EXPECT_TRUE(body()->isVisible());
}
