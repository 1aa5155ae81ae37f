// What is left for a finger beside the rows: the keys and the menu of page 2, and the dialog of a
// connection that was not found.

#include <QAbstractItemView>

#include <profilefunctions.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>
#include <yoptionsmenu.h>

#include "wizard/record_bytes.h"
#include "wizard/wizard_fixture.h"

namespace {

class Finger : public Wizard
{
protected:
    void SetUp() override
    {
        Wizard::SetUp();
        setDefaultPreference("2");
        napi.profiles["Old"] = RecordBytes().byte(1, 1).word(4, 0x400).text(8, "a").record();
    }

    static void tapLeftKey() { tap(QPoint(20, screen()->height() - 8)); }
    static void tapRightKey() { tap(QPoint(screen()->width() - 20, screen()->height() - 8)); }

    static void tapItem(int item)
    {
        auto* list = activeLayer()->findChild<QAbstractItemView*>();
        ASSERT_TRUE(list);
        const QRect row = list->visualRect(list->model()->index(item, 0));
        ASSERT_TRUE(list->viewport()->rect().contains(row.center()));
        tap(list->viewport()->mapTo(screen(), row.center()));
    }

    static void expectToBeBack()
    {
        ASSERT_TRUE(wizardPage(2)) << "the wizard is over";
        EXPECT_FALSE(wizardPage(2)->isVisible());
        EXPECT_EQ(wizardPage(1), activeLayer());
        EXPECT_EQ("Profile Name:*", focusOf(wizardPage(1)));
        EXPECT_EQ("Cancel", rightKeyOf(wizardPage(1)));
    }
};

TEST_F(Finger, OnTheRightKeyOfPageTwoGoesBack)
{
    EXPECT_EQ(1, edit("Old", {openPage2,
                              [] {
                                  ASSERT_EQ("Cancel", rightKeyOf(wizardPage(2)));
                                  tapRightKey();
                              },
                              expectToBeBack, tapRightKey}));
    EXPECT_EQ((recorder::Calls{"valid Old", "read Old", "log: click the exibition button\n"}),
              take());
}

TEST_F(Finger, OnTheMenuOfPageTwoGoesBack)
{
    EXPECT_EQ(1, edit("Old", {openPage2, tapLeftKey,
                              [] {
                                  auto* menu = qobject_cast<YOptionsMenu*>(activeLayer());
                                  ASSERT_TRUE(menu);
                                  EXPECT_EQ(1, menu->count());
                                  EXPECT_EQ("Cancel", menu->text(0).toStdString());
                                  tap(QPoint(40, menu->y() + menu->height() - 50));
                              },
                              expectToBeBack, tapRightKey}));
}

TEST_F(Finger, OnTheFirstRowOpensTheWizard)
{
    name = "kept";
    EXPECT_EQ(1, run(getProfileIfNoFound, {[] { tapItem(0); }, [] {},
                                           [] {
                                               ASSERT_TRUE(wizardPage(1));
                                               EXPECT_EQ("Connection Setup",
                                                         titleOf(wizardPage(1)));
                                               tapRightKey();
                                           }}));
    EXPECT_EQ("kept", name.toStdString());
}

TEST_F(Finger, OnTheSecondRowLetsTheUserChoose)
{
    EXPECT_EQ(0, run(getProfileIfNoFound, {[] { tapItem(1); }, [] {}, [] { tapItem(0); }}));
    EXPECT_EQ("Old", name.toStdString());
    EXPECT_EQ(0, wizardPageCount());
}

TEST_F(Finger, OnCancelOfTheNotFoundDialogGivesOne)
{
    name = "kept";
    EXPECT_EQ(1, run(getProfileIfNoFound, {tapRightKey}));
    EXPECT_EQ("kept", name.toStdString());
    EXPECT_EQ(recorder::Calls(), take());
    EXPECT_EQ(0, wizardPageCount());
}

} // namespace
