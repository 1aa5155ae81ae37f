// Forms: the walk through the rows, and what is in sight, by keys and by finger.
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>

#include <toolkit/look/ytheme.h>
#include <ysegmentfield.h>

#include "toolkit/form_page.h"

namespace {

constexpr Qt::Key down = Qt::Key_Down;
constexpr Qt::Key up = Qt::Key_Up;
constexpr Qt::Key enter = Qt::Key_Return;

struct Walk
{
    const char* name;
    const char* rows; // see FormTest::addRows()
    int from;
    std::vector<Qt::Key> keys;
    int to;
};

std::ostream& operator<<(std::ostream& out, const Walk& walk)
{
    return out << walk.name;
}

class FormWalk : public FormTest, public ::testing::WithParamInterface<Walk>
{};

TEST_P(FormWalk, EndsAtItsRow)
{
    addRows(GetParam().rows);
    row(GetParam().from)->setFocus();
    open();
    for (const Qt::Key key : GetParam().keys)
        press(key);
    EXPECT_EQ(focusedRow(), GetParam().to);
}

// The finger goes to the same rows, wherever the keys have come from.
TEST_P(FormWalk, EndsAtTheRowThatIsTapped)
{
    addRows(GetParam().rows);
    row(GetParam().from)->setFocus();
    open();
    later([this] {
        // The dialog of a choice that was tapped.
        if (activeLayer() != page.get())
            tap(qobject_cast<YPopup*>(activeLayer())
                    ->getSoftKey()
                    ->findChildren<QPushButton*>()[1]);
    });
    tap(row(GetParam().to));
    settle();
    EXPECT_EQ(focusedRow(), GetParam().to);
    EXPECT_EQ(activeLayer(), page.get());
}

INSTANTIATE_TEST_SUITE_P(
    Walks, FormWalk,
    ::testing::Values(Walk{"Stays", "eee", 1, {}, 1}, Walk{"Down", "eee", 0, {down}, 1},
                      Walk{"DownTwice", "ecb", 0, {down, down}, 2}, Walk{"Up", "ecb", 2, {up}, 1},
                      Walk{"DownOverASeparator", "eseb", 0, {down}, 2},
                      Walk{"UpOverSeparators", "esse", 3, {up}, 0},
                      Walk{"DownAroundTheEnd", "eces", 2, {down}, 0},
                      Walk{"UpAroundTheStart", "secb", 1, {up}, 3},
                      Walk{"OnlyOneRow", "ses", 1, {down, up, down}, 1},
                      Walk{"ReturnGoesOnFromAText", "eec", 0, {enter}, 1},
                      Walk{"ReturnStaysAtTheLastText", "ee", 1, {enter}, 1},
                      Walk{"TabIsDown", "ese", 0, {Qt::Key_Tab}, 2},
                      Walk{"BacktabIsUp", "ese", 2, {Qt::Key_Backtab}, 0},
                      Walk{"LeftAndRightStay", "ece", 1, {Qt::Key_Left, Qt::Key_Right}, 1}),
    [](const auto& row) { return std::string(row.param.name); });

class Form : public FormTest
{};

TEST_F(Form, GivesTheFocusToItsFirstRowThatTakesIt)
{
    addRows("see");
    open();
    EXPECT_EQ(focusedRow(), 1);
}

TEST_F(Form, LeavesRoomBetweenItsLastRowAndTheKeysBelow)
{
    addRows("eeeeeeb");
    open();
    press(up);
    ASSERT_EQ(focusedRow(), 6);
    EXPECT_LE(placeOf(row(6)).bottom() + 4, form->height());
    // The button's own edge stands eight pixels above the keys.
    const QImage shown = screen()->grab().toImage();
    const int keys = screen()->height() - page->softKey()->height();
    for (int line = keys - 8; line < keys; ++line)
        EXPECT_EQ(YTheme::current().background, shown.pixelColor(120, line)) << line;
}

TEST_F(Form, ShowsItsFirstRowInSightWholeOnTheWayDown)
{
    addRows("eeececeecb");
    open();
    for (int i = 1; i < form->childCount() - 1; ++i) {
        press(down);
        ASSERT_EQ(focusedRow(), i);
        const int top = form->contentsY();
        const int end = form->contentsHeight() - form->height();
        bool isRowTop = false;
        for (int at = 0; at < form->childCount(); ++at)
            isRowTop = isRowTop || form->childY(row(at)) == top;
        EXPECT_TRUE(isRowTop || top == end) << i << " at " << top;
    }
}

TEST_F(Form, KnowsItsRowsInTheirOrder)
{
    addRows("ese");
    YLineEdit* between = addEdit();
    form->addChild(between, true, row(1));
    EXPECT_EQ(form->childCount(), 4);
    EXPECT_EQ(row(1), between);
    EXPECT_EQ(form->getPreviousChild(row(2)), between);
    EXPECT_EQ(form->getPreviousChild(row(0)), nullptr);
    EXPECT_EQ(form->getNextChild(row(3)), nullptr);
    EXPECT_EQ(form->getNextChild(page.get()), nullptr);
    EXPECT_EQ(form->getNextChild(nullptr), nullptr);
}

TEST_F(Form, ForgetsARowThatIsDeleted)
{
    addRows("eee");
    open();
    delete row(1);
    EXPECT_EQ(form->childCount(), 2);
    settle();
    EXPECT_EQ(form->childY(row(1)), row(0)->height());
}

TEST_F(Form, PassesOverHiddenRowsAndClosesTheirGap)
{
    addRows("eee");
    open();
    row(1)->hide();
    settle();
    press(down);
    EXPECT_EQ(focusedRow(), 2);
    EXPECT_EQ(form->childY(row(2)), row(0)->height());
}

TEST_F(Form, ShowsARowThatIsAddedWhileItIsShown)
{
    addRows("e");
    open();
    YLineEdit* added = addEdit();
    EXPECT_TRUE(added->isVisible());
    EXPECT_EQ(form->childY(added), row(0)->height());
}

TEST_F(Form, LaysARowOutAgainWhenItsLabelGrows)
{
    addRows("ee");
    open();
    const int before = form->childY(row(1));
    static_cast<YLineEdit*>(row(0))->setLabel(QString("A label of several lines ").repeated(4));
    settle();
    EXPECT_GT(form->childY(row(1)), before);
}

TEST_F(Form, AKeyThatIsHeldStopsAtTheEnd)
{
    addRows("eee");
    open();
    for (int i = 0; i < 5; ++i) {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier, QString(), i > 0);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &held);
    }
    EXPECT_EQ(focusedRow(), 2);
}

