// Opening a link with the connecting popup.

#include <fcntl.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <yglobal.h>
#include <ykbmainwidget.h>
#include <ylabel.h>
#include <ysoftkey.h>
#include <ystatedialog.h>

#include "session/session_fixture.h"

class Popup : public Session
{
protected:
    void SetUp() override
    {
        Session::SetUp();
        initialise();
    }

    // Opens link 5 with its popup.
    void open()
    {
        Session::open();
        ASSERT_NE(popup(), nullptr);
        pass();
    }

    std::vector<YLabel*> labels()
    {
        std::vector<YLabel*> found;
        for (QObject* child : popup()->children()) {
            if (auto* label = qobject_cast<YLabel*>(child))
                found.push_back(label);
        }
        return found;
    }
};

TEST_F(Popup, OpensTheLinkForTheUtf8Name)
{
    EXPECT_EQ(manager->openLink(QString::fromUtf8("Büro")), 5);
    EXPECT_EQ(napi.take(), "OpenLink(Büro)");
}

TEST_F(Popup, IsShownWhileTheOpeningIsPending)
{
    open();
    EXPECT_EQ(popupCount(), 1);
    EXPECT_TRUE(popup()->isVisible());
    EXPECT_STREQ(popup()->metaObject()->className(), "YStateDialog");
    EXPECT_TRUE(popup()->inherits("YPopup"));
}

TEST_F(Popup, ReturnsTheErrorOfAFailedOpeningAndShowsNothing)
{
    for (int error : {-1, -152, int(NAPI_ERR_NO_PROFILE)}) {
        napi.openResult = error;
        EXPECT_EQ(error, manager->openLink("Internet"));
        EXPECT_EQ(popup(), nullptr);
    }
}

TEST_F(Popup, HasTheSmallDialogsRectangle)
{
    open();
    const QRect dialog = YGlobal::getDlgSmallR();
    EXPECT_EQ(dialog.size(), popup()->size());
    EXPECT_EQ(QRect(QPoint(0, 0), dialog.size()), YGlobal::mapFromGlobalR(popup(), dialog));
}

TEST_F(Popup, HasAnIconAreaWithoutContent)
{
    open();
    ASSERT_EQ(labels().size(), 2u);
    EXPECT_EQ(QRect(8, 11, 50, 50), labels()[0]->geometry());
    EXPECT_TRUE(labels()[0]->text().isEmpty());
}

TEST_F(Popup, HasAnEmptyTextBesideTheIconArea)
{
    open();
    QRect content = YGlobal::getDlgSmallConR();
    content.setLeft(content.left() + 64);
    ASSERT_EQ(labels().size(), 2u);
    EXPECT_EQ(YGlobal::mapFromGlobalR(popup(), content), labels()[1]->geometry());
    EXPECT_TRUE(labels()[1]->text().isEmpty());
}

TEST_F(Popup, TakesATextThroughSetStateString)
{
    open();
    popup()->setStateString("Signing in");
    EXPECT_EQ(QString("Signing in"), labels()[1]->text());
    EXPECT_TRUE(labels()[0]->text().isEmpty());
}

TEST_F(Popup, HasOnlyTheCancelKey)
{
    open();
    EXPECT_FALSE(popup()->getSoftKey()->isButtonVisible(0));
    EXPECT_TRUE(popup()->getSoftKey()->isButtonVisible(1));
    EXPECT_EQ(QString("Cancel"), popup()->getSoftKey()->text(1));
}

TEST_F(Popup, KeepsKeysAndFingerFromThePageBelow)
{
    YKbMainWidget page(nullptr, nullptr, 0);
    auto* field = new QLineEdit(&page);
    page.setContentWidget(field);
    page.show();
    field->setFocus();
    const QPoint middle = field->mapTo(screen(), field->rect().center());
    press(Qt::Key_A);
    ASSERT_EQ(QString("a"), field->text().toLower());
    open();
    press(Qt::Key_B);
    tap(middle);
    press(Qt::Key_C);
    EXPECT_EQ(field->text().length(), 1);
    manager->closeLink(5);
    press(Qt::Key_D);
    EXPECT_EQ(field->text().length(), 2);
}

