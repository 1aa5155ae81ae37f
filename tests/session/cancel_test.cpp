// The popup's Cancel key, pressed and clicked as a person does.

#include <QApplication>
#include <QTest>

#include <ysoftkey.h>
#include <ystatedialog.h>

#include "session/session_fixture.h"

namespace {

enum class By { RightSoftKey, Escape, Mouse, SlowMouse };

const struct
{
    const char* name;
    By by;
} ways[] = {{"the right soft key", By::RightSoftKey},
            {"Escape", By::Escape},
            {"a click", By::Mouse},
            {"a press and, later, a release", By::SlowMouse}};

} // namespace

class Cancel : public Session
{
protected:
    void SetUp() override
    {
        Session::SetUp();
        initialise();
    }

    // Works the Cancel key of the popup on the screen.
    void cancel(By by)
    {
        YSoftKey* keys = popup()->getSoftKey();
        const QPoint point =
            keys->mapTo(screen(), QPoint(keys->width() * 3 / 4, keys->height() / 2));
        QWindow* window = screen()->window()->windowHandle();
        switch (by) {
        case By::RightSoftKey:
            press(Qt::Key_F2);
            break;
        case By::Escape:
            press(Qt::Key_Escape);
            break;
        case By::Mouse:
            tap(point);
            break;
        case By::SlowMouse:
            QTest::mousePress(window, Qt::LeftButton, {}, point);
            pass();
            QTest::mouseRelease(window, Qt::LeftButton, {}, point);
            break;
        }
        pass();
    }
};

TEST_F(Cancel, ClosesTheLinkAndReportsCause13Once)
{
    for (const auto& way : ways) {
        open();
        cancel(way.by);
        EXPECT_EQ(napi.take(), "CloseLink(5)") << way.name;
        EXPECT_EQ(log->take(), "openFailed(5,13,0)") << way.name;
        EXPECT_EQ(popup(), nullptr) << way.name;
    }
}

TEST_F(Cancel, TakesThePopupAwayAndClosesTheLinkBeforeTheSignal)
{
    open();
    log->inside = [this] {
        EXPECT_EQ(popup(), nullptr);
        EXPECT_EQ(napi.take(), "CloseLink(5)");
    };
    cancel(By::Escape);
    EXPECT_EQ(log->take(), "openFailed(5,13,0)");
}

TEST_F(Cancel, IgnoresTheResultOfClosingTheLink)
{
    open();
    napi.closeResult = NAPI_ERR_NO_LINK;
    cancel(By::RightSoftKey);
    EXPECT_EQ(log->take(), "openFailed(5,13,0)");
}

TEST_F(Cancel, LeavesALaterFailureOfTheSameIdToASecondSignal)
{
    open();
    cancel(By::Escape);
    EXPECT_EQ(log->take(), "openFailed(5,13,0)");
    deliver(indication(NAPI_IND_OPEN_FAILED, 5));
    EXPECT_EQ(log->take(), "openFailed(5,41394,772)");
}

TEST_F(Cancel, LeavesASuccessThatWasReportedBeforeToASignalForTheClosedLink)
{
    open();
    napi.send(indication(NAPI_IND_CONNECTED, 5));
    QMetaObject::invokeMethod(manager.get(), "slotCancelBtnClicked", Qt::DirectConnection);
    EXPECT_EQ(log->take(), "openFailed(5,13,0)");
    pass();
    EXPECT_EQ(log->take(), "connected(5)");
}

TEST_F(Cancel, LetsTheNextOpeningShowItsPopup)
{
    open();
    cancel(By::Mouse);
    log->take();
    open();
    EXPECT_EQ(popupCount(), 1);
}

TEST_F(Cancel, MayOpenAgainFromInsideOpenFailed)
{
    open();
    log->inside = [this] {
        log->inside = nullptr;
        napi.openResult = 6;
        EXPECT_EQ(manager->openLink("Again"), 6);
    };
    cancel(By::Escape);
    EXPECT_EQ(log->take(), "openFailed(5,13,0)");
    EXPECT_EQ(napi.take(), "CloseLink(5) OpenLink(Again)");
    ASSERT_EQ(popupCount(), 1);
    deliver(indication(NAPI_IND_CONNECTED, 6));
    EXPECT_EQ(log->take(), "connected(6)");
    EXPECT_EQ(popupCount(), 0);
}

TEST_F(Cancel, MayDeleteTheManagerFromInsideOpenFailed)
{
    for (const auto& way : ways) {
        open();
        log->inside = [this] { manager.reset(); };
        cancel(way.by);
        EXPECT_EQ(napi.take(), "CloseLink(5) Fini()") << way.name;
        EXPECT_EQ(log->take(), "openFailed(5,13,0)") << way.name;
        TearDown();
        SetUp();
    }
}

TEST_F(Cancel, ActsOnTheLinkThatIsStillPendingWhenThePopupWasForgotten)
{
    open();
    manager->openLinkNoDialog("Quiet");
    napi.take();
    YStateDialog* forgotten = popup();
    cancel(By::Escape);
    EXPECT_EQ(napi.take(), "CloseLink(5)");
    EXPECT_EQ(log->take(), "openFailed(5,13,0)");
    EXPECT_EQ(forgotten, popup());
    cancel(By::Mouse);
    EXPECT_EQ(napi.take(), "CloseLink(-1)");
    EXPECT_EQ(log->take(), "openFailed(-1,13,0)");
    delete forgotten;
}

TEST_F(Cancel, OutlivesItsManagerWhenThePopupWasForgotten)
{
    open();
    manager->openLinkNoDialog("Quiet");
    manager.reset();
    napi.take();
    YStateDialog* forgotten = popup();
    cancel(By::Escape);
    EXPECT_EQ(napi.take(), "");
    EXPECT_EQ(log->take(), "");
    delete forgotten;
}

TEST_F(Cancel, IsTheOnlyKeyThatDoesAnything)
{
    open();
    for (Qt::Key key : {Qt::Key_F1, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Up,
                        Qt::Key_Down, Qt::Key_Left, Qt::Key_Tab, Qt::Key_A, Qt::Key_5}) {
        press(key);
        pass();
        EXPECT_EQ(napi.take(), "") << key;
        EXPECT_EQ(log->take(), "") << key;
        ASSERT_NE(popup(), nullptr) << key;
    }
}

TEST_F(Cancel, IsNotPressedByAClickBesideIt)
{
    open();
    const QRect box(popup()->mapTo(screen(), QPoint(0, 0)), popup()->size());
    YSoftKey* keys = popup()->getSoftKey();
    for (const QPoint& point : {QPoint(2, 2), box.center(), box.topLeft() - QPoint(0, 5),
                                keys->mapTo(screen(), QPoint(10, keys->height() / 2))}) {
        tap(point);
        pass();
        EXPECT_EQ(napi.take(), "") << point.x() << "," << point.y();
        ASSERT_NE(popup(), nullptr);
    }
}
