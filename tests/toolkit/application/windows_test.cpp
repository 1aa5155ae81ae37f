// Popups and the program's windows that are not on the phone's screen.
#include <QDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <toolkit/yscreen.h>
#include <ykbmainwidget.h>
#include <ypopup.h>

#include "common/gui_test.h"

namespace {

class OtherWindows : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        other = std::make_unique<QPushButton>("A window of the program");
        other->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(other.get()));
    }

    void TearDown() override
    {
        other.reset();
        GuiTest::TearDown();
    }

    // How often the other window's button is clicked by a tap and by a key.
    int clicks(QWidget* button)
    {
        QSignalSpy spy(button, SIGNAL(clicked()));
        QWindow* window = button->window()->windowHandle();
        QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier,
                          button->mapTo(button->window(), button->rect().center()));
        button->window()->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        QTest::keyClick(window, Qt::Key_Space);
        return static_cast<int>(spy.count());
    }

    static std::unique_ptr<YPopup> popup(bool modal = true)
    {
        return std::make_unique<YPopup>(0, nullptr, nullptr, modal, YPopup::PlainStyle, 0);
    }

    std::unique_ptr<QPushButton> other;
};

TEST_F(OtherWindows, ReactAgainOnlyWhenTheLastModalPopupIsGone)
{
    auto first = popup();
    auto second = popup();
    EXPECT_EQ(clicks(other.get()), 2);
    first->show();
    second->show();
    EXPECT_EQ(clicks(other.get()), 0);
    second->hide();
    EXPECT_EQ(clicks(other.get()), 0);
    first->hide();
    EXPECT_EQ(clicks(other.get()), 2);
}

TEST_F(OtherWindows, AreServedBesidePagesAndPopupsThatBlockNothing)
{
    YKbMainWidget page(nullptr, nullptr, 0);
    page.show();
    EXPECT_EQ(clicks(other.get()), 2);
    auto free = popup(false);
    free->show();
    EXPECT_EQ(clicks(other.get()), 2);
}

TEST_F(OtherWindows, AButtonThatOpensAPopupComesUpAgain)
{
    auto modal = popup();
    QObject::connect(other.get(), SIGNAL(pressed()), modal.get(), SLOT(show()));
    const QPoint middle = other->rect().center();
    QTest::mousePress(other->windowHandle(), Qt::LeftButton, Qt::NoModifier, middle);
    ASSERT_TRUE(modal->isVisible());
    QTest::mouseRelease(other->windowHandle(), Qt::LeftButton, Qt::NoModifier, middle);
    EXPECT_FALSE(other->isDown());
}

TEST_F(OtherWindows, AModalDialogAboveAPopupIsServed)
{
    auto modal = popup();
    modal->show();
    QDialog dialog;
    dialog.setModal(true);
    QPushButton button("Yes", &dialog);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    EXPECT_EQ(clicks(&button), 2);
}

TEST_F(OtherWindows, APopupAboveAModalDialogIsServed)
{
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    auto modal = popup();
    later([] { press(Qt::Key_F1); });
    EXPECT_EQ(modal->exec(), YPopup::Accepted);
}

TEST_F(OtherWindows, TheWidgetAroundTheScreenIsServed)
{
    YScreen* screen = YScreen::instance();
    QWidget phone;
    QPushButton key("A key of the phone", &phone);
    screen->setParent(&phone);
    screen->move(0, key.height());
    screen->show();
    phone.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&phone));
    auto modal = popup();
    modal->show();
    EXPECT_EQ(clicks(&key), 2);
    modal.reset();
    screen->setParent(nullptr);
}

} // namespace
