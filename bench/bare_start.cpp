// A bare Qt program with one list of as many rows, until it is painted; for phone_bench.py.
#include <QApplication>
#include <QListView>
#include <QStringListModel>
#include <QVBoxLayout>

#include "start_report.h"

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QStringList rows;
    for (int i = 0; i < std::atoi(argc > 1 ? argv[1] : "1000"); ++i)
        rows << QStringLiteral("Profile%1").arg(i);
    QStringListModel model(rows);
    QWidget window;
    window.setFixedSize(240, 342);
    auto* layout = new QVBoxLayout(&window);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* list = new QListView;
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list->setModel(&model);
    layout->addWidget(list);
    PaintWatch watch(*list->viewport());
    window.show();
    watch.wait();
    report(sinceStart(), *list);
    return 0;
}
