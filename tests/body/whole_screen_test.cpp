// The whole screen of a real phone, also when it is turned and when a keyboard takes room on it.
#include <QInputMethodQueryEvent>
#include <QScreen>

#include <yinputfield.h>

#include "body/body_fixture.h"

namespace {

class OpenedScreen : public BodyTest
{};

class WholeScreen : public BodyTest
{
protected:
    void SetUp() override
    {
        BodyTest::SetUp();
        for (int row = 0; row < 12; ++row)
            rows.push_back(addEdit());
        open();
        turn(QSize(360, 640));
    }

    void TearDown() override
    {
        keyboard(QRectF());
        body()->showFullScreen();
        BodyTest::TearDown();
    }

    static void turn(const QSize& size)
    {
        body()->resize(size);
        settle();
    }

    // What the platform says when its keyboard comes or goes.
    static void keyboard(const QRectF& covered)
    {
        QMetaObject::invokeMethod(body(), "keepClearOf", Q_ARG(QRectF, covered));
        settle();
    }

    std::vector<YLineEdit*> rows;
};

} // namespace

TEST_F(OpenedScreen, HasNoFrameAndLeavesNothingOfTheDisplay)
{
    open();
    EXPECT_TRUE(body()->windowState().testFlag(Qt::WindowFullScreen));
    EXPECT_EQ(body()->geometry(), QGuiApplication::primaryScreen()->geometry());
    EXPECT_EQ(screen()->size(), body()->size());
}

TEST_F(WholeScreen, IsFilledByWhatTheProgramShows)
{
    EXPECT_EQ(screen()->size(), QSize(360, 640));
    EXPECT_EQ(page->size(), QSize(360, 640));
}

TEST_F(WholeScreen, IsFilledWhenItIsTurned)
{
    turn(QSize(640, 360));
    EXPECT_EQ(screen()->size(), QSize(640, 360));
    EXPECT_EQ(page->size(), QSize(640, 360));
}

TEST_F(WholeScreen, HasNoKeysOfItsOwn)
{
    EXPECT_EQ(button("OK"), nullptr);
}

TEST_F(WholeScreen, MakesRoomForAKeyboardAndTakesItBack)
{
    keyboard(QRectF(0, 400, 360, 240));
    EXPECT_EQ(screen()->size(), QSize(360, 400));
    keyboard(QRectF());
    EXPECT_EQ(screen()->size(), QSize(360, 640));
}

TEST_F(WholeScreen, KeepsTheRowInSightThatIsTypedInto)
{
    rows[8]->setFocus();
    keyboard(QRectF(0, 400, 360, 240));
    const int top = rows[8]->mapTo(page.get(), QPoint()).y();
    EXPECT_GE(top, form->y());
    EXPECT_LE(top + rows[8]->height(), form->geometry().bottom() + 1);
}

TEST_F(WholeScreen, PassesOverAKeyboardThatFloatsOrLeavesNoRoom)
{
    keyboard(QRectF(20, 100, 200, 150));
    EXPECT_EQ(screen()->height(), 640);
    keyboard(QRectF(0, 50, 360, 590));
    EXPECT_EQ(screen()->height(), 640);
}

TEST_F(WholeScreen, TellsTheKeyboardWhatIsTypedWhereAndHow)
{
    rows[1]->getInputField()->setInputMode(YInputField::NumericInput);
    rows[1]->setFocus();
    QInputMethodQueryEvent asked(Qt::ImEnabled | Qt::ImHints | Qt::ImCursorRectangle);
    QCoreApplication::sendEvent(rows[1], &asked);
    EXPECT_TRUE(asked.value(Qt::ImEnabled).toBool());
    EXPECT_TRUE(asked.value(Qt::ImHints).toInt() & Qt::ImhDigitsOnly);
    EXPECT_TRUE(QRectF(rows[1]->rect()).contains(asked.value(Qt::ImCursorRectangle).toRectF()));
}
