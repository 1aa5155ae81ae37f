// Line edits: what typing gives at limits, in input modes and on a keypad, by keys and by finger.
#include <memory>

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>
#include <QValidator>

#include <toolkit/ykeypad.h>
#include <yapplication.h>
#include <yinputfield.h>
#include <ylineedit.h>
#include <ypopup.h>
#include <yskinservice.h>

#include "common/gui_test.h"

namespace {

// A number from 0 to 255, or nothing yet.
class ByteValidator : public QValidator
{
public:
    using QValidator::QValidator;
    State validate(QString& text, int&) const override
    {
        bool isNumber = false;
        const int number = text.toInt(&isNumber);
        if (text.isEmpty())
            return Intermediate;
        return isNumber && number >= 0 && number <= 255 ? Acceptable : Invalid;
    }
};

class LineEdit : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        popup = std::make_unique<YPopup>(0, nullptr, nullptr, true, 0, 0);
        edit = new YLineEdit(popup.get(), "row", YSkinService::FormLineEdit);
        edit->setGeometry(0, 0, 240, 50);
        popup->show();
        edit->setFocus();
        settle();
    }

    void TearDown() override
    {
        popup.reset();
        YKeypad::setPresent(false);
        GuiTest::TearDown();
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

    std::unique_ptr<YPopup> popup;
    YLineEdit* edit = nullptr;
};

TEST_F(LineEdit, TakesTheTypedTextAndTellsEachChange)
{
    QStringList changes;
    QObject::connect(edit, &YLineEdit::textChanged, [&](const QString& text) { changes << text; });
    type("ab");
    press(Qt::Key_Backspace);
    edit->setText("wap");
    edit->setText("wap");
    edit->clear();
    EXPECT_EQ(changes, QStringList({"a", "ab", "a", "wap", ""}));
}

TEST_F(LineEdit, RefusesTheLetterBehindTheLastOne)
{
    edit->setMaxLength(3);
    type("abcd");
    EXPECT_EQ(edit->text(), "abc");
    edit->setText("abcd");
    EXPECT_EQ(edit->text(), "abc");
}

TEST_F(LineEdit, RefusesTheKeyThatMakesAValidTextInvalid)
{
    edit->setValidator(new ByteValidator(edit));
    QSignalSpy changes(edit, SIGNAL(textChanged(QString)));
    type("256");
    EXPECT_EQ(edit->text(), "25");
    EXPECT_EQ(changes.count(), 2);
    press(Qt::Key_Backspace);
    press(Qt::Key_Backspace);
    EXPECT_EQ(edit->text(), "");
}

TEST_F(LineEdit, PassesFocusAndKeysThroughItsOwnHandlers)
{
    class Watched : public YLineEdit
    {
    public:
        using YLineEdit::YLineEdit;
        QList<int> keys;
        int focusIn = 0;
        int focusOut = 0;

    protected:
        void keyPressEvent(QKeyEvent* event) override
        {
            keys << event->key();
            YLineEdit::keyPressEvent(event);
        }
        void focusInEvent(QFocusEvent* event) override
        {
            ++focusIn;
            YLineEdit::focusInEvent(event);
        }
        void focusOutEvent(QFocusEvent* event) override
        {
            ++focusOut;
            YLineEdit::focusOutEvent(event);
        }
    };
    auto* watched = new Watched(popup.get(), nullptr, YSkinService::FormLineEdit);
    watched->setGeometry(0, 60, 240, 50);
    watched->show();
    tap(watched->getInputField());
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    press(Qt::Key_A);
    tap(edit->getInputField());
    EXPECT_EQ(watched->keys, QList<int>({Qt::Key_Return, Qt::Key_Down, Qt::Key_A}));
    EXPECT_EQ(watched->focusIn, 1);
    EXPECT_EQ(watched->focusOut, 1);
}

TEST_F(LineEdit, LeavesUpDownAndReturnToTheForm)
{
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Return, Qt::Key_Enter}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        edit->event(&event);
        EXPECT_FALSE(event.isAccepted()) << key;
    }
}

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

class Password : public LineEdit
{
protected:
    void SetUp() override
    {
        LineEdit::SetUp();
        edit->setEchoMode(QLineEdit::Password);
        edit->setText("secret");
    }

    QString shown() const { return edit->getInputField()->displayText(); }

    bool isMasked() const { return shown().size() == 6 && !shown().contains('s'); }

    void tapEye() { tap(edit->mapTo(screen(), QPoint(edit->width() - 20, edit->height() - 18))); }

    void showByKeys()
    {
        press(Qt::Key_End);
        press(Qt::Key_Right);
        press(Qt::Key_Return);
    }
};

TEST_F(Password, IsMasked)
{
    EXPECT_TRUE(isMasked());
    EXPECT_EQ(edit->text(), "secret");
}

