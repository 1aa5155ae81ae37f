// "link open": each indication as it comes, and the link closed at the end.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>

#include "base/ip_address.h"
#include "commands/broken_link.h"
#include "commands/link_session.h"
#include "failure.h"
#include "line/request.h"
#include "network/napi_host.h"
#include "output.h"
#include "profile/store.h"
#include "terminal_text.h"
#include "vornqtnapi_texts.h"

namespace ctl {

namespace {

using Clock = std::chrono::steady_clock;

const char* bearerText(int kind)
{
    switch (static_cast<NapiBearerKind>(kind)) {
    case NAPI_BEARER_UNKNOWN:
        return "unknown";
    case NAPI_BEARER_GPRS:
        return "gprs";
    case NAPI_BEARER_CSD:
        return "csd";
    case NAPI_BEARER_WIFI:
        return "wifi";
    }
    return "unknown";
}

const char* eventText(int type)
{
    switch (static_cast<NapiIndicationType>(type)) {
    case NAPI_IND_DEFAULT_LINK:
        return "default-link";
    case NAPI_IND_CONNECTED:
        return "connected";
    case NAPI_IND_OPEN_FAILED:
        return "failed";
    case NAPI_IND_BROKEN:
        return "broken";
    }
    return "unknown";
}

Json describe(const NapiIndication& indication)
{
    Json json = {{"event", eventText(indication.type)}, {"link", indication.linkId}};
    if (indication.type == NAPI_IND_OPEN_FAILED) {
        json["cause"] = indication.cause1;
        json["reason"] = vornCauseText(indication.cause1);
        json["detail"] = indication.cause2;
        return json;
    }
    const std::size_t length = strnlen(indication.infoText, sizeof indication.infoText);
    json["device"] = std::string(indication.infoText, length);
    json["address"] = indication.infoWord ? base::ipv4Text(indication.infoWord) : "";
    json["bearer"] = bearerText(indication.infoByte);
    return json;
}

// The same for people: "connected  link 0  device lo  address 127.0.0.1".
std::string lineOf(const Json& event)
{
    std::string line;
    for (const auto& [key, value] : event.items()) {
        const std::string text = value.is_string() ? value.get<std::string>() : value.dump();
        if (key != "event")
            line += "  " + key + ' ';
        line += text.empty() ? "-" : printable(text);
    }
    return line + '\n';
}

// The name as a word to type after a command, or NAME where a shell would need it quoted.
std::string asArgument(const std::string& name)
{
    static const char plain[] = "-._0123456789"
                                "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const bool isPlain = name[0] != '-' && name.find_first_not_of(plain) == std::string::npos;
    return isPlain ? name : "NAME";
}

// Without an access point name and a number to dial, only WiFi can carry the profile.
bool lacksCellular(const std::string& name)
{
    NetworkProfile record;
    return NAPI_ReadProfile(name.c_str(), &record, 0, 0) >= 0 && !record.gprsApn[0] &&
           !record.csdNumber[0] && (record.flags & NAPI_PREFER_MASK) != NAPI_PREFER_WIFI_ONLY;
}

std::string openFailedAdvice(const std::string& name, int cause)
{
    if (cause == NAPI_CAUSE_NO_BEARER && lacksCellular(name))
        return "The profile has neither an access point name nor a number to dial: \"vornctl "
               "profile set " +
               asArgument(name) + " apn=...\" gives it an access point.";
    return "Look at the profile with \"vornctl profile show\", and at etc/network.json with "
           "\"vornctl doctor\".";
}

class Opening
{
public:
    explicit Opening(const Request& request) : m_request(request) {}

    int run()
    {
        if (m_request.verbose)
            m_session.watchSteps();
        m_link = m_session.open(m_request.name);
        try {
            report({{"event", "opening"}, {"link", m_link}, {"profile", m_request.name}});
            const int status = untilUp();
            if (status == 0 && m_request.hold)
                untilDown();
            close();
            return status;
        } catch (const Failure&) {
            close();
            throw;
        }
    }

private:
    void report(const Json& event) const
    {
        if (m_request.json)
            printJsonLine(event);
        else
            print(lineOf(event));
    }

    void reportStep() const
    {
        report({{"event", "step"}, {"link", m_link}, {"text", m_session.step()}});
    }

    void close()
    {
        if (m_session.close())
            report({{"event", "closed"}, {"link", m_link}});
    }

    double remaining() const
    {
        if (m_timeout <= 0)
            return -1;
        const std::chrono::duration<double> passed = Clock::now() - m_start;
        return std::max(0.0, m_timeout - passed.count());
    }

    // Waits for the outcome of the opening; the exit status.
    int untilUp()
    {
        for (;;) {
            switch (m_session.wait(remaining())) {
            case LinkSession::Event::Signal:
                return 128 + m_session.signal();
            case LinkSession::Event::Timeout:
                throw Failure(Exit::TimedOut,
                              "the link for " + inQuotes(m_request.name) + " was not open in time.",
                              "Give --timeout a longer time, or none.");
            case LinkSession::Event::Ended:
                throw Failure(Exit::Io, "the network API ended by itself.");
            case LinkSession::Event::Step:
                reportStep();
                break;
            case LinkSession::Event::Indication:
                if (isUp(m_session.indication()))
                    return 0;
            }
        }
    }

    bool isUp(const NapiIndication& indication)
    {
        report(describe(indication));
        if (indication.type == NAPI_IND_OPEN_FAILED) {
            m_session.forget();
            throw Failure(Exit::OpenFailed,
                          "the link for " + inQuotes(m_request.name) +
                              " could not be opened: " + vornCauseText(indication.cause1) +
                              " (cause " + std::to_string(indication.cause1) + ", detail " +
                              std::to_string(indication.cause2) + ").",
                          openFailedAdvice(m_request.name, indication.cause1));
        }
        return indication.type == NAPI_IND_CONNECTED;
    }

    // Holds the link until a signal comes, which is how a person ends it, or until it breaks.
    void untilDown()
    {
        for (;;) {
            switch (m_session.wait(-1)) {
            case LinkSession::Event::Signal:
            case LinkSession::Event::Timeout:
                return;
            case LinkSession::Event::Ended:
                throw Failure(Exit::Io, "the network API ended by itself.");
            case LinkSession::Event::Step:
                reportStep();
                break;
            case LinkSession::Event::Indication:
                if (m_session.indication().type == NAPI_IND_BROKEN)
                    failBroken();
                report(describe(m_session.indication()));
            }
        }
    }

    [[noreturn]] void failBroken() const
    {
        const std::string reason = brokenReason(m_session.indication(), m_request.name);
        Json event = describe(m_session.indication());
        event["reason"] = reason;
        report(event);
        throw Failure(Exit::Broken,
                      "the link for " + inQuotes(m_request.name) + " broke: " + reason + '.',
                      "\"vornctl link open --hold\" opens it again.");
    }

    const Request& m_request;
    LinkSession m_session;
    double m_timeout = std::strtod(m_request.timeout.c_str(), nullptr); // 0 for none
    int m_link = -1;
    Clock::time_point m_start = Clock::now();
};

} // namespace

int linkOpen(const Request& request)
{
    return Opening(request).run();
}

} // namespace ctl