TEST_F(Form, GoesIntoTheFirstSegmentOfASegmentField)
{
    addRows("e");
    auto* field = new YSegmentField(form->viewport(), nullptr, 0, YSkinService::SegmentField);
    field->setNumSegments(4);
    form->addChild(field, true, nullptr);
    addEdit();
    open();
    press(down);
    EXPECT_TRUE(field->getField(0)->hasFocus());
    press(Qt::Key_Right);
    EXPECT_TRUE(field->getField(1)->hasFocus());
    press(down);
    EXPECT_EQ(focusedRow(), 2);
    press(up);
    EXPECT_TRUE(field->getField(0)->hasFocus());
}

class FormSight : public FormTest, public ::testing::WithParamInterface<QSize>
{
protected:
    void SetUp() override
    {
        FormTest::SetUp();
        addRows("ecesceebecesceebecesceebe");
        open();
        form->setFixedSize(GetParam());
    }

    bool focusInSight() const
    {
        return form->rect().contains(placeOf(QApplication::focusWidget()));
    }
};

TEST_P(FormSight, HasTheFocusedRowWholeAtEachStepDownAndUp)
{
    for (const Qt::Key key : {down, up}) {
        for (int step = 0; step < 25; ++step) {
            press(key);
            ASSERT_TRUE(focusInSight()) << "step " << step << ", row " << focusedRow();
        }
    }
}

TEST_P(FormSight, HasTheRowWholeThatIsTapped)
{
    // Whatever row lies at the lower edge, cut or not.
    for (int place = 0; place < form->contentsHeight(); place += form->height() / 2) {
        form->setContentsPos(0, place);
        for (int i = 0; i < form->childCount(); ++i) {
            auto* edit = qobject_cast<YLineEdit*>(row(i));
            const QRect seen = placeOf(row(i)) & form->rect();
            if (!edit || seen.height() < 4)
                continue;
            tap(form->mapTo(screen(), seen.center()));
            ASSERT_EQ(focusedRow(), i);
            ASSERT_TRUE(focusInSight()) << i;
        }
    }
}

TEST_P(FormSight, MovesNoFurtherThanItMust)
{
    press(down);
    EXPECT_EQ(form->contentsY(), 0);
}

TEST_P(FormSight, HasTheSeparatorAboveTheFocusedRow)
{
    row(5)->setFocus();
    row(4)->setFocus();
    EXPECT_TRUE(form->rect().contains(placeOf(row(3))));
}

