// A page with a form, for tests of its rows.
#ifndef FORM_PAGE_H
#define FORM_PAGE_H

#include <memory>
#include <string>

#include <QApplication>
#include <QListView>
#include <QStringList>
#include <QTest>

#include <toolkit/yscreen.h>
#include <ycombobox.h>
#include <yformcontainer.h>
#include <yglobal.h>
#include <ykbmainwidget.h>
#include <ylabel.h>
#include <ylineedit.h>
#include <ypressbutton.h>
#include <yseparator.h>
#include <ysingleselectdlg.h>
#include <yskinservice.h>
#include <ysoftkey.h>

#include "common/gui_test.h"

class FormTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        page = std::make_unique<YKbMainWidget>(nullptr, "page", 0);
        form = new YFormContainer(page.get(), "form", YSkinService::FormContainer);
        page->setContentWidget(form);
        auto* keys = new YSoftKey("CST_2A", page.get(), page.get());
        keys->setText(YSoftKey::Right, "Cancel", 0);
        page->setSoftKey(keys);
    }

    void TearDown() override
    {
        page.reset();
        GuiTest::TearDown();
    }

    void open()
    {
        page->show();
        settle();
    }

    YLineEdit* addEdit(const QString& label = "Label:")
    {
        auto* edit = new YLineEdit(form->viewport(), nullptr, YSkinService::FormLineEdit);
        edit->setLabel(label);
        form->addChild(edit, true, nullptr);
        return edit;
    }

    YComboBox* addCombo(const QStringList& items = {"Off", "15 min", "1 hour"})
    {
        auto* combo = new YComboBox(form->viewport(), nullptr, true);
        combo->setTitle("Timeout:");
        for (const QString& item : items)
            combo->insertItem(item);
        form->addChild(combo, false, nullptr);
        return combo;
    }

    YPressButton* addButton()
    {
        auto* button = new YPressButton(form->viewport(), nullptr, YSkinService::FormPressButton);
        button->setText("Additional settings:");
        form->addChild(button, false, nullptr);
        return button;
    }

    YSeparator* addSeparator()
    {
        auto* line = new YSeparator(form->viewport(), nullptr, 0, YSkinService::Separator);
        auto* label = new YLabel(line, nullptr, 0, YSkinService::PlainLabel);
        label->setText("Cellular Connection Settings:");
        line->setAutoResize(true);
        line->setLabel(label);
        form->addChild(line, true, nullptr);
        return line;
    }

    // One row for each letter: e(dit), c(ombo), b(utton), s(eparator).
    void addRows(const std::string& kinds)
    {
        for (const char kind : kinds) {
            if (kind == 'e')
                addEdit();
            else if (kind == 'c')
                addCombo();
            else if (kind == 'b')
                addButton();
            else
                addSeparator();
        }
    }

    QWidget* row(int index) const
    {
        QWidget* at = form->getFirstChild();
        for (int i = 0; i < index; ++i)
            at = form->getNextChild(at);
        return at;
    }

    // The index of the row with the focus, or -1.
    int focusedRow() const
    {
        for (int i = 0; i < form->childCount(); ++i)
            if (row(i)->hasFocus())
                return i;
        return -1;
    }

    QRect placeOf(QWidget* widget) const
    {
        return QRect(widget->mapTo(form, QPoint()), widget->size());
    }

    // A tap on a row of the dialog that is open.
    static void tapListRow(int index)
    {
        auto* view = activeLayer()->findChild<QListView*>();
        ASSERT_TRUE(view);
        const QRect place = view->visualRect(view->model()->index(index, 0));
        tap(view->viewport()->mapTo(screen(), place.center()));
    }

    std::unique_ptr<YKbMainWidget> page;
    YFormContainer* form = nullptr;
};

#endif
