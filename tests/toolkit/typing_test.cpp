// What typing gives: on a keyboard, from the clipboard, from an input method, on a keypad.
#include <algorithm>

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QTest>

#include <yapplication.h>

#include "toolkit/line_edit_fixture.h"

namespace {

struct Typed
{
    const char* name;
    int mode;
    const char* keys;
    const char* text;
};

std::ostream& operator<<(std::ostream& out, const Typed& row)
{
    return out << row.name;
}

class Keyboard : public LineEdit, public ::testing::WithParamInterface<Typed>
{};

TEST_P(Keyboard, GivesWhatTheInputModeLetsThrough)
{
    YApplication::setInputMethod(edit, YApplication::keypadMethod(), GetParam().mode, QString());
    type(QString::fromUtf8(GetParam().keys));
    EXPECT_EQ(edit->text(), QString::fromUtf8(GetParam().text));
}

TEST_P(Keyboard, LetsTheSameThroughWhenPasted)
{
    edit->getInputField()->setInputMode(GetParam().mode);
    QGuiApplication::clipboard()->setText(QString::fromUtf8(GetParam().keys));
    QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(edit->text(), QString::fromUtf8(GetParam().text));
}

TEST_P(Keyboard, LetsTheSameThroughFromAnInputMethod)
{
    edit->getInputField()->setInputMode(GetParam().mode);
    QInputMethodEvent event;
    event.setCommitString(QString::fromUtf8(GetParam().keys));
    QCoreApplication::sendEvent(edit, &event);
    EXPECT_EQ(edit->text(), QString::fromUtf8(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Modes, Keyboard,
                         ::testing::Values(Typed{"Text", 0, "Aé8 *", "Aé8 *"},
                                           Typed{"UnknownModeIsText", 77, "Aé8 *", "Aé8 *"},
                                           Typed{"Numeric", 6, "8a0.8-0 +", "8080"},
                                           Typed{"DialNumber", 4, "+49 (0)3x*#pw", "+4903*#pw"},
                                           Typed{"Password", 8, "aÄ 1*", "aÄ 1*"}),
                         [](const auto& row) { return std::string(row.param.name); });

class Keypad : public LineEdit, public ::testing::WithParamInterface<Typed>
{
protected:
    void SetUp() override
    {
        LineEdit::SetUp();
        YKeypad::setPresent(true);
    }

    // A key of the phone's keypad, by its character; "222" is the key pressed three times.
    void keypad(const QString& keys)
    {
        for (const QChar key : keys) {
            QTest::sendKeyEvent(QTest::Press, edit, Qt::Key(key.unicode()), QString(key),
                                Qt::KeypadModifier);
            QTest::sendKeyEvent(QTest::Release, edit, Qt::Key(key.unicode()), QString(key),
                                Qt::KeypadModifier);
        }
    }

    void hold(char key)
    {
        keypad(QString(QChar(key)));
        QKeyEvent again(QEvent::KeyPress, key, Qt::KeypadModifier, QString(QChar(key)), true);
        QCoreApplication::sendEvent(edit, &again);
        QCoreApplication::sendEvent(edit, &again);
    }
};

TEST_P(Keypad, GivesItsLettersOneAfterTheOther)
{
    edit->getInputField()->setInputMode(GetParam().mode);
    keypad(GetParam().keys);
    EXPECT_EQ(edit->text(), QString::fromUtf8(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Keys, Keypad,
    ::testing::Values(
        Typed{"FirstLetter", 0, "2", "a"}, Typed{"SecondLetter", 0, "22", "b"},
        Typed{"ThirdLetter", 0, "222", "c"}, Typed{"DigitBehindTheLetters", 0, "2222", "2"},
        Typed{"AccentedLetters", 0, "22222", "ä"}, Typed{"AroundToTheFirst", 0, "55555", "j"},
        Typed{"OtherKeyBeginsALetter", 0, "9277", "waq"}, Typed{"Full stop", 0, "1", "."},
        Typed{"Blank", 0, "0", " "}, Typed{"Capitals", 0, "#999", "Y"},
        Typed{"SharpSHasNoCapital", 0, "#777777", "ß"}, Typed{"Digits", 0, "##1902", "1902"},
        Typed{"SmallLettersAgain", 0, "###2", "a"},
        Typed{"SamePlaceTwiceAfterAModeKey", 0, "2###2", "aa"},
        Typed{"Numeric", 6, "2222#*0", "22220"}, Typed{"DialNumber", 4, "22#", "22#"},
        Typed{"DialPause", 4, "5***", "5p"}, Typed{"DialPlus", 4, "00", "+"},
        Typed{"Password", 8, "22#2", "bA"}),
    [](const auto& row) {
        std::string name = row.param.name;
        name.erase(std::remove(name.begin(), name.end(), ' '), name.end());
        return name;
    });

class KeypadField : public Keypad
{};

TEST_F(KeypadField, BeginsANewLetterWhenTheOldOneIsChosen)
{
    keypad("2");
    EXPECT_TRUE(waitFor([this] { return edit->getInputField()->keypadText() == "abc"; }));
    keypad("2");
    EXPECT_EQ(edit->text(), "aa");
}

TEST_F(KeypadField, ShowsTheLettersOfTheKeyWhileOneIsChosen)
{
    YInputField* field = edit->getInputField();
    keypad("2");
    EXPECT_EQ(field->keypadText(), "abc2");
    keypad("7");
    EXPECT_EQ(field->keypadText(), "pqrs7");
    press(Qt::Key_Left);
    EXPECT_EQ(field->keypadText(), "abc");
}

TEST_F(KeypadField, ShowsTheLetterOfAPasswordThatIsBeingChosen)
{
    auto* password = new YLineEdit(popup.get(), nullptr, YSkinService::FormLineEdit);
    password->setEchoMode(QLineEdit::Password);
    password->show();
    password->setFocus();
    edit = password;
    keypad("22");
    EXPECT_EQ(edit->getInputField()->displayText(), "b");
    keypad("3");
    EXPECT_EQ(edit->text(), "bd");
    EXPECT_NE(edit->getInputField()->displayText()[0], 'b');
    EXPECT_EQ(edit->getInputField()->displayText()[1], 'd');
}

TEST_F(KeypadField, GivesTheDigitOfAKeyThatIsHeldOnce)
{
    hold('2');
    EXPECT_EQ(edit->text(), "2");
    keypad("2");
    EXPECT_EQ(edit->text(), "2a");
}

TEST_F(KeypadField, KeepsToTheLengthWhileALetterIsChosen)
{
    edit->setMaxLength(2);
    keypad("92222");
    EXPECT_EQ(edit->text(), "w2");
    keypad("333");
    EXPECT_EQ(edit->text(), "w2");
}

TEST_F(KeypadField, PassesOverLettersThatTheValidatorRefuses)
{
    edit->setValidator(new ByteValidator(edit));
    keypad("2");
    EXPECT_EQ(edit->text(), "2");
    keypad("2");
    EXPECT_EQ(edit->text(), "2");
}

TEST_F(KeypadField, ShowsWhatTheKeysGive)
{
    YInputField* field = edit->getInputField();
    EXPECT_EQ(field->keypadText(), "abc");
    keypad("#");
    EXPECT_EQ(field->keypadText(), "ABC");
    keypad("#");
    EXPECT_EQ(field->keypadText(), "123");
    keypad("#");
    EXPECT_EQ(field->keypadText(), "abc");
    field->setInputMode(YInputField::NumericInput);
    EXPECT_EQ(field->keypadText(), "123");
    YKeypad::setPresent(false);
    EXPECT_EQ(field->keypadText(), "");
}

TEST_F(KeypadField, IsANumberBlockWhereThereIsNoKeypad)
{
    YKeypad::setPresent(false);
    keypad("2222#");
    EXPECT_EQ(edit->text(), "2222#");
}

} // namespace
