// Every row of both pages filled in, once with keys alone and once with a finger alone, whatever
// the language and the screen: both have to store the same.

#include <cstdlib>
#include <string>

#include <QAbstractItemView>
#include <QApplication>
#include <QInputMethodEvent>

#include <ycombobox.h>
#include <yformcontainer.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

namespace {

// A row by its page and its place on it, counted from 0, and what goes into it: a text, or an item
// of a choice where the text is null.
struct FilledRow
{
    int page;
    int place;
    const char* text;
    int item;
};

const FilledRow rowsToFill[] = {
    {1, 0, "B\xC3\xBCro \xE4\xB8\xAD", 0},
    {1, 1, nullptr, 2},
    {1, 3, "p1.example", 0},
    {1, 4, "8080", 0},
    {1, 5, "d1.example", 0},
    {1, 6, "internet", 0},
    {1, 7, "ann", 0},
    {1, 8, "s3cret", 0},
    {1, 9, "10.1.2.3", 0},
    {1, 10, "10.1.2.4", 0},
    {1, 11, nullptr, 1},
    {1, 12, nullptr, 4},
    {2, 0, "p2.example", 0},
    {2, 1, "3128", 0},
    {2, 2, "d2.example", 0},
    {2, 3, "+4912345", 0},
    {2, 4, "bob", 0},
    {2, 5, "hidden", 0},
    {2, 6, nullptr, 3},
    {2, 7, nullptr, 1},
    {2, 8, nullptr, 4},
    {2, 9, "192.168.0.1", 0},
    {2, 10, "192.168.0.2", 0},
};
constexpr int buttonPlace = 13;

RecordBytes storedRecord()
{
    RecordBytes bytes;
    bytes.byte(1, 1).word(4, 0x400).text(8, "internet").text(108, "ann").text(208, "s3cret");
    bytes.word(312, 0x0A010203).word(316, 0x0A010204).half(320, 360).byte(380, 1);
    bytes.text(381, "+4912345").text(425, "bob").text(489, "hidden").word(560, 0xC0A80001);
    bytes.word(564, 0xC0A80002).half(568, 30).byte(571, 70);
    bytes.text(760, "p1.example").half(860, 8080).text(862, "d1.example");
    return bytes.text(963, "p2.example").half(1064, 3128).text(1066, "d2.example");
}

QWidget* rowAt(int page, int place)
{
    YFormContainer* form = formOf(wizardPage(page));
    QWidget* row = form->getFirstChild();
    for (int i = 0; i < place; ++i)
        row = form->getNextChild(row);
    return row;
}

// What a person does with a row, in one of two ways.
class Hand
{
public:
    virtual ~Hand() {}

    virtual void act(QWidget* row) const = 0; // goes to the row and presses it
    virtual void type(QWidget* row, const QString& text) const = 0;
    virtual void choose(const YComboBox* combo, int item) const = 0; // in the open dialog
    virtual void save() const = 0;
    virtual void dismiss() const = 0;
};

class Keys : public Hand
{
public:
    void act(QWidget* row) const override
    {
        goTo(row);
        GuiTest::press(Qt::Key_Return);
    }

    void type(QWidget* row, const QString& text) const override
    {
        goTo(row);
        retype(text);
    }

    void choose(const YComboBox* combo, int item) const override
    {
        const int step = item - combo->currentItem();
        for (int i = 0; i < std::abs(step); ++i)
            GuiTest::press(step > 0 ? Qt::Key_Down : Qt::Key_Up);
        GuiTest::press(Qt::Key_Return);
    }

    void save() const override { GuiTest::press(Qt::Key_F2); }
    void dismiss() const override { GuiTest::press(Qt::Key_Return); }

private:
    static void goTo(QWidget* row)
    {
        const auto isThere = [row] {
            QWidget* focused = QApplication::focusWidget();
            return focused && (focused == row || row->isAncestorOf(focused));
        };
        for (int step = 0; step < 30 && !isThere(); ++step)
            GuiTest::press(Qt::Key_Down);
        ASSERT_TRUE(isThere());
    }
};

class Finger : public Hand
{
public:
    void act(QWidget* row) const override
    {
        bringInSight(row);
        GuiTest::tap(row);
    }

