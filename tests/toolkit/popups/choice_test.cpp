// Combo boxes and buttons: choosing and pressing by keys and by finger, and rows switched off.
#include <QKeyEvent>
#include <QSignalSpy>

#include "toolkit/form_page.h"

namespace {

enum class By { Keys, Finger };

struct Choice
{
    const char* name;
    By by;
    int from;
    int to;
};

std::ostream& operator<<(std::ostream& out, const Choice& choice)
{
    return out << choice.name;
}

// Opens the box and chooses a row of its dialog, as a person does.
void choose(By by, YComboBox* combo, int from, int to, const std::function<void(int)>& tapRow)
{
    std::vector<std::function<void()>> steps;
    if (by == By::Finger) {
        steps.push_back([=] { tapRow(to); });
    } else {
        for (int i = 0; i < std::abs(to - from); ++i)
            steps.push_back([=] { GuiTest::press(to > from ? Qt::Key_Down : Qt::Key_Up); });
        steps.push_back([] { GuiTest::press(Qt::Key_Return); });
    }
    GuiTest::later(steps);
    if (by == By::Finger)
        GuiTest::tap(combo);
    else
        GuiTest::press(Qt::Key_Return);
}

class ComboChoice : public FormTest, public ::testing::WithParamInterface<Choice>
{};

TEST_P(ComboChoice, IsCurrentBeforeItIsTold)
{
    YComboBox* combo = addCombo();
    combo->setCurrentItem(GetParam().from);
    open();
    QStringList told;
    QObject::connect(combo, &YComboBox::activated, [&](int index) {
        told << QString("%1 %2 %3").arg(index).arg(combo->currentItem()).arg(combo->currentText());
    });
    choose(GetParam().by, combo, GetParam().from, GetParam().to, tapListRow);
    const QString text = QStringList({"Off", "15 min", "1 hour"})[GetParam().to];
    EXPECT_EQ(told, QStringList(QString("%1 %1 %2").arg(GetParam().to).arg(text)));
    EXPECT_EQ(activeLayer(), page.get());
    EXPECT_TRUE(combo->hasFocus());
}

INSTANTIATE_TEST_SUITE_P(Rows, ComboChoice,
                         ::testing::Values(Choice{"NextByKeys", By::Keys, 0, 1},
                                           Choice{"LastByKeys", By::Keys, 0, 2},
                                           Choice{"FirstByKeys", By::Keys, 2, 0},
                                           Choice{"SameByKeys", By::Keys, 1, 1},
                                           Choice{"NextByFinger", By::Finger, 0, 1},
                                           Choice{"LastByFinger", By::Finger, 0, 2},
                                           Choice{"FirstByFinger", By::Finger, 2, 0},
                                           Choice{"SameByFinger", By::Finger, 1, 1}),
                         [](const auto& row) { return std::string(row.param.name); });

class Combo : public FormTest
{};

TEST_F(Combo, StaysAsItWasWhenTheDialogIsCancelled)
{
    YComboBox* combo = addCombo();
    open();
    QSignalSpy told(combo, SIGNAL(activated(int)));
    later({[] { press(Qt::Key_Down); }, [] { press(Qt::Key_Escape); }});
    press(Qt::Key_Return);
    EXPECT_EQ(combo->currentItem(), 0);
    EXPECT_EQ(told.count(), 0);
}

TEST_F(Combo, NamesItsDialogAndMarksTheCurrentItem)
{
    YComboBox* combo = addCombo();
    combo->setCurrentItem(1);
    combo->setDlgTitle("Choose a time", YComboBox::MarkedDlg);
    open();
    later([] {
        auto* dialog = qobject_cast<YSingleSelectDlg*>(activeLayer());
        ASSERT_TRUE(dialog);
        EXPECT_EQ(dialog->title(), "Choose a time");
        EXPECT_EQ(dialog->getListBox()->count(), 3);
        EXPECT_TRUE(dialog->getListBox()->item(1)->isChecked());
        EXPECT_TRUE(dialog->getListBox()->itemType().contains("%R"));
        dialog->reject();
    });
    press(Qt::Key_Return);
}

TEST_F(Combo, ShowsPlainRowsInItsOtherDialog)
{
    YComboBox* combo = addCombo();
    combo->setDlgTitle("Timeout:", YComboBox::PlainDlg);
    open();
    later([] {
        auto* dialog = qobject_cast<YSingleSelectDlg*>(activeLayer());
        ASSERT_TRUE(dialog);
        EXPECT_FALSE(dialog->getListBox()->itemType().contains("%R"));
        dialog->reject();
    });
    press(Qt::Key_Return);
}

TEST_F(Combo, NamesItsDialogAsItselfUnlessToldOtherwise)
{
    YComboBox* combo = addCombo();
    EXPECT_EQ(combo->dlgTitle(), "Timeout:");
    EXPECT_EQ(combo->dlgType(), YComboBox::MarkedDlg);
    combo->setDlgTitle("Choose a time", YComboBox::PlainDlg);
    EXPECT_EQ(combo->dlgTitle(), "Choose a time");
    EXPECT_EQ(combo->dlgType(), YComboBox::PlainDlg);
    EXPECT_EQ(combo->title(), "Timeout:");
}

TEST_F(Combo, TakesTheSizeOfItsItemOutsideOfAFormOnly)
{
    const QStringList items = {"Off", "an item that is much longer"};
    YComboBox free(page.get(), nullptr, true);
    for (const QString& item : items)
        free.insertItem(item);
    const int before = free.width();
    free.setCurrentItem(1);
    EXPECT_EQ(free.width(), before) << "not unless it is asked for";
    free.setAutoResize(true);
    EXPECT_TRUE(free.autoResize());
    EXPECT_EQ(free.size(), free.sizeHint());
    const int wide = free.width();
    free.setCurrentItem(0);
    EXPECT_LT(free.width(), wide);
    YComboBox* row = addCombo(items);
    row->setAutoResize(true);
    open();
    row->setCurrentItem(1);
    EXPECT_EQ(row->width(), form->width());
}

TEST_F(Combo, OpensNothingWithoutItems)
{
    addCombo({});
    open();
    press(Qt::Key_Return);
    EXPECT_EQ(activeLayer(), page.get());
}

TEST_F(Combo, MayBeDeletedWhileItsDialogIsOpen)
{
    YComboBox* combo = addCombo();
    open();
    later([combo] { delete combo; });
    press(Qt::Key_Return);
    EXPECT_EQ(activeLayer(), page.get());
    EXPECT_EQ(form->childCount(), 0);
}

TEST_F(Combo, MayBeDeletedInItsSignal)
{
    YComboBox* combo = addCombo();
    open();
    QObject::connect(combo, &YComboBox::activated, [combo] { delete combo; });
    later([] { press(Qt::Key_Return); });
    press(Qt::Key_Return);
    EXPECT_EQ(form->childCount(), 0);
}

TEST_F(Combo, IgnoresIndexesThatAreNoItems)
{
    YComboBox* combo = addCombo();
    QSignalSpy told(combo, SIGNAL(activated(int)));
    combo->setCurrentItem(2);
    for (const int index : {-1, 3, 200, -2147483647})
        combo->setCurrentItem(index);
    EXPECT_EQ(combo->currentItem(), 2);
    EXPECT_EQ(combo->text(-1), QString());
    EXPECT_EQ(combo->text(3), QString());
    EXPECT_EQ(told.count(), 0);
}

TEST_F(Combo, KeepsTheSameItemCurrentWhenOthersComeAndGo)
{
    YComboBox* combo = addCombo({});
    EXPECT_EQ(combo->currentItem(), -1);
    combo->insertItem("b");
    EXPECT_EQ(combo->currentText(), "b");
    combo->insertItem("a", 0);
    combo->insertItem("c", 99);
    EXPECT_EQ(combo->currentText(), "b");
    EXPECT_EQ(combo->currentItem(), 1);
    combo->removeItem(0);
    EXPECT_EQ(combo->currentText(), "b");
    combo->removeItem(7);
    combo->removeItem(1);
    combo->removeItem(0);
    EXPECT_EQ(combo->currentItem(), -1);
    combo->insertItem("d");
    combo->clear();
    EXPECT_EQ(combo->count(), 0);
}

class Pressing : public FormTest, public ::testing::WithParamInterface<int>
{};

TEST_P(Pressing, ClicksAButtonOnce)
{
    YPressButton* button = addButton();
    open();
    QSignalSpy clicks(button, SIGNAL(clicked()));
    if (GetParam()) {
        press(Qt::Key(GetParam()));
        QKeyEvent held(QEvent::KeyPress, GetParam(), Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(button, &held);
    } else {
        tap(button);
    }
    EXPECT_EQ(clicks.count(), 1);
}

INSTANTIATE_TEST_SUITE_P(Ways, Pressing,
                         ::testing::Values(Qt::Key_Return, Qt::Key_Enter, Qt::Key_Select,
                                           Qt::Key_Space, 0));

TEST_F(Combo, ButtonsMayBeDeletedByTheirClick)
{
    YPressButton* button = addButton();
    open();
    QObject::connect(button, &YButton::clicked, [button] { delete button; });
    press(Qt::Key_Return);
    EXPECT_EQ(form->childCount(), 0);
    button = addButton();
    QObject::connect(button, &YButton::clicked, [button] { delete button; });
    settle();
    tap(button);
    EXPECT_EQ(form->childCount(), 0);
}

// A row that notes its keys before its base gets them.
template <class Row> class Noted : public Row
{
public:
    using Row::Row;
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        keys << event->key();
        Row::keyPressEvent(event);
    }
};

class SwitchedOff : public FormTest
{
protected:
    template <class Row> Row* put(Row* row)
    {
        addEdit();
        form->addChild(row, true, nullptr);
        addEdit();
        row->setEnabled(false);
        this->row(0)->setFocus();
        open();
        press(Qt::Key_Down);
        return row;
    }

