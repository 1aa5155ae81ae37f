#include "network/links/networkmanager/rights.h"

#include <atomic>
#include <cstdio>

#include <pwd.h>
#include <unistd.h>

namespace network {

namespace {

std::string readUser()
{
    char buffer[4096];
    passwd entry = {};
    passwd* found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, buffer, sizeof buffer, &found) != 0 || !found)
        return "";
    return entry.pw_name;
}

const std::string& user()
{
    static const std::string name = readUser();
    return name;
}

} // namespace

const std::string& connectionOwner()
{
    static const std::string administrator;
    return ::geteuid() == 0 ? administrator : user();
}

std::string grantingLine()
{
    return "echo 'polkit.addRule(function(action, subject) { if (subject.user == \"" + user() +
           "\" && (action.id == \"org.freedesktop.NetworkManager.network-control\" || "
           "action.id == \"org.freedesktop.NetworkManager.settings.modify.own\")) return "
           "polkit.Result.YES; });' | sudo tee /etc/polkit-1/rules.d/50-links.rules";
}

void tellMissingRight()
{
    static std::atomic<bool> told{false};
    if (told.exchange(true))
        return;
    std::string text = "NetworkManager does not let this user open links; this lets him:\n" +
                       grantingLine() + "\n";
    std::fputs(text.c_str(), stderr);
}

} // namespace network