TEST_F(Popup, GoesBeforeConnectedIsEmitted)
{
    open();
    bool shownInside = true;
    log->inside = [&] { shownInside = popup() != nullptr; };
    deliver(indication(NAPI_IND_CONNECTED, 5));
    EXPECT_EQ(log->take(), "connected(5)");
    EXPECT_FALSE(shownInside);
    EXPECT_EQ(napi.take(), "");
}

TEST_F(Popup, GoesBeforeOpenFailedIsEmittedWithTheCauses)
{
    open();
    bool shownInside = true;
    log->inside = [&] { shownInside = popup() != nullptr; };
    deliver(indication(NAPI_IND_OPEN_FAILED, 5));
    EXPECT_EQ(log->take(), "openFailed(5,41394,772)");
    EXPECT_FALSE(shownInside);
}

TEST_F(Popup, StaysForOtherTypesOfItsLinkAndEmitsNothing)
{
    open();
    for (uint16_t type : std::initializer_list<uint16_t>{0, 2, 3, 4, 15, 18, 31, 32, 33, 65535}) {
        deliver(indication(type, 5));
        EXPECT_EQ(log->take(), "") << type;
        EXPECT_NE(popup(), nullptr) << type;
    }
}

TEST_F(Popup, StaysForType3OfLink0WhenLink0IsPending)
{
    napi.openResult = 0;
    EXPECT_EQ(manager->openLink("Internet"), 0);
    deliver(indication(NAPI_IND_DEFAULT_LINK, 0));
    EXPECT_EQ(log->take(), "");
    EXPECT_NE(popup(), nullptr);
}

TEST_F(Popup, StaysForTheOutcomeOfOtherLinksAndPassesItOn)
{
    open();
    deliver(indication(NAPI_IND_CONNECTED, 6));
    deliver(indication(NAPI_IND_OPEN_FAILED, 4));
    deliver(indication(NAPI_IND_BROKEN, 7));
    deliver(indication(NAPI_IND_DEFAULT_LINK, 0));
    EXPECT_EQ(log->take(), "connected(6) openFailed(4,41394,772) broken(7) connected(0)");
    EXPECT_NE(popup(), nullptr);
}

TEST_F(Popup, LetsBrokenThroughOnceTheLinkIsUp)
{
    open();
    deliver(indication(NAPI_IND_CONNECTED, 5));
    deliver(indication(NAPI_IND_BROKEN, 5));
    EXPECT_EQ(log->take(), "connected(5) broken(5)");
}

TEST_F(Popup, IsNotShownASecondTimeWhileOneIsPending)
{
    open();
    napi.openResult = 6;
    EXPECT_EQ(manager->openLink("Second"), 6);
    EXPECT_EQ(napi.take(), "OpenLink(Second)");
    EXPECT_EQ(popupCount(), 1);
    deliver(indication(NAPI_IND_CONNECTED, 6));
    EXPECT_EQ(log->take(), "connected(6)");
    EXPECT_EQ(popupCount(), 1);
    deliver(indication(NAPI_IND_CONNECTED, 5));
    EXPECT_EQ(popupCount(), 0);
}

TEST_F(Popup, OfLink0IsPendingAsAnyOther)
{
    napi.openResult = 0;
    EXPECT_EQ(manager->openLink("First"), 0);
    napi.openResult = 6;
    EXPECT_EQ(manager->openLink("Second"), 6);
    EXPECT_EQ(popupCount(), 1);
    deliver(indication(NAPI_IND_CONNECTED, 6));
    EXPECT_EQ(log->take(), "connected(6)");
    EXPECT_EQ(popupCount(), 1);
    deliver(indication(NAPI_IND_CONNECTED, 0));
    EXPECT_EQ(log->take(), "connected(0)");
    EXPECT_EQ(popupCount(), 0);
}

