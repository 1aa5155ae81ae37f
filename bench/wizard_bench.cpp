// Opening the wizard, against a bare form of the same rows: from the call to the end of the first
// paint, with the rows and all. The wizard builds its second page too before it shows the first;
// the second comparison does as well.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

#include <profilefunctions.h>
#include <toolkit/yscreen.h>
#include <yapplication.h>
#include <ykbmainwidget.h>

#include "common/temporary_folder.h"
#include "ratios.h"

namespace {

// A root with the WiFi feature, so that all rows are there; gone with the program.
class Root
{
public:
    Root()
    {
        ::setenv("VORN_ROOT", m_path.c_str(), 1);
        std::filesystem::create_directory(m_path + "/etc");
        write("/etc/features.json", "{\"431\": true}");
        write("/etc/settings.json", "{\"DefConnPrefer\": 0}");
    }

private:
    void write(const std::string& name, const char* text)
    {
        std::FILE* file = std::fopen((m_path + name).c_str(), "w");
        if (!file || std::fputs(text, file) < 0 || std::fclose(file) != 0)
            std::abort();
    }

    TemporaryFolder m_folder;
    const std::string& m_path = m_folder.path();
};

// Tells when a page has been painted for the first time. The page is painted whole, its rows after
// it, before the event loop goes on.
class PaintWatch : public QObject
{
public:
    std::function<void(QWidget*)> painted;

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && painted) {
            if (auto* widget = qobject_cast<QWidget*>(object); widget && isPage(widget)) {
                QTimer::singleShot(0, widget,
                                   [tell = std::move(painted), widget] { tell(widget); });
                painted = nullptr;
            }
        }
        return false;
    }

private:
    static bool isPage(QWidget* widget)
    {
        return widget->objectName() == "bare" || widget->inherits("DataConnection_NewWiz1");
    }
};

PaintWatch* watch;

void addRow(QVBoxLayout* layout, const char* label, QWidget* widget)
{
    layout->addWidget(new QLabel(label));
    layout->addWidget(widget);
}

QComboBox* combo(std::initializer_list<const char*> items)
{
    QComboBox* box = new QComboBox;
    for (const char* item : items)
        box->addItem(item);
    return box;
}

QWidget* bareForm(const std::vector<const char*>& texts)
{
    QWidget* form = new QWidget;
    QVBoxLayout* layout = new QVBoxLayout(form);
    for (const char* label : texts)
        addRow(layout, label, new QLineEdit);
    return form;
}

QWidget* barePage1()
{
    QWidget* form = bareForm({"Profile Name:*", "Proxy 1:", "Port 1:", "Domain 1:", "GPRS APN:",
                              "User Name:", "Password:", "GPRS DNS 1:", "GPRS DNS 2:"});
    auto* layout = static_cast<QVBoxLayout*>(form->layout());
    addRow(layout, "Connection Preference:*",
           combo({"WiFi, then Cellular", "WiFi Only", "Cellular Only"}));
    layout->addWidget(new QLabel("Cellular Connection Settings:"));
    addRow(layout, "Quality of service Policy:", combo({"Data", "Voice"}));
    addRow(layout,
           "GPRS Timeout:", combo({"Off", "15 min", "1 hour", "2 hour", "6 hour", "24 hour"}));
    layout->addWidget(new QPushButton("Additional settings:"));
    return form;
}

QWidget* barePage2()
{
    QWidget* form = bareForm({"Proxy 2:", "Port 2:", "Domain 2:", "CSD Number:", "User Name:",
                              "Password:", "DNS 1:", "DNS 2:"});
    auto* layout = static_cast<QVBoxLayout*>(form->layout());
    addRow(layout, "Speed(BPS):", combo({"Auto", "14400", "9600", "4800", "2400"}));
    addRow(layout, "Line Type:", combo({"Modem", "ISDN"}));
    addRow(layout, "CSD Timeout:", combo({"Off", "1 min", "5 min", "15 min", "30 min", "60 min"}));
    return form;
}

void openBare(benchmark::State& state, bool withPage2)
{
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        QScrollArea page;
        QScrollArea second;
        page.setWidgetResizable(true);
        page.setWidget(barePage1());
        if (withPage2)
            second.setWidget(barePage2());
        page.widget()->setObjectName("bare");
        page.resize(240, 320);
        bool isPainted = false;
        watch->painted = [&](QWidget*) { isPainted = true; };
        page.show();
        while (!isPainted)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
        page.hide();
    }
}

void openBareForm(benchmark::State& state)
{
    openBare(state, false);
}

void openBothBareForms(benchmark::State& state)
{
    openBare(state, true);
}

void openWizard(benchmark::State& state)
{
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        double seconds = 0;
        watch->painted = [&seconds, begin](QWidget* page) {
            seconds =
                std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
            static_cast<YKbMainWidget*>(page)->hide();
        };
        QString name;
        if (createProfilebyUser(name) != 2)
            state.SkipWithError("the wizard did not open");
        state.SetIterationTime(seconds);
    }
}

BENCHMARK(openBareForm)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(openBothBareForms)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(openWizard)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    const Root root;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    YApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    PaintWatch paints;
    watch = &paints;
    application.installEventFilter(&paints);
    return bench::run(
        argc, argv,
        {{"openWizard", "openBareForm", 1.5}, {"openWizard", "openBothBareForms", 1.5}});
}
