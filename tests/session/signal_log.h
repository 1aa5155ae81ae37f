// The signals of a session manager, noted as text.
#ifndef SESSION_SIGNAL_LOG_H
#define SESSION_SIGNAL_LOG_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <ydatasessionmanager.h>

// Notes each signal as a line, and can act inside one.
class SignalLog : public QObject
{
    Q_OBJECT

public:
    explicit SignalLog(YDataSessionManager& manager);

    // The first line, taken out of the log; empty when there is none.
    std::string takeFirst();
    bool isEmpty() const { return m_lines.empty(); }
    // The lines joined by blanks, and the log emptied.
    std::string take();

    std::vector<YLinkInfo> infos;
    std::function<void()> inside;

public slots:
    void connected(int linkId, YLinkInfo& info);
    void openFailed(int linkId, unsigned short cause1, unsigned short cause2);
    void broken(int linkId, YLinkInfo& info);

private:
    void note(const std::string& line);

    std::string m_lines;
};

#endif
