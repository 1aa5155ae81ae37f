// Segment fields: the cursor's way through the segments, by keys and by finger.
#include <memory>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include <toolkit/input/ykeypad.h>
#include <yapplication.h>
#include <yinputfield.h>
#include <ylineedit.h>
#include <ypopup.h>
#include <ysegmentfield.h>
#include <yskinservice.h>

#include "common/gui_test.h"

namespace {

class SegmentField : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        popup = std::make_unique<YPopup>(0, nullptr, nullptr, true, 0, 0);
        field = new YSegmentField(popup.get(), nullptr, 0, YSkinService::SegmentField);
        field->setNumSegments(4);
        for (int i = 0; i < 4; ++i) {
            field->getField(i)->setMaxLength(3);
            YApplication::setInputMethod(field->getField(i), YApplication::keypadMethod(),
                                         YInputField::NumericInput, QString());
        }
        field->setGeometry(0, 0, 240, 50);
        popup->show();
        field->setFocus();
        settle();
    }

    void TearDown() override
    {
        popup.reset();
        YKeypad::setPresent(false);
        GuiTest::TearDown();
    }

    std::string texts() const
    {
        QStringList all;
        for (int i = 0; i < field->numSegments(); ++i)
            all << field->getField(i)->text();
        return all.join('|').toStdString();
    }

    int focused() const
    {
        for (int i = 0; i < field->numSegments(); ++i)
            if (field->getField(i)->hasFocus())
                return i;
        return -1;
    }

    std::unique_ptr<YPopup> popup;
    YSegmentField* field = nullptr;
};

TEST_F(SegmentField, GivesItsFocusToTheFirstSegment)
{
    EXPECT_EQ(focused(), 0);
}

TEST_F(SegmentField, HandsOverWhenASegmentIsFull)
{
    type("192168001042");
    EXPECT_EQ(texts(), "192|168|001|042");
    EXPECT_EQ(focused(), 3);
}

TEST_F(SegmentField, HandsOverAtATypedSeparator)
{
    type("10.0.0.1");
    EXPECT_EQ(texts(), "10|0|0|1");
}

TEST_F(SegmentField, KeepsTheCursorInAnEmptySegmentAtASeparator)
{
    type("..7.");
    EXPECT_EQ(texts(), "7|||");
    EXPECT_EQ(focused(), 1);
}

TEST_F(SegmentField, TakesStarAndHashOfAKeypadForTheSeparator)
{
    YKeypad::setPresent(true);
    for (const char key : {'1', '0', '*', '2', '#', '3'})
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key(key),
                            QString(QChar(key)), Qt::KeypadModifier);
    EXPECT_EQ(texts(), "10|2|3|");
}

TEST_F(SegmentField, LeftRightAndBackspaceCrossAtTheEdges)
{
    type("1.2");
    press(Qt::Key_Left);
    EXPECT_EQ(focused(), 1);
    press(Qt::Key_Left);
    EXPECT_EQ(focused(), 0);
    press(Qt::Key_Right);
    EXPECT_EQ(focused(), 1);
    press(Qt::Key_Backspace);
    EXPECT_EQ(texts(), "1|||");
    EXPECT_EQ(focused(), 1);
    press(Qt::Key_Backspace);
    EXPECT_EQ(focused(), 0);
    press(Qt::Key_Backspace);
    EXPECT_EQ(texts(), "|||");
    press(Qt::Key_Backspace);
    EXPECT_EQ(focused(), 0);
}

TEST_F(SegmentField, ReplacesASegmentThatIsEnteredFromTheLeft)
{
    type("1.200.3");
    tap(field->getField(0)->getInputField());
    press(Qt::Key_End);
    type(".7");
    EXPECT_EQ(texts(), "1|7|3|");
}

TEST_F(SegmentField, ReplacesItsTextsByATextWithSeparatorsBehindFullSegments)
{
    type("10.20.30.40");
    tap(field->getField(0)->getInputField());
    field->getField(0)->selectAll();
    type("192.168.7.1");
    EXPECT_EQ(texts(), "192|168|7|1");
}

TEST_F(SegmentField, GoesOnFromAFilledSegmentAtEachSeparator)
{
    type("10.20.30.40");
    tap(field->getField(0)->getInputField());
    type("..5");
    EXPECT_EQ(texts(), "10|20|5|40");
}

TEST_F(SegmentField, TapPutsTheCursorIntoThatSegment)
{
    tap(field->getField(2)->getInputField());
    EXPECT_EQ(focused(), 2);
    type("5");
    EXPECT_EQ(texts(), "||5|");
}

TEST_F(SegmentField, SpreadsAPastedTextOverTheSegments)
{
    QGuiApplication::clipboard()->setText(" 192.168.10.2\n");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(texts(), "192|168|10|2");
    EXPECT_EQ(focused(), 3);
}

TEST_F(SegmentField, DropsThePartsOfAPastedTextThatHaveNoSegment)
{
    tap(field->getField(2)->getInputField());
    QGuiApplication::clipboard()->setText("1.2.3.4.5");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(texts(), "||1|2");
}

TEST_F(SegmentField, StaysWhereItIsWhenAProgramFillsIt)
{
    for (int i = 0; i < 4; ++i)
        field->getField(i)->setText("255");
    EXPECT_EQ(focused(), 0);
}

TEST_F(SegmentField, SwitchesItsSegmentsOffAndOn)
{
    field->setEnabled(false);
    EXPECT_FALSE(field->isYEnabled());
    type("1");
    tap(field->getField(3)->getInputField());
    type("1");
    EXPECT_EQ(texts(), "|||");
    EXPECT_FALSE(field->getField(3)->isYEnabled());
    field->setEnabled(true);
    type("1");
    EXPECT_EQ(texts(), "|||1");
}

TEST_F(SegmentField, KeepsTheSegmentsThatRemainWhenTheirNumberChanges)
{
    type("10.20.30.40");
    field->setNumSegments(2);
    EXPECT_EQ(texts(), "10|20");
    EXPECT_EQ(field->getField(2), nullptr);
    EXPECT_EQ(field->getField(-1), nullptr);
    field->setNumSegments(3);
    EXPECT_EQ(texts(), "10|20|");
    for (const int count : {-1, 0, 17, 1000}) {
        field->setNumSegments(count);
        EXPECT_EQ(field->numSegments(), count <= 0 ? 0 : 16);
    }
}

TEST_F(SegmentField, FitsItsSegmentsIntoTheScreen)
{
    EXPECT_LE(field->sizeHint().width(), 240);
    for (const int width : {160, 200, 240, 480}) {
        field->resize(width, 50);
        for (int i = 0; i < 4; ++i) {
            const QRect place = field->getField(i)->geometry();
            EXPECT_TRUE(field->rect().contains(place)) << width << ' ' << i;
            EXPECT_GE(place.width(), 20) << width << ' ' << i;
        }
    }
}

} // namespace
