// Lists and their items.
#include <memory>

#include <QListView>
#include <QPixmap>
#include <QScrollBar>
#include <QSignalSpy>

#include <ylistbox.h>
#include <ypopup.h>

#include "common/gui_test.h"

namespace {

class List : public GuiTest
{
protected:
    YPopup popup{0, nullptr, nullptr, true, YPopup::PlainStyle, 0};
    YListBox list{&popup, nullptr, 0};

    YListBoxItem* add(const QString& text, int index = -1)
    {
        auto* item = new YListBoxItem(&list, "%R%M240");
        item->appendSubItem(1, text, false, nullptr);
        list.insertItem(item, index, true);
        return item;
    }

    QStringList texts() const
    {
        QStringList result;
        for (int row = 0; row < list.count(); ++row)
            result << list.item(row)->getSubItemText(1, 0, false);
        return result;
    }

    void open()
    {
        popup.setGeometry(screen()->rect());
        list.setGeometry(0, 0, 240, 200);
        popup.show();
        list.setFocus();
    }
};

TEST_F(List, StartsEmptyWithoutACurrentOrACheckedRow)
{
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.currentItem(), -1);
    EXPECT_EQ(list.getCheckedItem(), nullptr);
    EXPECT_EQ(list.item(0), nullptr);
}

TEST_F(List, AnItemIsNoRowUntilItIsInserted)
{
    new YListBoxItem(&list, "%R%M240");
    EXPECT_EQ(list.count(), 0);
}

struct Insertion
{
    const char* name;
    int index;
    QStringList order;
};

std::ostream& operator<<(std::ostream& out, const Insertion& row)
{
    return out << row.name;
}

class ListInsertion : public List, public ::testing::WithParamInterface<Insertion>
{};

TEST_P(ListInsertion, PutsTheItemThere)
{
    add("a");
    add("b");
    add("new", GetParam().index);
    EXPECT_EQ(texts(), GetParam().order);
}

