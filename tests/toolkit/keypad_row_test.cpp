// VORN_KEYPAD=1 on a machine whose keypad is the digit row of its keyboard.
#include <memory>

#include <QTest>

#include <toolkit/input/ykeypad.h>
#include <yinputfield.h>
#include <ylineedit.h>
#include <ypopup.h>
#include <yskinservice.h>

#include "common/gui_test.h"

namespace {

class KeypadRow : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        popup = std::make_unique<YPopup>(0, nullptr, nullptr, true, 0, 0);
        edit = new YLineEdit(popup.get(), "row", YSkinService::FormLineEdit);
        popup->show();
        edit->setFocus();
        settle();
    }

    void TearDown() override
    {
        popup.reset();
        GuiTest::TearDown();
    }

    void key(Qt::Key key, const char* text, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::sendKeyEvent(QTest::Click, edit, key, text, modifiers);
    }

    std::unique_ptr<YPopup> popup;
    YLineEdit* edit = nullptr;
};

TEST_F(KeypadRow, GivesLetters)
{
    key(Qt::Key_2, "2");
    key(Qt::Key_2, "2");
    key(Qt::Key_3, "3", Qt::KeypadModifier);
    EXPECT_EQ(edit->text().toStdString(), "bd");
}

TEST_F(KeypadRow, GoesOnToCapitalsWithTheNumberSign)
{
    key(Qt::Key_NumberSign, "#", Qt::ShiftModifier);
    key(Qt::Key_2, "2");
    EXPECT_EQ(edit->text().toStdString(), "A");
}

TEST_F(KeypadRow, LeavesShortcutsAndShiftedDigitsAlone)
{
    key(Qt::Key_2, "", Qt::ControlModifier);
    key(Qt::Key_Exclam, "!", Qt::ShiftModifier);
    EXPECT_EQ(edit->text().toStdString(), "!");
}

TEST_F(KeypadRow, LeavesTheLettersOfTheKeyboardAsTheyAre)
{
    key(Qt::Key_A, "a");
    key(Qt::Key_2, "2");
    EXPECT_EQ(edit->text().toStdString(), "aa");
}

TEST_F(KeypadRow, StaysDigitsWhereTheProgramHasAKeypadOfItsOwn)
{
    YKeypad::setPresent(true);
    key(Qt::Key_2, "2");
    key(Qt::Key_2, "2", Qt::KeypadModifier);
    EXPECT_EQ(edit->text().toStdString(), "2a");
}

} // namespace
