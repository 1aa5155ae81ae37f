#include "wizard/world/wizard_driver.h"

#include <QApplication>
#include <QLineEdit>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <memory>

#include <ycombobox.h>
#include <yformcontainer.h>
#include <yinputfield.h>
#include <ykbmainwidget.h>
#include <ylabel.h>
#include <ylineedit.h>
#include <ylistbox.h>
#include <ymessagedlg.h>
#include <ynoticedlg.h>
#include <ypressbutton.h>
#include <yseparator.h>
#include <ysingleselectdlg.h>
#include <ysoftkey.h>

namespace {

std::vector<YKbMainWidget*> pagesOf(const QString& className)
{
    std::vector<YKbMainWidget*> pages;
    for (QWidget* widget : QApplication::allWidgets()) {
        if (className == widget->metaObject()->className())
            pages.push_back(static_cast<YKbMainWidget*>(widget));
    }
    return pages;
}

std::string describe(QWidget* row)
{
    const std::string name = row->metaObject()->className();
    if (auto* edit = qobject_cast<YLineEdit*>(row))
        return name + " " + edit->label().toStdString() + " \"" + edit->text().toStdString() +
               "\"" + (edit->isYEnabled() ? "" : " off");
    if (auto* combo = qobject_cast<YComboBox*>(row))
        return name + " " + combo->title().toStdString() + " \"" +
               combo->currentText().toStdString() + "\"" + (combo->isYEnabled() ? "" : " off");
    if (auto* button = qobject_cast<YButton*>(row))
        return name + " " + button->text().toStdString() + (button->isYEnabled() ? "" : " off");
    if (auto* separator = qobject_cast<YSeparator*>(row))
        return name + " " + separator->label()->text().toStdString() +
               (separator->isYEnabled() ? "" : " off");
    return name;
}

QString labelOf(const QWidget* row)
{
    if (auto* edit = qobject_cast<const YLineEdit*>(row))
        return edit->label();
    if (auto* combo = qobject_cast<const YComboBox*>(row))
        return combo->title();
    auto* button = qobject_cast<const YButton*>(row);
    return button ? button->text() : QString();
}

template <class T> T* rowOf(YKbMainWidget* page, const QString& label)
{
    for (T* row : page->findChildren<T*>()) {
        if (labelOf(row) == label)
            return row;
    }
    return nullptr;
}

} // namespace

YKbMainWidget* wizardPage(int number)
{
    const auto pages = pagesOf(QString("DataConnection_NewWiz%1").arg(number));
    YKbMainWidget* top = pages.empty() ? nullptr : pages.front();
    // The screen's children are in the order in which they lie on each other, the top one last.
    for (QObject* child : GuiTest::screen()->children()) {
        auto page = std::find(pages.begin(), pages.end(), child);
        if (page != pages.end() && (*page)->isVisible())
            top = *page;
    }
    return top;
}

int wizardPageCount()
{
    return static_cast<int>(pagesOf("DataConnection_NewWiz1").size() +
                            pagesOf("DataConnection_NewWiz2").size());
}

YLineEdit* editOf(YKbMainWidget* page, const QString& label)
{
    return rowOf<YLineEdit>(page, label);
}

YComboBox* comboOf(YKbMainWidget* page, const QString& label)
{
    return rowOf<YComboBox>(page, label);
}

YPressButton* buttonOf(YKbMainWidget* page)
{
    return page->findChild<YPressButton*>();
}

YFormContainer* formOf(YKbMainWidget* page)
{
    return static_cast<YFormContainer*>(page->contentWidget());
}

std::string rowsOf(YKbMainWidget* page)
{
    std::string text;
    for (QWidget* row = formOf(page)->getFirstChild(); row; row = formOf(page)->getNextChild(row))
        text += describe(row) + "\n";
    return text;
}

std::string titleOf(YKbMainWidget* page)
{
    return page->mainWidgetTitle().toStdString();
}

std::string leftKeyOf(YKbMainWidget* page)
{
    return page->softKey()->text(YSoftKey::Left).toStdString();
}

std::string rightKeyOf(YKbMainWidget* page)
{
    return page->softKey()->text(YSoftKey::Right).toStdString();
}

std::string focusOf(YKbMainWidget* page)
{
    for (QWidget* widget = page->focusWidget(); widget && widget != page;
         widget = widget->parentWidget()) {
        if (!labelOf(widget).isEmpty())
            return labelOf(widget).toStdString();
    }
    return "";
}