TEST_F(Popup, IsShownAgainForTheNextOpening)
{
    open();
    deliver(indication(NAPI_IND_CONNECTED, 5));
    EXPECT_EQ(popupCount(), 0);
    open();
    EXPECT_EQ(popupCount(), 1);
}

TEST_F(Popup, GoesWithCloseLinkOfItsLinkWithoutASignal)
{
    open();
    EXPECT_EQ(manager->closeLink(5), 0);
    EXPECT_EQ(popupCount(), 0);
    EXPECT_EQ(napi.take(), "CloseLink(5)");
    EXPECT_EQ(log->take(), "");
    open();
    EXPECT_EQ(popupCount(), 1);
}

TEST_F(Popup, StaysWhenAnotherLinkIsClosed)
{
    open();
    EXPECT_EQ(manager->closeLink(6), 0);
    EXPECT_EQ(popupCount(), 1);
}

TEST_F(Popup, GoesWithTheManagerThenTheNetworkApiThenTheSocket)
{
    open();
    const int descriptor = manager->socket();
    bool popupGone = false;
    bool socketOpen = false;
    napi.atFini = [&] {
        popupGone = popupCount() == 0;
        socketOpen = ::fcntl(descriptor, F_GETFD) >= 0;
    };
    manager.reset();
    EXPECT_EQ(napi.take(), "Fini()");
    EXPECT_TRUE(popupGone);
    EXPECT_TRUE(socketOpen);
    EXPECT_EQ(::fcntl(descriptor, F_GETFD), -1);
}

TEST_F(Popup, GoesWithAManagerThatAReceiverDeletes)
{
    const struct
    {
        const char* name;
        NapiIndication message;
        const char* signal;
    } rows[] = {
        {"link is up", indication(NAPI_IND_CONNECTED, 5), "connected(5)"},
        {"link failed", indication(NAPI_IND_OPEN_FAILED, 5), "openFailed(5,41394,772)"},
        {"other link is up", indication(NAPI_IND_CONNECTED, 6), "connected(6)"},
        {"other link failed", indication(NAPI_IND_OPEN_FAILED, 4), "openFailed(4,41394,772)"},
        {"other link broke", indication(NAPI_IND_BROKEN, 7), "broken(7)"},
        {"default link is up", indication(NAPI_IND_DEFAULT_LINK, 0), "connected(0)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        open();
        log->inside = [this] { manager.reset(); };
        const NapiIndication messages[] = {row.message, indication(NAPI_IND_CONNECTED, 8)};
        napi.sendBytes(messages, sizeof messages);
        pass();
        EXPECT_EQ(row.signal, log->take());
        EXPECT_EQ(napi.take(), "Fini()");
        EXPECT_EQ(popupCount(), 0);
        TearDown();
        SetUp();
    }
}

TEST_F(Popup, IsForgottenByOpenLinkNoDialogAndStaysOnTheScreen)
{
    open();
    YStateDialog* forgotten = popup();
    EXPECT_EQ(manager->openLinkNoDialog("Quiet"), 5);
    EXPECT_EQ(forgotten, popup());
    deliver(indication(NAPI_IND_CONNECTED, 5));
    EXPECT_EQ(log->take(), "connected(5)");
    EXPECT_EQ(forgotten, popup());
    delete forgotten;
}

TEST_F(Popup, IsForgottenByOpenLinkNoDialogEvenWhenThatFails)
{
    open();
    YStateDialog* forgotten = popup();
    napi.openResult = -1;
    EXPECT_EQ(manager->openLinkNoDialog("Quiet"), -1);
    EXPECT_EQ(manager->closeLink(5), 0);
    EXPECT_EQ(forgotten, popup());
    delete forgotten;
}
