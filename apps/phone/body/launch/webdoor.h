// The servers through which a browser reaches the phone.
#ifndef PHONE_LAUNCH_WEBDOOR_H
#define PHONE_LAUNCH_WEBDOOR_H

#include <optional>
#include <string>

#include <QTemporaryDir>

#include "child.h"

namespace phone {

// Debian's websockify, which gives a browser the page with noVNC and carries what that says to the
// phone's VNC server, for who knows a token that is made anew each time. Everything lies in a
// folder of this user alone, which goes with the object.
class WebDoor
{
public:
    WebDoor(std::string address, int port);
    WebDoor(const WebDoor&) = delete;
    WebDoor& operator=(const WebDoor&) = delete;
    ~WebDoor();

    // What keeps the phone from being shown, and what to do; "" when all is there and the port
    // free.
    std::string obstacle() const;
    // Result: "", or what went wrong.
    std::string open();

    // Where the phone is to listen.
    std::string socket() const { return m_folder + "/door"; }
    // What to open in the browser.
    std::string url() const;
    pid_t server() const { return m_server.id(); }
    void serverHasEnded() { m_server.hasEnded(); }
    // What the server has said.
    std::string log() const;

private:
    bool makeFolder();
    bool writeFiles() const;
    std::string waitForServer();

    std::string m_address;
    int m_port;
    std::optional<QTemporaryDir> m_temporary;
    std::string m_folder; // its path
    std::string m_token;
    Child m_server;
};

} // namespace phone

#endif
