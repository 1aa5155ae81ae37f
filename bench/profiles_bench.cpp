// 1,000 stored profiles: the default name, against the two list calls that it makes; and the
// selection dialog, against Qt's own list view on the same names.

#include <cstdlib>
#include <string>
#include <vector>

#include <QListView>
#include <QStringListModel>

#include <napi.h>
#include <profilefunctions.h>
#include <yapplication.h>
#include <yprofileselectdlg.h>

#include "common/temporary_folder.h"
#include "ratios.h"

namespace {

constexpr int stored = 1000;

// A root with the profiles, gone with the program.
class Store
{
public:
    Store()
    {
        ::setenv("VORN_ROOT", m_folder.path().c_str(), 1);
        const NetworkProfile record = {};
        for (int i = 1; i <= stored; ++i)
            if (NAPI_CreateProfile(("Profile" + std::to_string(i)).c_str(), &record, 0, 0) !=
                NAPI_OK)
                std::abort();
    }

private:
    TemporaryFolder m_folder;
};

void listTwice(benchmark::State& state)
{
    std::vector<char> names(stored * NAPI_PROFILE_NAME_SLOT);
    for (auto _ : state) {
        unsigned int count = 0;
        if (NAPI_ListAllProfile(nullptr, &count) < 0 ||
            NAPI_ListAllProfile(names.data(), &count) < 0 || count != stored)
            state.SkipWithError("the profiles are not listed");
        benchmark::DoNotOptimize(names.data());
    }
}

void defaultName(benchmark::State& state)
{
    for (auto _ : state) {
        QString name;
        getDefaultProfileName(name);
        if (name != "Profile1001")
            state.SkipWithError("the name is another one");
    }
}

QStringList names()
{
    QStringList all;
    for (int i = 1; i <= stored; ++i)
        all << "Profile" + QString::number(i);
    return all;
}

// Both appear within a window that is on the screen already, and are painted before they go.
void bareListView(benchmark::State& state)
{
    const QStringList all = names();
    QWidget window;
    window.resize(240, 320);
    window.show();
    for (auto _ : state) {
        QStringListModel model(all);
        QListView view(&window);
        view.setModel(&model);
        view.setGeometry(window.rect());
        view.setCurrentIndex(model.index(stored / 2, 0));
        view.show();
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(view.grab());
    }
}

void selectionDialog(benchmark::State& state)
{
    QStringList all = names();
    const QString current = all[stored / 2];
    YPopup below(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
    below.show();
    for (auto _ : state) {
        YProfileSelectDlg dialog(all, current, nullptr, nullptr);
        dialog.show();
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(dialog.grab());
    }
}

BENCHMARK(bareListView)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(selectionDialog)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(listTwice)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(defaultName)->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    const YApplication application(count, argv);
    const Store store;
    return bench::run(
        argc, argv, {{"defaultName", "listTwice", 1.2}, {"selectionDialog", "bareListView", 2.0}});
}
