// Opens, watches and closes data links.
#ifndef YDATASESSIONMANAGER_H
#define YDATASESSIONMANAGER_H

#include <qstring.h>
#include <qwssocket_qws.h>

#include "vornqtnapi_export.h"
#include "ylinkinfo.h"

#include "vornqtnapi_keywords_begin.h"

class YStateDialog;
struct NapiIndication;

// An application creates one manager, calls init(), and opens a link for the name of a stored
// network profile. Each call returns at once; what becomes of the link arrives later as a signal:
//
//     YDataSessionManager* manager = new YDataSessionManager(this);
//     connect(manager, SIGNAL(connected(int,YLinkInfo&)), SLOT(online(int)));
//     connect(manager, SIGNAL(openFailed(int,unsigned short,unsigned short)), SLOT(offline(int)));
//     if (manager->init(false) >= 0)
//         link = manager->openLink("Internet");
//
// The slot binds the application's sockets with bindSocket2Link() before they connect, and the
// application calls closeLink() when it is done. A slot may take only the leading arguments of a
// signal, may call any operation of the manager, and may delete it.
//
// What the network API has reported before closeLink() or a Cancel is still on its way then, and
// comes as a signal for a link that is closed. A receiver compares the id with the one that it
// holds, and gives that up when it closes the link:
//
//     if (linkId != link)
//         return; // of a link that was closed or cancelled meanwhile
//     manager->closeLink(link);
//     link = -1;
//
// The network API gives a free id again. Who opens the next link at once may be told of the link
// before it under the same id; after a pass through the event loop nothing of that is left.
//
// All calls and all signals belong to the GUI thread. The object logs nothing and starts no thread
// and no timer. Link ids are 0..255. Results: 0 or a link id is success; negative results are -101,
// -103 and -151 where the operation says so, -152 also where memory has run out, and otherwise
// those of the network API (napi.h), unchanged. No exception leaves an operation.
//
// The manager is itself the socket on which the network API reports; the operations inherited from
// the socket are not for applications.
class VORNQTNAPI_EXPORT YDataSessionManager : public QWSSocket
{
    Q_OBJECT

public:
    // Opens nothing. `parent` owns the object in the usual way and may be null; `name` is the
    // object's name for debugging and may be null.
    YDataSessionManager(QObject* parent = 0, const char* name = 0);

    // Deletes the connecting popup if one is up, and gives the network API back if init()
    // succeeded. Does not close links: call closeLink() first for each that is open.
    ~YDataSessionManager();

    // Starts the network API and begins to listen to it. `mode` selects the network API's mode 4
    // instead of 0.
    // Result: the descriptor of the indication socket (>= 0), which belongs to the manager; -103
    // when the manager is initialised already; else the network API's error, and init() may be
    // tried again.
    int init(bool mode);

    // Opens a link for the profile `profileName` and shows a popup with a Cancel key until the
    // outcome arrives. While an earlier openLink() is pending, the new link gets no popup of its
    // own; nor does it where there is no memory for one. Cancel closes the link and emits
    // openFailed() with the causes 13 and 0. Result: the link id (>= 0); -101 before init() has
    // succeeded; else the network API's error, and nothing is shown.
    int openLink(const QString& profileName);

    // The same without a popup. A popup that an earlier openLink() still shows is no longer looked
    // after: it stays on the screen whatever becomes of its opening, since nothing deletes it, so
    // wait for the outcome of that opening first. Its Cancel key works on as long as the manager
    // lives; once the opening is over it emits openFailed() with the link id -1.
    // Result: the link id (>= 0); -101 before init() has succeeded; else the network API's error.
    int openLinkNoDialog(const QString& profileName);

    // Closes a link or gives up its opening, and takes the popup of that opening away. It emits no
    // signal itself; what was reported of the link before still comes (see above).
    // Result: 0; -151 when `linkId` is negative; else the network API's error.
    int closeLink(int linkId);

    // Placeholders that do nothing; always 0.
    int attach(int, const QString&);
    int hold(int, const QString&);
    int drop(int, const QString&);

    // Binds the descriptor of an application's socket to the link, so that its traffic takes this
    // link; call it before the socket connects.
    // Result: 0; -151 when `linkId` is negative; else the network API's error.
    int bindSocket2Link(int linkId, int socket);

    // Tells the link's network device: its name, for instance "wwan0", and in `*value` its IPv4
    // address as a number with the first octet in the most significant byte. A null `value` goes to
    // the network API as it is. Result: 0; else the network API's error. When already the name
    // cannot be had, neither output is changed.
    int getDeviceInfo(int linkId, QString& name, unsigned long* value);

    // Makes the system's name resolver use the link's name servers.
    // Result: 0; -151 when `linkId` is negative; else the network API's error.
    int dnsResolverConfig(int linkId);

signals:
    // The link is up. May still come for a link whose opening was cancelled or closed meanwhile.
    void connected(int linkId, YLinkInfo& info);
    // Opening has failed, or the user has cancelled it. The first cause is one of NapiCause in
    // napi.h, the second a detail of it. The link id is free again. Comes a second time, with the
    // network API's causes, where it was reported before the user cancelled, and may still come
    // after closeLink().
    void openFailed(int linkId, unsigned short cause1, unsigned short cause2);
    // An established link is gone; closeLink() frees its id. Not emitted for the link whose popup
    // is still up. May still come after closeLink().
    void broken(int linkId, YLinkInfo& info);

private slots:
    void slotReadIndicator();
    void slotLoseConnection();
    void slotCancelBtnClicked();

private:
    void listen();
    void giveBack();
    void showPopup(int linkId);
    void answerPending(const NapiIndication& message);
    void announce(const NapiIndication& message);
    void endPending();
    void deletePopup();

    int indicationSocket;
    int pendingLinkId;
    YStateDialog* stateDialog;
};

#include "vornqtnapi_keywords_end.h"

#endif
