// What moves: where it comes to rest, and that nothing goes on after that.
#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <toolkit/look/ytheme.h>
#include <toolkit/ylook.h>
#include <toolkit/yscreen.h>
#include <yglobal.h>
#include <ymessagedlg.h>
#include <ypopup.h>
#include <ypressbutton.h>
#include <ysoftkey.h>

#include "common/gui_test.h"

namespace {

class Motion : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        YLook::use({"light", QString(), QString(), true});
    }

    void TearDown() override
    {
        YLook::use({"light", QString(), QString(), false});
        GuiTest::TearDown();
    }

    static int restingTop(const QWidget& popup) { return screen()->height() - popup.height(); }

    // How often the event loop wakes in a while in which nothing is to happen.
    static int wakeUps(int milliseconds)
    {
        int count = 0;
        QObject counter;
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                         &counter, [&count] { ++count; });
        QEventLoop loop;
        QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
        loop.exec();
        return count;
    }
};

YMessageDlg* message()
{
    return new YMessageDlg("Title", "Text", 2, 0, nullptr, nullptr, true, 0);
}

TEST_F(Motion, ASheetComesUpToItsPlace)
{
    const std::unique_ptr<YMessageDlg> popup(message());
    popup->show();
    EXPECT_GT(popup->y(), restingTop(*popup));
    EXPECT_TRUE(waitFor([&] { return popup->y() == restingTop(*popup); }));
}

TEST_F(Motion, ASheetIsAtItsPlaceAtOnceWithReducedMotion)
{
    YLook::use({"light", QString(), QString(), false});
    const std::unique_ptr<YMessageDlg> popup(message());
    popup->show();
    EXPECT_EQ(popup->y(), restingTop(*popup));
}

TEST_F(Motion, APlaceThatIsGivenMeanwhileHolds)
{
    const std::unique_ptr<YPopup> popup(new YPopup(0, nullptr, nullptr, true, 0, 0));
    popup->show();
    popup->setGeometry(3, 5, 100, 90);
    QTest::qWait(2 * YTheme::current().slideTime);
    EXPECT_EQ(popup->geometry(), QRect(3, 5, 100, 90));
}

TEST_F(Motion, ASheetThatIsHiddenOnItsWayComesToItsPlaceTheNextTime)
{
    const std::unique_ptr<YPopup> popup(new YPopup(0, nullptr, nullptr, true, 0, 0));
    popup->show();
    popup->hide();
    EXPECT_EQ(popup->y(), restingTop(*popup));
    popup->show();
    EXPECT_TRUE(waitFor([&] { return popup->y() == restingTop(*popup); }));
}

TEST_F(Motion, ASheetTakesKeysOnItsWay)
{
    const std::unique_ptr<YMessageDlg> popup(message());
    int result = -1;
    later([] { press(Qt::Key_F2); });
    result = popup->exec();
    EXPECT_EQ(result, YPopup::Accepted);
}

TEST_F(Motion, NothingWakesTheProgramAfterwards)
{
    const std::unique_ptr<YMessageDlg> popup(message());
    popup->show();
    ASSERT_TRUE(waitFor([&] { return popup->y() == restingTop(*popup); }));
    // The last frames move less than a pixel.
    QTest::qWait(YTheme::current().slideTime);
    EXPECT_LE(wakeUps(400), 3);
}

TEST_F(Motion, ASoftKeyAnswersToItsKey)
{
    YPopup popup(0, nullptr, nullptr, true, 0, 0);
    YSoftKey* keys = popup.getSoftKey();
    keys->setText(YSoftKey::Left, "Nothing", 0);
    keys->setClickedSlot(YSoftKey::Left, nullptr, nullptr);
    popup.show();
    press(Qt::Key_F1);
    auto* button = keys->findChildren<QPushButton*>().first();
    EXPECT_TRUE(button->isDown());
    EXPECT_TRUE(waitFor([&] { return !button->isDown(); }));
}

TEST_F(Motion, NoSoftKeyAnswersWithReducedMotion)
{
    YLook::use({"light", QString(), QString(), false});
    YPopup popup(0, nullptr, nullptr, true, 0, 0);
    YSoftKey* keys = popup.getSoftKey();
    keys->setText(YSoftKey::Left, "Nothing", 0);
    keys->setClickedSlot(YSoftKey::Left, nullptr, nullptr);
    popup.show();
    press(Qt::Key_F1);
    EXPECT_FALSE(keys->findChildren<QPushButton*>().first()->isDown());
}

TEST_F(Motion, TheRingBreathes)
{
    YPopup popup(0, nullptr, nullptr, true, YPopup::ProgressStyle, 0);
    popup.show();
    ASSERT_TRUE(waitFor([&] { return popup.y() == restingTop(popup); }));
    EXPECT_GE(wakeUps(400), 5);
}

TEST_F(Motion, TheRingStandsStillWithReducedMotion)
{
    YLook::use({"light", QString(), QString(), false});
    YPopup popup(0, nullptr, nullptr, true, YPopup::ProgressStyle, 0);
    popup.show();
    settle();
    EXPECT_LE(wakeUps(400), 3);
}

} // namespace
