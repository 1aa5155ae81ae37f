// Opening a form of 25 rows, from the first constructor to the painted screen, against the same
// rows put bare on a scroll area, and against labels and edits of Qt's own on one.

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <toolkit/yscreen.h>
#include <yapplication.h>
#include <ycombobox.h>
#include <yformcontainer.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>
#include <ypressbutton.h>
#include <yskinservice.h>

#include "ratios.h"

namespace {

constexpr int rows = 25;

// Every fifth row is a choice, the last one a button.
enum class Kind { Edit, Choice, Button };

Kind kindOf(int row)
{
    return row == rows - 1 ? Kind::Button : row % 5 == 4 ? Kind::Choice : Kind::Edit;
}

QString labelOf(int row)
{
    return QStringLiteral("Setting number %1:").arg(row);
}

QWidget* makeRow(QWidget* parent, int row)
{
    switch (kindOf(row)) {
    case Kind::Edit: {
        auto* edit = new YLineEdit(parent, nullptr, YSkinService::FormLineEdit);
        edit->setLabel(labelOf(row));
        edit->setText("internet.example");
        edit->setMaxLength(100);
        return edit;
    }
    case Kind::Choice: {
        auto* combo = new YComboBox(parent, nullptr, true);
        combo->setTitle(labelOf(row));
        for (const char* item : {"Off", "15 min", "1 hour"})
            combo->insertItem(item);
        return combo;
    }
    case Kind::Button:
        break;
    }
    auto* button = new YPressButton(parent, nullptr, YSkinService::FormPressButton);
    button->setText(labelOf(row));
    return button;
}

QWidget* makePlainRow(QVBoxLayout& column, QWidget* parent, int row)
{
    if (kindOf(row) == Kind::Button)
        return new QPushButton(labelOf(row), parent);
    column.addWidget(new QLabel(labelOf(row), parent));
    if (kindOf(row) == Kind::Choice) {
        auto* combo = new QComboBox(parent);
        combo->addItems({"Off", "15 min", "1 hour"});
        return combo;
    }
    auto* edit = new QLineEdit(parent);
    edit->setText("internet.example");
    edit->setMaxLength(100);
    return edit;
}

// A page whose contents are a scroll area with a column of widgets.
template <class Fill> QWidget* makeBarePage(Fill fill)
{
    auto* page = new YKbMainWidget(nullptr, nullptr, 0);
    auto* area = new QScrollArea(page);
    auto* contents = new QWidget;
    auto* column = new QVBoxLayout(contents);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    for (int row = 0; row < rows; ++row)
        column->addWidget(fill(*column, contents, row));
    area->setWidget(contents);
    area->setWidgetResizable(true);
    page->setContentWidget(area);
    return page;
}

QWidget* makeForm()
{
    auto* page = new YKbMainWidget(nullptr, nullptr, 0);
    auto* form = new YFormContainer(page, nullptr, YSkinService::FormContainer);
    page->setContentWidget(form);
    for (int row = 0; row < rows; ++row)
        form->addChild(makeRow(form->viewport(), row), true, nullptr);
    return page;
}

QWidget* makeSameRowsBare()
{
    return makeBarePage(
        [](QVBoxLayout&, QWidget* parent, int row) { return makeRow(parent, row); });
}

QWidget* makePlainRowsBare()
{
    return makeBarePage(makePlainRow);
}

void opens(benchmark::State& state, QWidget* (*make)())
{
    YKbMainWidget below(nullptr, nullptr, 0);
    below.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        QWidget* page = make();
        page->show();
        QCoreApplication::processEvents();
        YScreen::instance()->repaint();
        state.PauseTiming();
        delete page;
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}

void form(benchmark::State& state)
{
    opens(state, makeForm);
}

void sameRowsBare(benchmark::State& state)
{
    opens(state, makeSameRowsBare);
}

void plainRowsBare(benchmark::State& state)
{
    opens(state, makePlainRowsBare);
}

BENCHMARK(form)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(sameRowsBare)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(plainRowsBare)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    YApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    return bench::run(argc, argv,
                      {{"form/", "sameRowsBare/", 1.5}, {"form/", "plainRowsBare/", 1.5}});
}
