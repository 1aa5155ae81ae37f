#include "network/fake/modem_manager.h"

namespace fakebus {

namespace {

const char* const bearerInterface = "org.freedesktop.ModemManager1.Bearer";

} // namespace

ModemManager::ModemManager()
    : service("org.freedesktop.ModemManager1", "/org/freedesktop/ModemManager1")
{
    service.objects[modemPath]["org.freedesktop.ModemManager1.Modem"] = {
        {"State", integer(8)},
        {"StateFailedReason", number(0)},
        {"UnlockRequired", number(1)},
        {"Bearers", paths({bearerPath})},
        {"Sim", path("/org/freedesktop/ModemManager1/SIM/0")},
        {"PowerState", number(3)},
        {"SignalQuality", signal(64, true)},
        {"AccessTechnologies", number(1 << 5)},
        {"PrimaryPort", text("ttyHS0")}};
    service.objects[modemPath]["org.freedesktop.ModemManager1.Modem.Modem3gpp"] = {
        {"RegistrationState", number(1)},
        {"OperatorCode", text("00101")},
        {"OperatorName", text("Laboratory")}};
    service.objects[bearerPath][bearerInterface] = {{"Connected", flag(false)},
                                                    {"Interface", text("")},
                                                    {"Properties", dictionary({})},
                                                    {"ConnectionError", twoTexts("", "")}};
}

void ModemManager::connectionError(const std::string& name, const std::string& words)
{
    std::string whole = name.empty() ? "" : "org.freedesktop.ModemManager1.Error." + name;
    service.change(bearerPath, bearerInterface, "ConnectionError",
                   twoTexts(whole, name.empty() ? "" : words));
}

void ModemManager::accessPoint(const std::string& name)
{
    service.change(bearerPath, bearerInterface, "Connected", flag(true));
    service.change(bearerPath, bearerInterface, "Properties", dictionary({{"apn", text(name)}}));
}

} // namespace fakebus
