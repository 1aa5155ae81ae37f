#include "session/signal_log.h"

SignalLog::SignalLog(YDataSessionManager& manager)
{
    connect(&manager, SIGNAL(connected(int, YLinkInfo&)), SLOT(connected(int, YLinkInfo&)));
    connect(&manager, SIGNAL(openFailed(int, unsigned short, unsigned short)),
            SLOT(openFailed(int, unsigned short, unsigned short)));
    connect(&manager, SIGNAL(broken(int, YLinkInfo&)), SLOT(broken(int, YLinkInfo&)));
}

std::string SignalLog::take()
{
    std::string text = m_lines;
    m_lines.clear();
    return text;
}

std::string SignalLog::takeFirst()
{
    const std::size_t end = m_lines.find(' ');
    const std::string first = m_lines.substr(0, end);
    m_lines.erase(0, end == std::string::npos ? end : end + 1);
    return first;
}

void SignalLog::note(const std::string& line)
{
    m_lines += (m_lines.empty() ? "" : " ") + line;
    if (inside)
        inside();
}

void SignalLog::connected(int linkId, YLinkInfo& info)
{
    infos.push_back(info);
    note("connected(" + std::to_string(linkId) + ")");
}

void SignalLog::openFailed(int linkId, unsigned short cause1, unsigned short cause2)
{
    note("openFailed(" + std::to_string(linkId) + "," + std::to_string(cause1) + "," +
         std::to_string(cause2) + ")");
}

void SignalLog::broken(int linkId, YLinkInfo& info)
{
    infos.push_back(info);
    note("broken(" + std::to_string(linkId) + ")");
}
