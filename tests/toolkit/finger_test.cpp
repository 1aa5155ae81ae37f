// Scrolling by the finger: what moves, what is tapped, what runs on.
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include <ypopup.h>
#include <yscrollpanel.h>

#include "common/gui_test.h"

namespace {

// Buttons one below the other, too many for the screen.
class Finger : public GuiTest
{
protected:
    YPopup popup{0, nullptr, nullptr, true, YPopup::PlainStyle, 0};
    YScrollPanel panel{&popup, nullptr, 0};
    int clicks = 0;

    void open(int rows)
    {
        for (int row = 0; row < rows; ++row) {
            auto* button = new QPushButton(QString::number(row), panel.viewport());
            button->setGeometry(0, row * 40, 240, 40);
            QObject::connect(button, &QPushButton::clicked, [this] { ++clicks; });
        }
        popup.setGeometry(screen()->rect());
        panel.setGeometry(0, 0, 240, 240);
        popup.show();
        settle();
    }

    void TearDown() override
    {
        qDeleteAll(panel.findChildren<QPushButton*>());
        GuiTest::TearDown();
    }

    int position() const { return panel.contentsY(); }
};

TEST_F(Finger, MovesTheContentsAsFarAsItGoes)
{
    open(30);
    drag(QPoint(100, 200), QPoint(100, 80));
    EXPECT_EQ(position(), 120);
    drag(QPoint(100, 80), QPoint(100, 130));
    EXPECT_EQ(position(), 70);
}

TEST_F(Finger, ThatScrollsPressesNothing)
{
    open(30);
    drag(QPoint(100, 200), QPoint(100, 80));
    drag(QPoint(100, 80), QPoint(100, 200));
    EXPECT_EQ(clicks, 0);
    for (const QPushButton* button : panel.findChildren<QPushButton*>())
        EXPECT_FALSE(button->isDown());
}

TEST_F(Finger, ThatHardlyMovesTaps)
{
    open(30);
    drag(QPoint(100, 100), QPoint(103, 96));
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(position(), 0);
}

TEST_F(Finger, ThatGoesAsideTapsNothingAndScrollsNothing)
{
    open(30);
    drag(QPoint(40, 100), QPoint(220, 104));
    EXPECT_EQ(position(), 0);
}

TEST_F(Finger, TapsAsUsualWhereAllIsInSight)
{
    open(3);
    drag(QPoint(100, 100), QPoint(100, 110));
    EXPECT_EQ(clicks, 1);
}

TEST_F(Finger, StopsAtTheEnds)
{
    open(10);
    const int end = 10 * 40 - 240;
    for (int i = 0; i < 5; ++i)
        drag(QPoint(100, 230), QPoint(100, 10));
    EXPECT_EQ(position(), end);
    for (int i = 0; i < 5; ++i)
        drag(QPoint(100, 10), QPoint(100, 230));
    EXPECT_EQ(position(), 0);
}

TEST_F(Finger, LetsTheContentsRunOnAfterAFlickUntilTheyStand)
{
    open(100);
    flick(QPoint(100, 200), QPoint(100, 100));
    const int released = position();
    EXPECT_TRUE(waitFor([&] { return position() > released + 20; }));
    int before = -1;
    EXPECT_TRUE(waitFor([&] { return std::exchange(before, position()) == position(); }));
}

TEST_F(Finger, HoldsTheContentsThatRunOn)
{
    open(1000);
    flick(QPoint(100, 230), QPoint(100, 20));
    ASSERT_TRUE(waitFor([&] { return position() > 215; }));
    tap(QPoint(100, 100));
    const int held = position();
    settle();
    EXPECT_EQ(position(), held);
}

TEST_F(Finger, AProgramsPositionEndsAFlick)
{
    open(1000);
    flick(QPoint(100, 230), QPoint(100, 20));
    panel.setContentsPos(0, 500);
    EXPECT_EQ(position(), 500);
    settle();
    EXPECT_EQ(position(), 500);
}

} // namespace
