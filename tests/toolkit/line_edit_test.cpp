// Line edits: limits, validators, what is left to the form, and passwords, by keys and by finger.
#include <QInputMethodQueryEvent>
#include <QKeyEvent>
#include <QSignalSpy>

#include "toolkit/line_edit_fixture.h"

namespace {

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
