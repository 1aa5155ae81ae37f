// Pages that are hidden or deleted without the wizard being asked: it ends, and points to nothing
// that is gone.

#include <QApplication>
#include <QHideEvent>
#include <QPointer>
#include <QtTest/qtestspontaneevent.h>

#include <profilefunctions.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>
#include <ymessagedlg.h>

#include "wizard/world/wizard_fixture.h"

namespace {

const int closed = 2;

class Gone : public Wizard
{
protected:
    void TearDown() override
    {
        EXPECT_EQ(wizardPageCount(), 0);
        Wizard::TearDown();
    }

    static Steps page2() { return openPage2; }

    // A form with a fault, so that saving from page 2 shows a box.
    static Steps boxOverPage2()
    {
        return {openPage2, [] { editOf(wizardPage(2), "DNS 1:")->setText("no address"); },
                opening(save)};
    }
};

TEST_F(Gone, Page1HiddenAsAnyWidgetEndsTheWizardAsClosed)
{
    EXPECT_EQ(closed, create({[] { wizardPage(1)->QWidget::hide(); }}));
    EXPECT_EQ(closed, create({page2(), [] { wizardPage(1)->setVisible(false); }}));
}

TEST_F(Gone, Page1ClosedEndsTheWizardAsClosed)
{
    EXPECT_EQ(closed, create({[] { wizardPage(1)->close(); }}));
}

TEST_F(Gone, Page1DeletedLaterEndsTheWizardAsClosed)
{
    EXPECT_EQ(closed, create({[] { wizardPage(1)->deleteLater(); }}));
}

TEST_F(Gone, Page2HiddenAsAnyWidgetLeavesPage1)
{
    EXPECT_EQ(create({page2(), [] { wizardPage(2)->QWidget::hide(); },
                      [] { EXPECT_TRUE(wizardPage(1)->isVisible()); }, cancel}),
              1);
}

TEST_F(Gone, Page2DeletedEndsTheWizardAsClosed)
{
    EXPECT_EQ(closed, create({[] { delete wizardPage(2); }}));
    EXPECT_EQ(closed, create({page2(), [] { delete wizardPage(2); }}));
    EXPECT_EQ(closed, create({page2(), [] { wizardPage(2)->deleteLater(); }}));
    EXPECT_TRUE(napi.profiles.empty());
}

TEST_F(Gone, Page2DeletedMakesTheRestOfTheSlotsHarmless)
{
    EXPECT_EQ(closed, create({page2(), [] {
                                  YKbMainWidget* page1 = wizardPage(1);
                                  if (page1->metaObject()->className() !=
                                      std::string("DataConnection_NewWiz1"))
                                      return;
                                  delete wizardPage(2);
                                  QMetaObject::invokeMethod(page1, "slotGoToNext");
                              }}));
}

TEST_F(Gone, Page2DeletedWhileAFaultIsReadEndsTheWizardAsClosed)
{
    EXPECT_EQ(closed, create({boxOverPage2(), [] { delete wizardPage(2); }, dismiss}));
}

TEST_F(Gone, Page1HiddenWhileAFaultIsReadEndsTheWizardAsClosed)
{
    EXPECT_EQ(closed, create({boxOverPage2(), [] { wizardPage(1)->QWidget::hide(); }, dismiss}));
}

// What plays the phone puts the screen into a window of its own.
class ScreenInAWindow : public Gone
{
protected:
    void SetUp() override
    {
        Gone::SetUp();
        window = new QWidget;
        screen()->setParent(window);
        screen()->show();
        window->show();
    }

    void TearDown() override
    {
        if (window)
            screen()->setParent(nullptr);
        else
            delete screen(); // one that was made since
        delete window;
        Gone::TearDown();
        // There from before the next test.
        screen();
    }

    QPointer<QWidget> window;
};

TEST_F(ScreenInAWindow, ClosedEndsTheWizardAsClosed)
{
    EXPECT_EQ(closed, create({[this] { window->close(); }}));
    window->show();
    EXPECT_EQ(closed, create({page2(), [this] { window->close(); }}));
}

TEST_F(ScreenInAWindow, HiddenEndsTheWizardAsClosed)
{
    EXPECT_EQ(closed, create({[this] { window->hide(); }}));
}

TEST_F(ScreenInAWindow, ClosedWhileAFaultIsReadEndsTheWizardAsClosed)
{
    EXPECT_EQ(closed, create({boxOverPage2(), [this] { window->close(); }}));
}

TEST_F(ScreenInAWindow, IconifiedLeavesTheWizard)
{
    EXPECT_EQ(create({[this] {
                          QHideEvent event;
                          QSpontaneKeyEvent::setSpontaneous(&event);
                          qApp->notify(wizardPage(1), &event);
                      },
                      cancel}),
              1);
}

TEST_F(ScreenInAWindow, DeletedEndsTheWizardAsClosed)
{
    EXPECT_EQ(closed, create({[this] { delete window; }}));
}

} // namespace
