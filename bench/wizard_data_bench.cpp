// A profile record through the wizard's form and back, without widgets.

#include <cstring>

#include "ratios.h"
#include "wizard/form/array_form.h"
#include "wizard/form/record.h"
#include "wizard/form/recordmapping.h"

namespace {

NetworkProfile filledRecord()
{
    NetworkProfile record = {};
    record.flags = NAPI_PREFER_CELLULAR_ONLY;
    std::strcpy(record.gprsApn, "internet.example");
    std::strcpy(record.gprsUserName, "subscriber@provider.example");
    std::strcpy(record.gprsPassword, "a password of some length");
    record.gprsDns1 = 0x0A010203;
    record.gprsDns2 = 0x0A010204;
    record.gprsTimeout = 120;
    std::strcpy(record.csdNumber, "+441632960123");
    std::strcpy(record.csdUserName, "dial-up user");
    std::strcpy(record.csdPassword, "dial-up password");
    record.csdDns1 = 0xC0A80001;
    record.csdDns2 = 0xC0A80002;
    record.csdSpeed = 68;
    record.csdTimeout = 60;
    std::strcpy(record.proxy1, "proxy.provider.example");
    record.port1 = 8080;
    std::strcpy(record.domain1, "provider.example");
    std::strcpy(record.proxy2, "second.provider.example");
    record.port2 = 3128;
    std::strcpy(record.domain2, "second.example");
    return record;
}

// What the wizard does with a record between reading and writing it, both pages stored.
void loadFillStore(benchmark::State& state)
{
    const NetworkProfile read = filledRecord();
    for (auto _ : state) {
        ArrayForm form;
        const wizard::Record working = wizard::newRecord(&read);
        wizard::fillPage1(*working, form);
        wizard::fillPage2(*working, form);
        const wizard::Record stored = wizard::newRecord(working.get());
        wizard::storePage1(form, stored.get());
        wizard::storePage2(form, stored.get());
        if (std::memcmp(stored.get(), &read, sizeof read) != 0)
            state.SkipWithError("the record came back changed");
    }
}

BENCHMARK(loadFillStore)->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    return bench::run(argc, argv, {}, {{"loadFillStore", 20000}});
}