INSTANTIATE_TEST_SUITE_P(Places, ListInsertion,
                         ::testing::Values(Insertion{"MinusOneIsTheEnd", -1, {"a", "b", "new"}},
                                           Insertion{"Front", 0, {"new", "a", "b"}},
                                           Insertion{"Middle", 1, {"a", "new", "b"}},
                                           Insertion{"JustBehindTheLast", 2, {"a", "b", "new"}},
                                           Insertion{"FarBehindTheLast", 99, {"a", "b", "new"}}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(List, InsertingARowAgainMovesIt)
{
    add("a");
    YListBoxItem* b = add("b");
    list.insertItem(b, 0, true);
    EXPECT_EQ(texts(), (QStringList{"b", "a"}));
}

TEST_F(List, ANullItemIsNotInserted)
{
    list.insertItem(nullptr, -1, true);
    EXPECT_EQ(list.count(), 0);
}

TEST_F(List, DeletingAnItemTakesItsRowAway)
{
    YListBoxItem* a = add("a");
    add("b");
    list.checkItem(a, true);
    delete a;
    EXPECT_EQ(texts(), QStringList{"b"});
    EXPECT_EQ(list.getCheckedItem(), nullptr);
}

TEST_F(List, RemovesOneRowOrAll)
{
    add("a");
    add("b");
    add("c");
    list.removeItem(1);
    list.removeItem(17);
    EXPECT_EQ(texts(), (QStringList{"a", "c"}));
    list.clear();
    EXPECT_EQ(list.count(), 0);
}

TEST_F(List, ChecksOneRowAtATime)
{
    YListBoxItem* a = add("a");
    YListBoxItem* b = add("b");
    list.checkItem(a, true);
    EXPECT_TRUE(a->isChecked());
    list.checkItem(b, true);
    EXPECT_FALSE(a->isChecked());
    EXPECT_EQ(list.getCheckedItem(), b);
}

TEST_F(List, ChecksByIndexAndMakesTheRowCurrent)
{
    add("a");
    YListBoxItem* b = add("b");
    list.checkItem(1, true);
    EXPECT_EQ(list.getCheckedItem(), b);
    EXPECT_EQ(list.currentItem(), 1);
}

TEST_F(List, UncheckingLeavesTheCursorAndNoChoice)
{
    YListBoxItem* a = add("a");
    YListBoxItem* b = add("b");
    list.checkItem(b, true);
    list.checkItem(a, false);
    EXPECT_EQ(list.getCheckedItem(), b) << "another row's mark is not touched";
    list.checkItem(b, false);
    EXPECT_EQ(list.getCheckedItem(), nullptr);
    EXPECT_EQ(list.currentItem(), 1);
}

TEST_F(List, IgnoresRowsThatDoNotExist)
{
    add("a");
    list.checkItem(5, true);
    list.checkItem(-1, true);
    list.checkItem(static_cast<YListBoxItem*>(nullptr), true);
    list.setCurrentItem(5);
    EXPECT_EQ(list.getCheckedItem(), nullptr);
    EXPECT_EQ(list.currentItem(), -1);
    EXPECT_EQ(list.item(-1), nullptr);
    EXPECT_EQ(list.item(1), nullptr);
}

TEST_F(List, FindsTheRowOfAnItem)
{
    YListBoxItem* a = add("a");
    YListBoxItem* b = add("b");
    EXPECT_EQ(list.index(a), 0);
    EXPECT_EQ(list.index(b), 1);
    EXPECT_EQ(list.index(nullptr), -1);
}

TEST_F(List, AnItemKeepsItsReservedData)
{
    YListBoxItem* a = add("a");
    EXPECT_EQ(a->getReservedData(), 0U);
    a->setReservedData(0x301);
    add("b", 0);
    EXPECT_EQ(list.item(1)->getReservedData(), 0x301U);
}

TEST_F(List, AnItemKeepsTheTextsOfItsSubItems)
{
    auto* item = new YListBoxItem(&list, QString());
    item->appendSubItem(1, "first", "second", nullptr, 50, YListBoxItem::ShowSecond);
    item->appendSubItem(2, "other", true, nullptr);
    EXPECT_EQ(item->getSubItemText(1, 0, false), "first");
    EXPECT_EQ(item->getSubItemText(1, 1, false), "second");
    EXPECT_EQ(item->getSubItemText(2, 0, false), "other");
    EXPECT_EQ(item->getSubItemText(2, 1, false), QString());
    EXPECT_EQ(item->getSubItemText(3, 0, false), QString());
    EXPECT_EQ(item->getSubItemText(1, 2, false), QString());
    EXPECT_TRUE(item->type().isNull());
}

TEST_F(List, TheSameSubItemAgainTakesThePlaceOfTheOld)
{
    YListBoxItem* item = add("old");
    item->appendSubItem(1, "new", false, nullptr);
    EXPECT_EQ(item->getSubItemText(1, 0, false), "new");
}

TEST_F(List, UpAndDownMoveTheCursorAndStopAtTheEnds)
{
    add("a");
    add("b");
    add("c");
    list.checkItem(0, true);
    open();
    QSignalSpy highlighted(&list, SIGNAL(highlighted(int)));
    press(Qt::Key_Up);
    EXPECT_EQ(list.currentItem(), 0);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(list.currentItem(), 2);
    EXPECT_EQ(highlighted.count(), 2);
    EXPECT_EQ(list.index(list.getCheckedItem()), 0) << "the cursor alone chooses nothing";
}

struct Choice
{
    const char* name;
    std::function<void(YListBox&)> act;
};

std::ostream& operator<<(std::ostream& out, const Choice& row)
{
    return out << row.name;
}

class ListChoice : public List, public ::testing::WithParamInterface<Choice>
{};

TEST_P(ListChoice, MakesTheRowCurrentAndCheckedAndTells)
{
    add("a");
    add("b");
    list.checkItem(0, true);
    open();
    QSignalSpy selected(&list, SIGNAL(selected(int)));
    GetParam().act(list);
    EXPECT_EQ(list.currentItem(), 1);
    EXPECT_EQ(list.index(list.getCheckedItem()), 1);
    ASSERT_EQ(selected.count(), 1);
    EXPECT_EQ(selected[0][0].toInt(), 1);
}

INSTANTIATE_TEST_SUITE_P(Ways, ListChoice,
                         ::testing::Values(Choice{"Return",
                                                  [](YListBox&) {
                                                      GuiTest::press(Qt::Key_Down);
                                                      GuiTest::press(Qt::Key_Return);
                                                  }},
                                           Choice{"Enter",
                                                  [](YListBox&) {
                                                      GuiTest::press(Qt::Key_Down);
                                                      GuiTest::press(Qt::Key_Enter);
                                                  }},
                                           Choice{"Finger",
                                                  [](YListBox& box) {
                                                      const int first =
                                                          box.heightOfRows(240, 1000) / 2;
                                                      GuiTest::tap(QPoint(100, first + 10));
                                                  }}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(List, ALongNameIsShownWholeInARowOfSeveralLines)
{
    add("short");
    const int oneLine = list.heightOfRows(240, 1000);
    list.clear();
    add(QString(63, 'W'));
    EXPECT_GE(list.heightOfRows(240, 1000), 2 * oneLine);
    EXPECT_EQ(list.heightOfRows(240, 50), 50) << "no more than asked for";
}

TEST_F(List, TheCursorStaysInSight)
{
    for (int i = 0; i < 100; ++i)
        add(QString::number(i));
    list.checkItem(70, true);
    open();
    settle();
    auto* view = list.findChild<QListView*>();
    const auto isInSight = [&] {
        const QModelIndex index = view->model()->index(list.currentItem(), 0);
        return view->viewport()->rect().contains(view->visualRect(index));
    };
    EXPECT_TRUE(isInSight());
    for (int i = 0; i < 20; ++i)
        press(Qt::Key_Down);
    EXPECT_TRUE(isInSight());
}

TEST_F(List, AFingerScrollsWithoutChoosing)
{
    for (int i = 0; i < 100; ++i)
        add(QString::number(i));
    list.checkItem(0, true);
    open();
    settle();
    QScrollBar* bar = list.findChild<QListView*>()->verticalScrollBar();
    ASSERT_EQ(bar->value(), 0);
    QSignalSpy selected(&list, SIGNAL(selected(int)));
    drag(QPoint(100, 180), QPoint(100, 40));
    EXPECT_GT(bar->value(), 60);
    EXPECT_EQ(selected.count(), 0);
    EXPECT_EQ(list.index(list.getCheckedItem()), 0);
}

TEST_F(List, TenThousandRowsNeedNoWidgetsOfTheirOwn)
{
    for (int i = 0; i < 10000; ++i)
        add(QString::number(i));
    open();
    const auto widgets = list.findChildren<QWidget*>().size();
    for (int i = 0; i < 50; ++i)
        press(Qt::Key_PageDown);
    EXPECT_EQ(list.findChildren<QWidget*>().size(), widgets);
    EXPECT_LT(widgets, 20);
}

TEST_F(List, ARowTellsAReaderItsTextAndWhetherItIsChecked)
{
    add("a");
    auto* item = new YListBoxItem(&list, QString());
    item->appendSubItem(1, "Speed", "9600", nullptr, 50, YListBoxItem::ShowSecond);
    list.insertItem(item, -1, true);
    list.checkItem(item, true);
    const QAbstractItemModel* model = list.findChild<QListView*>()->model();
    EXPECT_EQ(model->index(1, 0).data().toString(), "Speed, 9600");
    EXPECT_EQ(model->index(1, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(model->index(0, 0).data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
}

// The row's pixels as text, so that two rows can be compared.
QImage pictureOf(YListBox& list, int row)
{
    const int height = list.heightOfRows(240, 10000) / list.count();
    return list.grab(QRect(0, row * height, 240, height)).toImage();
}

struct Sharing
{
    const char* name;
    YListBoxItem::ShowPriority priority;
    int whole; // which text is not cut
};

std::ostream& operator<<(std::ostream& out, const Sharing& row)
{
    return out << row.name;
}

class ListSharing : public List, public ::testing::WithParamInterface<Sharing>
{};

TEST_P(ListSharing, KeepsThisTextWhole)
{
    const QString wide = "A text that needs very nearly the row";
    const QString texts[2][2] = {{"whole", wide}, {wide, "whole"}};
    const int whole = GetParam().whole;
    auto* alone = new YListBoxItem(&list, "%M240");
    alone->appendSubItem(1, whole == 0 ? "whole" : QString(), whole == 1 ? "whole" : QString(),
                         nullptr, 50, YListBoxItem::ShowEvenly);
    list.insertItem(alone, -1, true);
    auto* both = new YListBoxItem(&list, "%M240");
    both->appendSubItem(1, texts[whole][0], texts[whole][1], nullptr, 50, GetParam().priority);
    list.insertItem(both, -1, true);
    open();
    settle();
    // The half of the row in which the short text stands looks as if it stood there alone.
    const QRect place(whole == 0 ? 0 : 190, 0, 45, 36);
    EXPECT_EQ(pictureOf(list, 0).copy(place), pictureOf(list, 1).copy(place));
}

INSTANTIATE_TEST_SUITE_P(Priorities, ListSharing,
                         ::testing::Values(Sharing{"First", YListBoxItem::ShowFirst, 0},
                                           Sharing{"Second", YListBoxItem::ShowSecond, 1}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(List, APictureIsCopied)
{
    auto* item = new YListBoxItem(&list, QString());
    {
        QPixmap picture(16, 16);
        picture.fill(Qt::red);
        item->appendSubItem(1, "with picture", false, &picture);
    }
    list.insertItem(item, -1, true);
    open();
    const QImage image = list.grab().toImage();
    bool red = false;
    for (int x = 0; x < 40; ++x)
        red = red || image.pixelColor(x, 18) == QColor(Qt::red);
    EXPECT_TRUE(red);
}

} // namespace
