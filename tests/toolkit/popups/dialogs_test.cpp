// The dialogs: choice, message, notice.
#include <memory>

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>

#include <ymessagedlg.h>
#include <ynoticedlg.h>
#include <ysingleselectdlg.h>
#include <ysoftkey.h>

#include "common/gui_test.h"

namespace {

QPoint middleOfKey(const YPopup& popup, int button)
{
    const YSoftKey* bar = popup.getSoftKey();
    const int x = bar->width() / 4 + (button == YSoftKey::Right ? bar->width() / 2 : 0);
    return bar->mapTo(popup.parentWidget(), QPoint(x, bar->height() / 2));
}

void fill(YSingleSelectDlg& dialog, const QStringList& texts)
{
    for (const QString& text : texts) {
        auto* item = new YListBoxItem(dialog.getListBox(), "%R%M240");
        item->appendSubItem(1, text, false, nullptr);
        dialog.getListBox()->insertItem(item, -1, true);
    }
}

// One way through a choice of three rows, of which the second is checked.
struct Way
{
    const char* name;
    std::vector<std::function<void(YSingleSelectDlg&)>> steps;
    int result;
    int row; // current and checked afterwards
};

std::ostream& operator<<(std::ostream& out, const Way& row)
{
    return out << row.name;
}

void down(YSingleSelectDlg&)
{
    GuiTest::press(Qt::Key_Down);
}

void up(YSingleSelectDlg&)
{
    GuiTest::press(Qt::Key_Up);
}

void leftKey(YSingleSelectDlg&)
{
    GuiTest::press(Qt::Key_F1);
}

void rightKey(YSingleSelectDlg&)
{
    GuiTest::press(Qt::Key_F2);
}

void returnKey(YSingleSelectDlg&)
{
    GuiTest::press(Qt::Key_Return);
}

void tapLeftKey(YSingleSelectDlg& dialog)
{
    GuiTest::tap(middleOfKey(dialog, YSoftKey::Left));
}

void tapRightKey(YSingleSelectDlg& dialog)
{
    GuiTest::tap(middleOfKey(dialog, YSoftKey::Right));
}

template <int row> void tapRow(YSingleSelectDlg& dialog)
{
    const YListBox* list = dialog.getListBox();
    const int height = list->height() / list->count();
    GuiTest::tap(list->mapTo(GuiTest::screen(), QPoint(100, row * height + height / 2)));
}

class SingleSelect : public GuiTest, public ::testing::WithParamInterface<Way>
{};

TEST_P(SingleSelect, EndsAsItShould)
{
    YSingleSelectDlg dialog("Title", "Instruction", nullptr, nullptr, true, 0, 0);
    fill(dialog, {"a", "b", "c"});
    dialog.getListBox()->checkItem(1, true);
    std::vector<std::function<void()>> steps;
    for (const auto& step : GetParam().steps)
        steps.push_back([&dialog, step] { step(dialog); });
    later(steps);
    EXPECT_EQ(dialog.exec(), GetParam().result);
    if (GetParam().result != 1)
        return;
    EXPECT_EQ(dialog.getListBox()->currentItem(), GetParam().row);
    EXPECT_EQ(dialog.getListBox()->index(dialog.getCheckedItem()), GetParam().row);
}

INSTANTIATE_TEST_SUITE_P(Ways, SingleSelect,
                         ::testing::Values(Way{"AcceptWithoutMoving", {leftKey}, 1, 1},
                                           Way{"ReturnWithoutMoving", {returnKey}, 1, 1},
                                           Way{"MoveDownAndAccept", {down, leftKey}, 1, 2},
                                           Way{"MoveUpAndReturn", {up, returnKey}, 1, 0},
                                           Way{"MoveAndCancel", {down, rightKey}, 0, 0},
                                           Way{"TapOnSelect", {tapLeftKey}, 1, 1},
                                           Way{"TapOnTheFirstRow", {tapRow<0>}, 1, 0},
                                           Way{"TapOnTheLastRow", {tapRow<2>}, 1, 2},
                                           Way{"MoveAndTapOnSelect", {down, tapLeftKey}, 1, 2},
                                           Way{"TapOnCancel", {tapRightKey}, 0, 0}),
                         [](const auto& row) { return std::string(row.param.name); });

class Dialogs : public GuiTest
{};

bool shows(const QWidget& dialog, const QString& text)
{
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        if (label->text() == text && label->isVisible())
            return true;
    return false;
}

TEST_F(Dialogs, ASelectionWithoutAnyCheckedRowStartsAtTheFirst)
{
    YSingleSelectDlg dialog(nullptr, nullptr, true, 0);
    fill(dialog, {"a", "b"});
    later([] { press(Qt::Key_F1); });
    EXPECT_EQ(dialog.exec(), 1);
    EXPECT_EQ(dialog.getListBox()->currentItem(), 0);
}

TEST_F(Dialogs, AnEmptySelectionCanOnlyBeCancelled)
{
    YSingleSelectDlg dialog(nullptr, nullptr, true, 0);
    later({[] { press(Qt::Key_F1); }, [] { press(Qt::Key_Return); },
           [&] {
               EXPECT_TRUE(dialog.isVisible());
               press(Qt::Key_F2);
           }});
    EXPECT_EQ(dialog.exec(), 0);
}

TEST_F(Dialogs, AnEmptySelectionSaysSo)
{
    YSingleSelectDlg dialog(nullptr, nullptr, true, 0);
    dialog.show();
    EXPECT_TRUE(shows(dialog, "(empty)"));
    fill(dialog, {"a"});
    dialog.hide();
    dialog.show();
    EXPECT_FALSE(shows(dialog, "(empty)"));
}

TEST_F(Dialogs, ASelectionStandsAtTheBottomAndIsAsHighAsItsRows)
{
    YSingleSelectDlg two(nullptr, nullptr, true, 0);
    fill(two, {"a", "b"});
    two.show();
    YSingleSelectDlg three(nullptr, nullptr, true, 0);
    fill(three, {"a", "b", "c"});
    three.show();
    EXPECT_EQ(two.geometry().bottom(), screen()->rect().bottom());
    EXPECT_EQ(three.geometry().bottom(), screen()->rect().bottom());
    EXPECT_GT(three.height(), two.height());
}

TEST_F(Dialogs, ALongSelectionLeavesTheTitleBelowInSight)
{
    YSingleSelectDlg dialog("Title", QString(), nullptr, nullptr, true, 0, 0);
    QStringList texts;
    for (int i = 0; i < 200; ++i)
        texts << QString::number(i);
    fill(dialog, texts);
    dialog.show();
    EXPECT_GT(dialog.geometry().top(), 0);
    EXPECT_TRUE(screen()->rect().contains(dialog.geometry()));
}

TEST_F(Dialogs, TheSoftKeysOfASelectionAreNamed)
{
    YSingleSelectDlg dialog(nullptr, nullptr, true, 0);
    EXPECT_EQ(dialog.getSoftKey()->text(YSoftKey::Left), "Select");
    EXPECT_EQ(dialog.getSoftKey()->text(YSoftKey::Right), "Cancel");
}

struct Reply
{
    const char* name;
    int type;
    std::function<void(YPopup&)> act;
    int result;
};

std::ostream& operator<<(std::ostream& out, const Reply& row)
{
    return out << row.name;
}

class Message : public GuiTest, public ::testing::WithParamInterface<Reply>
{};

TEST_P(Message, EndsWithItsResult)
{
    YMessageDlg message("Title", "Text", GetParam().type, 0, nullptr, nullptr, true, 0);
    later([&] { GetParam().act(message); });
    EXPECT_EQ(message.exec(), GetParam().result);
}

template <Qt::Key key> void pressOne(YPopup&)
{
    GuiTest::press(key);
}

template <int button> void tapOne(YPopup& popup)
{
    GuiTest::tap(middleOfKey(popup, button));
}

INSTANTIATE_TEST_SUITE_P(
    Replies, Message,
    ::testing::Values(Reply{"InformationByReturn", 2, pressOne<Qt::Key_Return>, 1},
                      Reply{"InformationByEnter", 2, pressOne<Qt::Key_Enter>, 1},
                      Reply{"InformationByItsKey", 2, pressOne<Qt::Key_F2>, 1},
                      Reply{"InformationByEscape", 2, pressOne<Qt::Key_Escape>, 1},
                      Reply{"InformationByFinger", 2, tapOne<YSoftKey::Right>, 1},
                      Reply{"QuestionYes", 1, pressOne<Qt::Key_F1>, 1},
                      Reply{"QuestionYesByReturn", 1, pressOne<Qt::Key_Return>, 1},
                      Reply{"QuestionYesByFinger", 1, tapOne<YSoftKey::Left>, 1},
                      Reply{"QuestionNo", 1, pressOne<Qt::Key_F2>, 0},
                      Reply{"QuestionNoByFinger", 1, tapOne<YSoftKey::Right>, 0},
                      Reply{"ConfirmationOk", 0, pressOne<Qt::Key_F1>, 1},
                      Reply{"ConfirmationCancel", 0, pressOne<Qt::Key_Escape>, 0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(Dialogs, AHeldReturnDoesNotAnswerAMessage)
{
    YMessageDlg message("Title", "Text", 2, 0, nullptr, nullptr, true, 0);
    message.show();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&message, &held);
    EXPECT_TRUE(message.isVisible());
}

TEST_F(Dialogs, AMessageShowsItsTextWhole)
{
    const QString text =
        "Your connection preference is WiFi only.No GPRS or CSD connection is used for "
        "this profile.";
    YMessageDlg message("WiFi Only", text, 2, 0, nullptr, nullptr, true, 0);
    message.show();
    EXPECT_EQ(message.text(), text);
    auto* area = message.findChild<QScrollArea*>();
    EXPECT_EQ(area->verticalScrollBar()->maximum(), 0);
}

TEST_F(Dialogs, AMessageTakesSmallerLettersBeforeItHasToBeScrolled)
{
    const auto lettersOf = [](const QString& text) {
        YMessageDlg message("Title", text, 2, 0, nullptr, nullptr, true, 0);
        message.show();
        const bool isWhole = message.findChild<QScrollArea*>()->verticalScrollBar()->maximum() == 0;
        return std::make_pair(isWhole, message.findChild<QLabel*>("text")->font().pixelSize());
    };
    const auto [shortWhole, usual] = lettersOf("word");
    const auto [whole, smaller] = lettersOf(QString("word ").repeated(75));
    EXPECT_TRUE(shortWhole && whole);
    EXPECT_LT(smaller, usual);
    const auto [longWhole, scrolled] = lettersOf(QString("word ").repeated(500));
    EXPECT_FALSE(longWhole);
    EXPECT_EQ(scrolled, usual);
}

TEST_F(Dialogs, AMessageTooLongForTheScreenIsScrolledWithUpAndDown)
{
    YMessageDlg message("Title", QString("word ").repeated(500), 2, 0, nullptr, nullptr, true, 0);
    message.show();
    EXPECT_TRUE(screen()->rect().contains(message.geometry()));
    QScrollBar* bar = message.findChild<QScrollArea*>()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    press(Qt::Key_Down);
    EXPECT_GT(bar->value(), 0);
    press(Qt::Key_Up);
    EXPECT_EQ(bar->value(), 0);
}

TEST_F(Dialogs, AMessageTooLongForTheScreenIsScrolledByTheFinger)
{
    YMessageDlg message("Title", QString("word ").repeated(500), 2, 0, nullptr, nullptr, true, 0);
    message.show();
    settle();
    QScrollBar* bar = message.findChild<QScrollArea*>()->verticalScrollBar();
    drag(QPoint(100, 250), QPoint(100, 100));
    EXPECT_GT(bar->value(), 60);
    EXPECT_TRUE(message.isVisible());
}

TEST_F(Dialogs, AMessageShowsMarkupAsItIs)
{
    YMessageDlg message("a<b>c", "x<br>&amp;", 2, 0, nullptr, nullptr, true, 0);
    const auto labels = message.findChildren<QLabel*>();
    for (const QLabel* label : labels)
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

class Notice : public GuiTest, public ::testing::WithParamInterface<Reply>
{};

TEST_P(Notice, ClosesAtOnce)
{
    YNoticeDlg notice(GetParam().type, QString(), "Saved.", nullptr, nullptr, true, 0);
    QElapsedTimer clock;
    clock.start();
    later([&] { GetParam().act(notice); });
    EXPECT_EQ(notice.exec(), GetParam().result);
    EXPECT_LT(clock.elapsed(), 2500);
}

INSTANTIATE_TEST_SUITE_P(Ways, Notice,
                         ::testing::Values(Reply{"ByReturn", 0, pressOne<Qt::Key_Return>, 1},
                                           Reply{"ByItsKey", 0, pressOne<Qt::Key_F2>, 1},
                                           Reply{"ByEscape", 1, pressOne<Qt::Key_Escape>, 1},
                                           Reply{"ByFingerOnTheKey", 0, tapOne<YSoftKey::Right>, 1},
                                           Reply{"ByFingerOnTheText", 0,
                                                 [](YPopup& popup) {
                                                     const QPoint middle =
                                                         popup.contentsR().center();
                                                     GuiTest::tap(
                                                         popup.mapTo(GuiTest::screen(), middle));
                                                 },
                                                 1}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Dialogs, ANoticeGoesByItself)
{
    YNoticeDlg notice(YNoticeDlg::Success, QString(), "Saved.", nullptr, nullptr, true, 0);
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(notice.exec(), 1);
    EXPECT_GE(clock.elapsed(), 2800) << "a coarse timer of three seconds";
}

TEST_F(Dialogs, ANoticeKeepsItsText)
{
    YNoticeDlg notice(YNoticeDlg::Success, QString(), "Saved as %1.", nullptr, nullptr, true, 0);
    EXPECT_EQ(notice.text(), "Saved as %1.");
}

} // namespace
