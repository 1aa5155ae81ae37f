// A screen that gets another size while it shows something: a phone is turned, or an on-screen
// keyboard takes room.
#include <QListView>

#include <ymessagedlg.h>
#include <yoptionsmenu.h>
#include <ypopup.h>

#include "toolkit/form_page.h"

namespace {

// The phone is turned, and back again when the test ends.
class TurnedScreen : public FormTest
{
protected:
    void SetUp() override
    {
        FormTest::SetUp();
        allowWarnings("propagateSizeHints"); // what a screen offscreen has nobody to tell
    }

    void TearDown() override
    {
        give(QSize(240, 320));
        FormTest::TearDown();
    }

    static void give(const QSize& size)
    {
        screen()->setFixedSize(size);
        settle();
    }
};

} // namespace

TEST_F(TurnedScreen, APageFillsIt)
{
    page->show();
    give(QSize(320, 240));
    EXPECT_EQ(page->geometry(), QRect(0, 0, 320, 240));
}

TEST_F(TurnedScreen, APageThatWasHiddenMeanwhileFillsIt)
{
    give(QSize(320, 240));
    page->show();
    EXPECT_EQ(page->geometry(), QRect(0, 0, 320, 240));
}

TEST_F(TurnedScreen, AMessageLiesAtItsLowerEdgeInItsWholeWidth)
{
    YMessageDlg message("Title", "Text", YMessageDlg::Question, 0, nullptr, nullptr, true, 0U);
    message.show();
    give(QSize(320, 240));
    EXPECT_EQ(message.geometry().bottom(), 239);
    EXPECT_EQ(message.width(), 320);
}

TEST_F(TurnedScreen, APopupHasItsFirstPlaceWhenTheScreenIsTurnedBack)
{
    YPopup popup(0, nullptr, nullptr, true, YPopup::ProgressStyle, 0);
    popup.show();
    const QRect place = popup.geometry();
    give(QSize(320, 240));
    EXPECT_EQ(popup.geometry().bottom(), 239);
    give(QSize(240, 320));
    EXPECT_EQ(popup.geometry(), place);
}

TEST_F(TurnedScreen, AMenuThatHadLittleRoomHasItsOwnAgain)
{
    page->show();
    YOptionsMenu menu(QRect(0, 40, 200, 246), page.get(), nullptr, 0, 0);
    for (int item = 0; item < 6; ++item)
        menu.insertItem("An item", nullptr, nullptr, nullptr, true, false, false, -1, -1, false);
    menu.show();
    const auto* list = menu.findChild<QListView*>();
    ASSERT_NE(list, nullptr);
    const QRect before = list->geometry();
    give(QSize(240, 200));
    EXPECT_GE(list->geometry().top(), 0);
    EXPECT_LT(list->geometry().bottom(), 200);
    give(QSize(240, 320));
    EXPECT_EQ(list->geometry(), before);
}

TEST_F(TurnedScreen, TheRowThatIsTypedIntoStaysInSight)
{
    std::vector<YLineEdit*> rows;
    for (int row = 0; row < 8; ++row)
        rows.push_back(addEdit());
    open();
    rows[3]->setFocus();
    give(QSize(240, 180));
    const int top = rows[3]->mapTo(page.get(), QPoint()).y();
    EXPECT_GE(top, form->y());
    EXPECT_LE(top + rows[3]->height(), form->geometry().bottom() + 1);
}