TEST_F(Password, IsShownAndMaskedAgainByFinger)
{
    tapEye();
    EXPECT_EQ(shown(), "secret");
    EXPECT_EQ(edit->echoMode(), QLineEdit::Password);
    tapEye();
    EXPECT_TRUE(isMasked());
}

TEST_F(Password, IsShownAndMaskedAgainByKeys)
{
    showByKeys();
    EXPECT_EQ(shown(), "secret");
    press(Qt::Key_Return);
    EXPECT_TRUE(isMasked());
}

TEST_F(Password, ReturnInTheTextShowsNothing)
{
    press(Qt::Key_End);
    press(Qt::Key_Return);
    EXPECT_TRUE(isMasked());
}

TEST_F(Password, IsTypedOnFromTheEye)
{
    showByKeys();
    type("s");
    EXPECT_EQ(edit->text(), "secrets");
    press(Qt::Key_Right);
    press(Qt::Key_Left);
    type("!");
    EXPECT_EQ(edit->text(), "secrets!");
}

TEST_F(Password, IsMaskedAgainWhenTheFieldIsLeft)
{
    auto* other = new YLineEdit(popup.get(), nullptr, YSkinService::FormLineEdit);
    other->show();
    showByKeys();
    other->setFocus();
    EXPECT_TRUE(isMasked());
    edit->setFocus();
    EXPECT_TRUE(isMasked());
}

TEST_F(Password, IsMaskedAgainWhenSomethingElseComesToTheFront)
{
    showByKeys();
    YPopup above(0, nullptr, nullptr, true, 0, 0);
    above.show();
    EXPECT_TRUE(isMasked());
}

TEST_F(Password, IsMaskedAgainWhenItIsHidden)
{
    showByKeys();
    popup->hide();
    EXPECT_TRUE(isMasked());
}

TEST_F(Password, CannotBeShownWhileItIsSwitchedOff)
{
    edit->setEnabled(false);
    tapEye();
    EXPECT_TRUE(isMasked());
}

TEST_F(Password, IsSensitiveForInputMethodsEvenWhileItIsShown)
{
    showByKeys();
    const Qt::InputMethodHints hints = edit->getInputField()->inputMethodHints();
    EXPECT_TRUE(hints & Qt::ImhHiddenText);
    EXPECT_TRUE(hints & Qt::ImhSensitiveData);
    EXPECT_TRUE(hints & Qt::ImhNoPredictiveText);
}

TEST_F(LineEdit, TellsInputMethodsItsMode)
{
    const struct
    {
        int mode;
        Qt::InputMethodHints hints;
    } rows[] = {{0, Qt::ImhNone},
                {4, Qt::ImhDialableCharactersOnly},
                {6, Qt::ImhDigitsOnly},
                {8, Qt::ImhSensitiveData | Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText}};
    for (const auto& row : rows) {
        edit->getInputField()->setInputMode(row.mode);
        QInputMethodQueryEvent query(Qt::ImHints | Qt::ImEnabled);
        QCoreApplication::sendEvent(edit, &query);
        EXPECT_EQ(query.value(Qt::ImHints).toInt(), int(row.hints)) << row.mode;
        EXPECT_TRUE(query.value(Qt::ImEnabled).toBool());
    }
    edit->setEnabled(false);
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QCoreApplication::sendEvent(edit, &query);
    EXPECT_FALSE(query.value(Qt::ImEnabled).toBool());
}

TEST_F(LineEdit, TellsInputMethodsWhereItsCursorIs)
{
    type("ab");
    QInputMethodQueryEvent query(Qt::ImCursorRectangle);
    QCoreApplication::sendEvent(edit, &query);
    const QRect field = edit->getInputField()->geometry();
    EXPECT_TRUE(field.intersects(query.value(Qt::ImCursorRectangle).toRectF().toRect()));
}

TEST_F(LineEdit, AlignsByTheNumbersOfThePhone)
{
    const struct
    {
        int given;
        Qt::AlignmentFlag sideways;
    } rows[] = {{1, Qt::AlignLeft}, {2, Qt::AlignRight}, {36, Qt::AlignHCenter}};
    for (const auto& row : rows) {
        edit->setAlignment(row.given);
        EXPECT_EQ(edit->getInputField()->alignment(), row.sideways | Qt::AlignVCenter) << row.given;
    }
}

TEST_F(LineEdit, KeepsItsLabelWholeWhateverTheWidth)
{
    edit->setLabel(QString::fromUtf8("Zeitüberschreitung der Datenverbindung (Inaktivität):"));
    const int wide = edit->heightForWidth(480);
    EXPECT_GT(edit->heightForWidth(240), wide);
    edit->setLabel(QString());
    EXPECT_LT(edit->heightForWidth(240), wide);
}

} // namespace
