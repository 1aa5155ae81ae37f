#include "network/links/networkmanager/step_report.h"

#include <mutex>
#include <utility>

namespace network {

namespace {

struct Report
{
    std::mutex mutex;
    StepListener listener;

    static Report& instance()
    {
        static Report* report = new Report;
        return *report;
    }
};

} // namespace

void listenToSteps(StepListener listener)
{
    Report& report = Report::instance();
    std::lock_guard<std::mutex> guard(report.mutex);
    report.listener = std::move(listener);
}

void reportStep(int link, const std::string& text)
{
    Report& report = Report::instance();
    std::lock_guard<std::mutex> guard(report.mutex);
    if (report.listener)
        report.listener(link, text);
}

} // namespace network
