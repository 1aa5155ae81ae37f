// What is left for a finger beside the rows: the keys and the menu of page 2, and the dialog of a
// connection that was not found.

#include <QAbstractItemView>

#include <profilefunctions.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>
#include <yoptionsmenu.h>

#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

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
        EXPECT_EQ(focusOf(wizardPage(1)), "Profile Name:*");
        EXPECT_EQ(rightKeyOf(wizardPage(1)), "Cancel");
    }
};

TEST_F(Finger, OnTheRightKeyOfPageTwoGoesBack)
{
    EXPECT_EQ(edit("Old", {openPage2,
                           [] {
                               ASSERT_EQ(rightKeyOf(wizardPage(2)), "Cancel");
                               tapRightKey();
                           },
                           expectToBeBack, tapRightKey}),
              1);
    EXPECT_EQ((recorder::Calls{"valid Old", "read Old", "log: click the exibition button\n"}),
              take());
}

TEST_F(Finger, OnTheMenuOfPageTwoGoesBack)
{
    EXPECT_EQ(edit("Old", {openPage2, tapLeftKey,
                           [] {
                               auto* menu = qobject_cast<YOptionsMenu*>(activeLayer());
                               ASSERT_TRUE(menu);
                               EXPECT_EQ(menu->count(), 1);
                               EXPECT_EQ(menu->text(0).toStdString(), "Cancel");
                               tap(QPoint(40, menu->y() + menu->height() - 50));
                           },
                           expectToBeBack, tapRightKey}),
              1);
}

TEST_F(Finger, OnTheFirstRowOpensTheWizard)
{
    name = "kept";
    EXPECT_EQ(run(getProfileIfNoFound, {[] { tapItem(0); }, [] {},
                                        [] {
                                            ASSERT_TRUE(wizardPage(1));
                                            EXPECT_EQ(titleOf(wizardPage(1)), "Connection Setup");
                                            tapRightKey();
                                        }}),
              1);
    EXPECT_EQ(name.toStdString(), "kept");
}

TEST_F(Finger, OnTheSecondRowLetsTheUserChoose)
{
    EXPECT_EQ(run(getProfileIfNoFound, {[] { tapItem(1); }, [] {}, [] { tapItem(0); }}), 0);
    EXPECT_EQ(name.toStdString(), "Old");
    EXPECT_EQ(wizardPageCount(), 0);
}

TEST_F(Finger, OnCancelOfTheNotFoundDialogGivesOne)
{
    name = "kept";
    EXPECT_EQ(run(getProfileIfNoFound, {tapRightKey}), 1);
    EXPECT_EQ(name.toStdString(), "kept");
    EXPECT_EQ(recorder::Calls(), take());
    EXPECT_EQ(wizardPageCount(), 0);
}

} // namespace
