#include "webdoor.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <QLibraryInfo>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/random.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "webpage.h"

namespace phone {

namespace {

constexpr int longestStart = 15000; // milliseconds
constexpr int look = 50;

constexpr const char novnc[] = "/usr/share/novnc";

sockaddr_in socketAddress(const std::string& address, int port)
{
    sockaddr_in made{};
    made.sin_family = AF_INET;
    made.sin_port = htons(static_cast<uint16_t>(port));
    inet_pton(AF_INET, address.c_str(), &made.sin_addr);
    return made;
}

// 0, or the errno with which the port cannot be had.
int tryPort(const std::string& address, int port)
{
    const sockaddr_in wanted = socketAddress(address, port);
    const int tried = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int yes = 1;
    setsockopt(tried, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    const int error = bind(tried, reinterpret_cast<const sockaddr*>(&wanted), sizeof wanted) == 0 &&
                              listen(tried, 1) == 0
                          ? 0
                          : errno;
    close(tried);
    return error;
}

bool answers(const std::string& address, int port)
{
    const sockaddr_in wanted = socketAddress(address, port);
    const int tried = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool connected =
        connect(tried, reinterpret_cast<const sockaddr*>(&wanted), sizeof wanted) == 0;
    close(tried);
    return connected;
}

bool isInPath(const std::string& program)
{
    const char* path = std::getenv("PATH");
    std::string rest = path ? path : "/usr/bin:/bin";
    for (std::size_t end = 0; end != rest.npos; rest.erase(0, end + 1)) {
        end = rest.find(':');
        if (access((rest.substr(0, end) + "/" + program).c_str(), X_OK) == 0)
            return true;
        if (end == rest.npos)
            break;
    }
    return false;
}

std::string missingPackages()
{
    std::string missing;
    if (!std::filesystem::exists(std::string(novnc) + "/core/rfb.js"))
        missing += " novnc";
    if (!isInPath("websockify"))
        missing += " websockify";
    const QString plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath);
    if (!std::filesystem::exists(plugins.toStdString() + "/platforms/libqvnc.so"))
        missing += " qt6-qpa-plugins";
    return missing;
}

// 128 bits that nobody can guess.
std::string madeToken()
{
    unsigned char random[16];
    if (getrandom(random, sizeof random, 0) != static_cast<ssize_t>(sizeof random))
        return {};
    std::string token;
    for (const unsigned char byte : random) {
        constexpr const char digits[] = "0123456789abcdef";
        token += {digits[byte >> 4], digits[byte & 15]};
    }
    return token;
}

bool write(const std::string& file, const std::string& text)
{
    std::ofstream out(file, std::ios::binary);
    out << text;
    out.close();
    return !out.fail();
}

} // namespace

WebDoor::WebDoor(std::string address, int port) : m_address(std::move(address)), m_port(port) {}

// The server ends before its folder goes.
WebDoor::~WebDoor()
{
    m_server.end();
}

std::string WebDoor::obstacle() const
{
    if (const std::string missing = missingPackages(); !missing.empty())
        return "a browser needs packages that are not installed\n  as root: apt-get install" +
               missing;
    const int error = tryPort(m_address, m_port);
    const std::string place = "port " + std::to_string(m_port) + " of " + m_address;
    if (error == EADDRINUSE)
        return place + " is in use\n  choose another one: vornphone --web " +
               std::to_string(m_port < 65535 ? m_port + 1 : 6080);
    if (error == EACCES)
        return place + " is not for everybody\n  choose one above 1023: vornphone --web 6080";
    return error == 0 ? std::string() : place + " cannot be had: " + std::strerror(error);
}

std::string WebDoor::open()
{
    m_token = madeToken();
    if (m_token.empty() || !makeFolder() || !writeFiles())
        return "the files for the browser cannot be written: " + std::string(std::strerror(errno));
    const int error = m_server.start(
        {"websockify", "--web=" + m_folder + "/www", "--token-plugin=TokenFile",
         "--token-source=" + m_folder + "/tokens", m_address + ":" + std::to_string(m_port)},
        {m_folder + "/log"});
    if (error != 0)
        return "websockify cannot be started: " + std::string(std::strerror(error));
    return waitForServer();
}

std::string WebDoor::url() const
{
    // What stands behind the sign # is not sent by a browser, and so is in nobody's log.
    return "http://" + m_address + ":" + std::to_string(m_port) + "/#" + m_token;
}

std::string WebDoor::log() const
{
    std::ifstream in(m_folder + "/log", std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The path of a Unix socket is short, so that a folder for running programs that lies deep is
// passed over.
bool WebDoor::makeFolder()
{
    constexpr std::size_t longest = 60;
    const char* running = std::getenv("XDG_RUNTIME_DIR");
    std::string parent = running ? running : "";
    if (parent.empty() || parent.size() > longest || access(parent.c_str(), W_OK) != 0)
        parent = "/tmp";
    m_temporary.emplace(QString::fromStdString(parent + "/vornphone-"));
    m_folder = m_temporary->path().toStdString();
    return m_temporary->isValid();
}

bool WebDoor::writeFiles() const
{
    const std::string pages = m_folder + "/www";
    const std::string here = std::string(novnc);
    if (mkdir(pages.c_str(), 0700) != 0 ||
        symlink((here + "/core").c_str(), (pages + "/core").c_str()) != 0 ||
        symlink((here + "/vendor").c_str(), (pages + "/vendor").c_str()) != 0)
        return false;
    return write(pages + "/index.html", webPage()) &&
           write(m_folder + "/tokens", m_token + ": unix_socket:" + socket() + "\n");
}

std::string WebDoor::waitForServer()
{
    for (int waited = 0; waited < longestStart; waited += look) {
        if (answers(m_address, m_port))
            return {};
        if (waitpid(m_server.id(), nullptr, WNOHANG) == m_server.id()) {
            m_server.hasEnded();
            return "websockify has ended: " + log();
        }
        usleep(look * 1000);
    }
    return "websockify does not answer: " + log();
}

} // namespace phone
