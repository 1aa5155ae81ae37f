// A language that is read from right to left has the whole screen mirrored, but not what is always
// read from left to right.
#include <memory>

#include <QListView>
#include <QPushButton>
#include <QScrollBar>

#include <toolkit/look/ytheme.h>
#include <toolkit/ylook.h>
#include <ycombobox.h>
#include <yinputfield.h>
#include <ylabel.h>
#include <ylineedit.h>
#include <yoptionsmenu.h>
#include <ysegmentfield.h>
#include <ysingleselectdlg.h>
#include <yskinservice.h>
#include <ysoftkey.h>

#include "toolkit/form_page.h"

namespace {

class Mirror : public FormTest
{
protected:
    void SetUp() override
    {
        YLook::useLanguage("ar");
        FormTest::SetUp();
    }

    void TearDown() override
    {
        FormTest::TearDown();
        YLook::useLanguage(QString());
    }

    static QPushButton* button(const YSoftKey* keys, const QString& text)
    {
        for (QPushButton* each : keys->findChildren<QPushButton*>())
            if (each->text() == text)
                return each;
        return nullptr;
    }

    // Of the part of a picture that has a colour, the middle; -1 where there is none.
    static int middleOf(const QImage& picture, const QColor& colour)
    {
        int first = -1;
        int last = -1;
        for (int x = 0; x < picture.width(); ++x)
            for (int y = 0; y < picture.height(); ++y)
                if (picture.pixelColor(x, y) == colour) {
                    first = first < 0 ? x : first;
                    last = x;
                }
        return first < 0 ? -1 : (first + last) / 2;
    }
};

TEST_F(Mirror, TheFirstSoftKeyIsOnTheRight)
{
    YPopup popup(0, nullptr, nullptr, true, 0, 0);
    popup.getSoftKey()->setText(YSoftKey::Left, "one", 0);
    popup.getSoftKey()->setText(YSoftKey::Right, "two", 0);
    popup.show();
    EXPECT_GT(button(popup.getSoftKey(), "one")->x(), button(popup.getSoftKey(), "two")->x());
}

TEST_F(Mirror, TheKeyOnTheLeftDoesWhatIsWrittenOnTheLeft)
{
    YPopup popup(0, nullptr, nullptr, true, 0, 0);
    popup.show();
    press(Qt::Key_F2);
    EXPECT_EQ(popup.isVisible(), false);
    popup.show();
    later([] { press(Qt::Key_F2); });
    EXPECT_EQ(popup.exec(), YPopup::Accepted);
    later([] { press(Qt::Key_F1); });
    EXPECT_EQ(popup.exec(), YPopup::Cancelled);
}

TEST_F(Mirror, EscapeStillLeaves)
{
    YPopup popup(0, nullptr, nullptr, true, 0, 0);
    later([] { press(Qt::Key_Escape); });
    EXPECT_EQ(popup.exec(), YPopup::Cancelled);
}

TEST_F(Mirror, TheMarkOfARowIsOnTheRightAndTheIndicatorOnTheLeft)
{
    YSingleSelectDlg dialog("Title", QString(), nullptr, nullptr, true, 0, 0);
    dialog.getListBox()->setItemType("%R%M");
    for (int i = 0; i < 20; ++i) {
        auto* item = new YListBoxItem(dialog.getListBox(), QString());
        item->appendSubItem(1, "i", false, nullptr);
        dialog.getListBox()->insertItem(item, -1, true);
    }
    dialog.show();
    settle();
    const auto* view = dialog.findChild<QListView*>();
    const QImage row = dialog.grab().toImage().copy(0, dialog.getListBox()->y() + 2, dialog.width(),
                                                    YTheme::current().rowHeight - 4);
    // Within the ground of the chosen row, which has round corners.
    constexpr int edge = 16;
    const int half = row.width() / 2;
    const QColor mark = YTheme::current().onAccent;
    EXPECT_GE(middleOf(row.copy(half, 0, half - edge, row.height()), mark), 0)
        << "nothing is drawn on the right";
    EXPECT_EQ(middleOf(row.copy(edge, 0, half - edge, row.height()), mark), -1)
        << "something is drawn on the left";
    EXPECT_LT(view->verticalScrollBar()->mapTo(&dialog, QPoint()).x(), dialog.width() / 2);
}

TEST_F(Mirror, TheEyeOfAPasswordIsOnTheLeft)
{
    YLineEdit* edit = addEdit();
    edit->setEchoMode(QLineEdit::Password);
    edit->setText("secret");
    open();
    const QPoint corner = edit->mapTo(screen(), QPoint(0, edit->height()));
    tap(corner + QPoint(YTheme::current().margin + YTheme::current().eye / 2, -16));
    EXPECT_EQ(edit->getInputField()->echoMode(), QLineEdit::Normal);
}

TEST_F(Mirror, AnAddressIsReadFromLeftToRight)
{
    auto* field = new YSegmentField(form->viewport(), nullptr, 0, YSkinService::SegmentField);
    field->setLabel("Address:");
    field->setNumSegments(4);
    form->addChild(field, true, nullptr);
    open();
    for (int i = 1; i < 4; ++i)
        EXPECT_GT(field->getField(i)->x(), field->getField(i - 1)->x());
    EXPECT_GE(field->getField(3)->geometry().right(),
              field->width() - 1 - YTheme::current().margin);
    field->getField(0)->setMaxLength(3);
    field->getField(0)->setFocus();
    type("12");
    press(Qt::Key_Right);
    EXPECT_TRUE(field->getField(1)->hasFocus());
    press(Qt::Key_Left);
    EXPECT_TRUE(field->getField(0)->hasFocus());
}

TEST_F(Mirror, TheScrollIndicatorOfAFormIsOnTheLeft)
{
    for (int i = 0; i < 20; ++i)
        addEdit();
    open();
    for (const QScrollBar* bar : form->findChildren<QScrollBar*>())
        if (bar->isVisible()) {
            EXPECT_EQ(bar->mapTo(screen(), QPoint()).x(), 0);
        }
    EXPECT_EQ(form->getFirstChild()->mapTo(screen(), QPoint()).x(), YTheme::current().indicator);
}

TEST_F(Mirror, AMenuOpensAboveItsKey)
{
    YOptionsMenu menu(QRect(0, 0, 200, 280), page.get(), nullptr, 0, 0);
    menu.insertItem("i", nullptr, nullptr, nullptr, true, false, false, -1, -1, false);
    open();
    menu.show();
    settle();
    const QWidget* list = menu.findChild<QListView*>();
    EXPECT_EQ(list->mapTo(screen(), QPoint()).x(),
              screen()->width() - 200 + YTheme::current().menuEdge);
}

TEST_F(Mirror, ALabelBesideTheRingDoesNotLieOnIt)
{
    YPopup popup(0, nullptr, nullptr, true, YPopup::ProgressStyle, 0);
    YLabel label(&popup, nullptr, 0, 0);
    label.setGeometry(72, 11, 160, 50);
    label.setText("text");
    popup.show();
    settle();
    const QWidget* ring = popup.findChild<QWidget*>("busy");
    EXPECT_GT(ring->x(), popup.width() / 2);
    EXPECT_FALSE(ring->geometry().intersects(label.geometry()));
}

} // namespace