std::string popupText()
{
    QWidget* layer = GuiTest::activeLayer();
    if (auto* message = qobject_cast<YMessageDlg*>(layer))
        return message->title().toStdString() + "|" + message->text().toStdString();
    if (auto* notice = qobject_cast<YNoticeDlg*>(layer))
        return notice->title().toStdString() + "|" + notice->text().toStdString();
    auto* popup = qobject_cast<YPopup*>(layer);
    return popup ? popup->title().toStdString() + "|" + popup->instructText().toStdString() : "";
}

void walkTo(YKbMainWidget* page, const QString& label)
{
    ASSERT_TRUE(page) << "there is no page to find " << label.toStdString() << " on";
    const std::string wanted = label.toStdString();
    for (int step = 0; step < 30 && focusOf(page) != wanted; ++step)
        GuiTest::press(Qt::Key_Down);
    ASSERT_EQ(wanted, focusOf(page));
}

void retype(const QString& text)
{
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    auto* edit = qobject_cast<YLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(field || edit) << "no text field has the focus";
    const qsizetype length = field ? field->text().length() : edit->text().length();
    GuiTest::press(Qt::Key_End);
    for (qsizetype i = 0; i < length; ++i)
        GuiTest::press(Qt::Key_Backspace);
    GuiTest::type(text);
}

Step opening(const std::function<void()>& act)
{
    return Step{act, true};
}

namespace {

// The levels of the event loop at which the acts were called that have opened something and have
// not come back yet.
std::vector<int> openingLevels;

// Calls `act` from the event loop, when everything that ran before has come back. Sending a key
// handles events too: where that key has just closed a dialog, the step must wait until its caller
// has come back.
void fromLoop(const std::function<void()>& act)
{
    QTimer::singleShot(1, qApp, [act] {
        GuiTest::later([act] {
            if (!openingLevels.empty() &&
                QThread::currentThread()->loopLevel() <= openingLevels.back())
                fromLoop(act);
            else
                act();
        });
    });
}

// Goes on as well when the dialog has not opened, so that the next step sees that.
void whenDialogOpens(QWidget* layerBefore, const std::shared_ptr<bool>& hasComeBack,
                     const std::function<void()>& act)
{
    QTimer::singleShot(1, qApp, [layerBefore, hasComeBack, act] {
        if (GuiTest::activeLayer() == layerBefore && !*hasComeBack)
            whenDialogOpens(layerBefore, hasComeBack, act);
        else
            act();
    });
}

void performOpening(const std::function<void()>& act, const Steps& rest)
{
    const auto hasComeBack = std::make_shared<bool>(false);
    whenDialogOpens(GuiTest::activeLayer(), hasComeBack, [rest] { perform(rest); });
    openingLevels.push_back(QThread::currentThread()->loopLevel());
    act();
    openingLevels.pop_back();
    *hasComeBack = true;
}

} // namespace

void perform(const Steps& steps)
{
    if (steps.steps.empty())
        return;
    fromLoop([steps] {
        const Step first = steps.steps.front();
        Steps rest = steps;
        rest.steps.erase(rest.steps.begin());
        if (first.blocks)
            return performOpening(first.act, rest);
        first.act();
        perform(rest);
    });
}

void closeWhatIsOpen()
{
    while (auto* popup = qobject_cast<YPopup*>(GuiTest::activeLayer())) {
        ADD_FAILURE() << "left open: " << popupText();
        popup->reject();
        popup->hide();
    }
    YKbMainWidget* page = wizardPage(1);
    for (; page && page->isVisible(); page = wizardPage(1)) {
        ADD_FAILURE() << "the wizard was left open";
        page->hide();
    }
}

Steps chooseByKeys(int page, const QString& label, int item)
{
    const auto open = [page, label] {
        walkTo(wizardPage(page), label);
        GuiTest::press(Qt::Key_Return);
    };
    const auto choose = [page, label, item] {
        const int step = item - comboOf(wizardPage(page), label)->currentItem();
        for (int i = 0; i < std::abs(step); ++i)
            GuiTest::press(step > 0 ? Qt::Key_Down : Qt::Key_Up);
        GuiTest::press(Qt::Key_Return);
    };
    return Steps{opening(open), choose};
}
