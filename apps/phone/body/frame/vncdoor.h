// The way into a phone that is shown in a browser.
#ifndef PHONE_FRAME_VNCDOOR_H
#define PHONE_FRAME_VNCDOOR_H

#include <string>

#include <QObject>

namespace phone {

// Qt's VNC server listens on a TCP port of every interface and lets everybody in who asks. Before
// it has answered anybody, its listening socket is replaced by a Unix socket, which can be reached
// only by who may enter the folder that it lies in. Whoever has asked at the port meanwhile is cut
// off.
//
// The server is made some time after the application object, but on this thread, and hears of a
// connection by an event: so each event is looked at until the door is closed.
class VncDoor : public QObject
{
    Q_OBJECT

public:
    // `path` is where the Unix socket is to lie. Ends the program with 1 when it cannot lie there.
    VncDoor(QObject* parent, std::string path);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::string m_path;
};

} // namespace phone

#endif