INSTANTIATE_TEST_SUITE_P(Sizes, FormSight,
                         ::testing::Values(QSize(240, 254), QSize(240, 174), QSize(200, 220),
                                           QSize(176, 110)),
                         [](const auto& size) {
                             return std::to_string(size.param.width()) + "x" +
                                    std::to_string(size.param.height());
                         });

TEST_F(Form, KeepsAPositionThatIsSetBeforeItIsShown)
{
    addRows("eeeeeeeeeeee");
    form->setContentsPos(form->contentsX(), form->childY(row(3)));
    const int wanted = form->contentsY();
    EXPECT_EQ(wanted, form->childY(row(3)));
    row(3)->setFocus();
    open();
    EXPECT_EQ(form->contentsY(), wanted);
    EXPECT_EQ(placeOf(row(3)).top(), 0);
}

TEST_F(Form, KeepsItsPositionWhileThePageIsHidden)
{
    addRows("eeeeeeeeeeee");
    open();
    row(2)->setFocus();
    form->setContentsPos(0, 60);
    page->hide();
    EXPECT_EQ(form->contentsY(), 60);
    open();
    EXPECT_EQ(form->contentsY(), 60);
}

TEST_F(Form, ClampsPositionsToItsContents)
{
    addRows("eeeeeeeeeeee");
    open();
    form->setContentsPos(0, 100000);
    EXPECT_EQ(form->contentsY(), form->contentsHeight() - form->height());
    form->setContentsPos(0, -5);
    EXPECT_EQ(form->contentsY(), 0);
}

TEST_F(Form, TellsOfEachMove)
{
    addRows("eeeeeeeeeeee");
    open();
    QSignalSpy moves(form, SIGNAL(contentsMoving(int, int)));
    form->setContentsPos(0, 40);
    form->setContentsPos(0, 40);
    ASSERT_EQ(moves.count(), 1);
    EXPECT_EQ(moves[0], QVariantList({0, 40}));
}

TEST_F(Form, ShowsItsScrollIndicatorOnlyWhereThereIsSomethingToScroll)
{
    addRows("ee");
    open();
    auto shownBar = [this] {
        for (QScrollBar* found : form->findChildren<QScrollBar*>())
            if (found->orientation() == Qt::Vertical && found->isVisible())
                return true;
        return false;
    };
    EXPECT_FALSE(shownBar());
    EXPECT_EQ(row(0)->width(), form->width());
    addRows("eeeeee");
    settle();
    EXPECT_TRUE(shownBar());
    EXPECT_LT(row(0)->width(), form->width());
}

// A form of buttons that count their clicks.
class FormUnderAFinger : public FormTest
{
protected:
    void SetUp() override
    {
        FormTest::SetUp();
        addRows("bbbbbbbbbbbb");
        for (int i = 0; i < form->childCount(); ++i)
            QObject::connect(static_cast<YButton*>(row(i)), &YButton::clicked,
                             [this] { ++clicks; });
        open();
    }

    int clicks = 0;
};

TEST_F(FormUnderAFinger, FollowsItAndPressesNothing)
{
    drag(QPoint(120, 220), QPoint(120, 120));
    EXPECT_EQ(form->contentsY(), 100);
    drag(QPoint(120, 120), QPoint(120, 160));
    EXPECT_EQ(form->contentsY(), 60);
    for (int i = 0; i < form->childCount(); ++i)
        EXPECT_FALSE(static_cast<YButton*>(row(i))->isDown());
    EXPECT_EQ(clicks, 0);
}

TEST_F(FormUnderAFinger, LeavesSmallMovesToTheRow)
{
    drag(QPoint(120, 120), QPoint(120, 123));
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(form->contentsY(), 0);
}

TEST_F(Form, ComesBackToTheFocusedRowWithTheFirstKey)
{
    addRows("eeeeeeeeeeee");
    open();
    drag(QPoint(120, 220), QPoint(120, 60));
    ASSERT_FALSE(form->rect().contains(placeOf(row(0))));
    row(0)->setFocus();
    type("a");
    EXPECT_TRUE(form->rect().contains(placeOf(row(0))));
    EXPECT_EQ(static_cast<YLineEdit*>(row(0))->text(), "a");
}

TEST_F(Form, ScrollsWithTheKeysWhereNoRowTakesTheFocus)
{
    for (int i = 0; i < 12; ++i)
        addSeparator();
    open();
    form->viewport()->setFocus();
    press(down);
    EXPECT_GT(form->contentsY(), 0);
    press(up);
    EXPECT_EQ(form->contentsY(), 0);
}

} // namespace