    // All rows: reached with the keys, left with the keys, and Return comes by key and by tap.
    template <class Row> void behaves(Row* row)
    {
        EXPECT_FALSE(row->isYEnabled());
        EXPECT_TRUE(row->QWidget::isEnabled());
        EXPECT_EQ(focusedRow(), 1);
        press(Qt::Key_Return);
        EXPECT_EQ(row->keys.takeFirst(), Qt::Key_Return);
        row->keys.clear();
        settle();
        row->setFocus();
        tap(row);
        EXPECT_EQ(row->keys, QList<int>{Qt::Key_Return});
        EXPECT_EQ(activeLayer(), page.get());
        press(Qt::Key_Up);
        EXPECT_EQ(focusedRow(), 0);
        press(Qt::Key_Down);
        EXPECT_EQ(focusedRow(), 1);
        press(Qt::Key_Down);
        EXPECT_EQ(focusedRow(), 2);
        row->setEnabled(true);
        EXPECT_TRUE(row->isYEnabled());
    }
};

TEST_F(SwitchedOff, ALineEditIsReachedButNotChanged)
{
    auto* edit = put(new Noted<YLineEdit>(form->viewport(), nullptr, YSkinService::FormLineEdit));
    edit->setReadOnly(true);
    edit->setText("kept");
    type("x");
    press(Qt::Key_Backspace);
    EXPECT_EQ(edit->text(), "kept");
    edit->keys.clear();
    behaves(edit);
    edit->setReadOnly(false);
    tap(edit);
    type("x");
    EXPECT_EQ(edit->text().size(), 5);
}

TEST_F(SwitchedOff, AComboBoxIsReachedButOpensNothing)
{
    auto* combo = new Noted<YComboBox>(form->viewport(), nullptr, true);
    combo->insertItem("Off");
    behaves(put(combo));
    later([] { press(Qt::Key_Escape); });
    tap(combo);
    EXPECT_EQ(activeLayer(), page.get());
}

TEST_F(SwitchedOff, AButtonIsReachedButNotClicked)
{
    auto* button =
        put(new Noted<YPressButton>(form->viewport(), nullptr, YSkinService::FormPressButton));
    QSignalSpy clicks(button, SIGNAL(clicked()));
    press(Qt::Key_Space);
    button->keys.clear();
    behaves(button);
    EXPECT_EQ(clicks.count(), 0);
    tap(button);
    EXPECT_EQ(clicks.count(), 1);
}

} // namespace