    // The letters come from a keyboard on the screen, which is an input method.
    void type(QWidget* row, const QString& text) const override
    {
        act(row);
        auto* edit = static_cast<YLineEdit*>(row);
        QInputMethodEvent event;
        event.setCommitString(text, -edit->cursorPosition(), int(edit->text().length()));
        ASSERT_TRUE(qApp->focusObject());
        QCoreApplication::sendEvent(qApp->focusObject(), &event);
    }

    void choose(const YComboBox*, int item) const override
    {
        auto* list = GuiTest::activeLayer()->findChild<QAbstractItemView*>();
        ASSERT_TRUE(list);
        const QRect row = list->visualRect(list->model()->index(item, 0));
        ASSERT_TRUE(list->viewport()->rect().contains(row.center()));
        GuiTest::tap(list->viewport()->mapTo(GuiTest::screen(), row.center()));
    }

    void save() const override { tapRightKey(); }
    void dismiss() const override { tapRightKey(); }

private:
    static void tapRightKey()
    {
        const QWidget* screen = GuiTest::screen();
        GuiTest::tap(QPoint(screen->width() - 20, screen->height() - 8));
    }

    static QRect onScreen(const QWidget* widget)
    {
        return QRect(widget->mapTo(GuiTest::screen(), QPoint()), widget->size());
    }

    // The part of the form that is seen has the size of the form itself.
    static void bringInSight(const QWidget* row)
    {
        const QWidget* form = formOf(static_cast<YKbMainWidget*>(GuiTest::activeLayer()));
        const QRect sight = onScreen(form).adjusted(0, 4, 0, -4);
        for (int step = 0; step < 40; ++step) {
            const QRect place = onScreen(row);
            if (sight.contains(place.center()))
                return;
            const int way = place.center().y() > sight.center().y() ? -60 : 60;
            GuiTest::drag(sight.center(), sight.center() + QPoint(0, way));
        }
        FAIL() << "the row does not come in sight";
    }
};

class Rows : public Wizard, public testing::WithParamInterface<const Hand*>
{
protected:
    static const Hand& hand() { return *GetParam(); }

    static Steps fill(const FilledRow& row)
    {
        if (row.text)
            return Steps(
                [row] { hand().type(rowAt(row.page, row.place), QString::fromUtf8(row.text)); });
        return {opening([row] { hand().act(rowAt(row.page, row.place)); }), [row] {
                    auto* combo = static_cast<YComboBox*>(rowAt(row.page, row.place));
                    hand().choose(combo, row.item);
                }};
    }

    static Steps fillPage(int page)
    {
        Steps steps([] {});
        for (const FilledRow& row : rowsToFill) {
            if (row.page == page)
                steps = {steps, fill(row)};
        }
        return steps;
    }
};

TEST_P(Rows, AreFilledInAndStored)
{
    EXPECT_EQ(create({fillPage(1), [] { hand().act(rowAt(1, buttonPlace)); }, fillPage(2),
                      opening([] { hand().save(); }), [] { hand().dismiss(); }}),
              0);
    EXPECT_EQ(name.toStdString(), "B\xC3\xBCro \xE4\xB8\xAD");
    EXPECT_EQ(RecordBytes(napi.written).difference(storedRecord()), "the same");
}

TEST_P(Rows, SwitchedOffSayWhyAndAreSwitchedOnAgain)
{
    setDefaultPreference("0");
    napi.profiles["Old"] = RecordBytes().byte(1, 1).word(4, 0x100).text(8, "a").record();
    EXPECT_EQ(edit("Old", {opening([] { hand().act(rowAt(1, 6)); }), [] { hand().dismiss(); },
                           opening([] { hand().act(rowAt(1, buttonPlace)); }),
                           [] { hand().dismiss(); }, fill(rowsToFill[1]), fill(rowsToFill[5]),
                           opening([] { hand().save(); }), [] { hand().dismiss(); }}),
              0);
    EXPECT_EQ(RecordBytes(napi.written)
                  .difference(RecordBytes().byte(1, 1).word(4, 0x400).text(8, "internet")),
              "the same");
}

const Keys keys;
const Finger finger;
INSTANTIATE_TEST_SUITE_P(With, Rows, testing::Values<const Hand*>(&keys, &finger),
                         [](const auto& test) { return test.param == &keys ? "Keys" : "Finger"; });

} // namespace
