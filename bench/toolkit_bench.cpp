// Opening a list of 10,000 rows, against Qt's own list view on a list of the same texts.

#include <QApplication>
#include <QListView>
#include <QStringListModel>

#include <yapplication.h>
#include <ysingleselectdlg.h>

#include "ratios.h"

namespace {

constexpr int rowCount = 10000;

const QStringList& texts()
{
    static const QStringList list = [] {
        QStringList rows;
        for (int i = 0; i < rowCount; ++i)
            rows << QString("Connection number %1").arg(i);
        return rows;
    }();
    return list;
}

// Both open within a window that is on the screen already, and are painted before they go.
void bareListView(benchmark::State& state)
{
    QWidget window;
    window.resize(240, 320);
    window.show();
    for (auto _ : state) {
        QStringListModel model(texts());
        QListView view(&window);
        view.setModel(&model);
        view.setGeometry(window.rect());
        view.setCurrentIndex(model.index(0, 0));
        view.show();
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(view.grab());
    }
}

void selectionOf(YSingleSelectDlg& dialog)
{
    YListBox* list = dialog.getListBox();
    list->setItemType("%R%M240");
    for (const QString& text : texts()) {
        auto* item = new YListBoxItem(list, "%R%M240");
        item->appendSubItem(1, text, false, nullptr);
        list->insertItem(item, -1, true);
    }
    list->checkItem(0, true);
}

void selectionDialog(benchmark::State& state)
{
    YPopup below(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
    below.show();
    for (auto _ : state) {
        YSingleSelectDlg dialog("Select Connection", QString(), nullptr, nullptr, true, 0, 0);
        selectionOf(dialog);
        dialog.show();
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(dialog.grab());
    }
}

BENCHMARK(bareListView)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(selectionDialog)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    YApplication application(count, argv);
    return bench::run(argc, argv, {{"selectionDialog", "bareListView", 2.0}});
}
