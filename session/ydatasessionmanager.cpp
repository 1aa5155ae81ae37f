#include "ydatasessionmanager.h"

#include <new>
#include <string.h>
#include <string>

#include <napi.h>
#include <ysoftkey.h>

#include "session/linkindication.h"
#include "support/guarded.h"
#include "support/memory.h"
#include "support/text.h"
#include "support/toolkitnumbers.h"
#include "vornqtnapi_texts.h"
#include "ystatedialog.h"

using support::Guarded;

namespace {

// The other mode of the network API, asked for by init(true).
const int alternativeMode = 4;

const int noLink = -1;

// openFailed() carries it when the user has cancelled.
static_assert(NAPI_CAUSE_CANCELLED == 13, "applications rely on the number");

int withoutMemory()
{
    return NAPI_ERR_MEMORY_FULL;
}

int openNamed(const QString& profileName)
{
    return support::withMemory(
        [&profileName] { return NAPI_OpenLink(support::utf8(profileName).c_str()); },
        withoutMemory);
}

int getDeviceName(int linkId, QString& name)
{
    const int nameSize = 16;
    char buffer[nameSize + 1] = {};
    const int result = NAPI_GetDeviceInfo(linkId, NAPI_DEVICE_NAME, buffer, nameSize);
    if (result != 0)
        return result;
    return support::withMemory(
        [&name, &buffer] {
            name = support::fromUtf8(buffer, -1);
            return 0;
        },
        withoutMemory);
}

} // namespace

YDataSessionManager::YDataSessionManager(QObject* parent, const char* name)
    : QWSSocket(parent, name), indicationSocket(-1), pendingLinkId(noLink), stateDialog(0)
{}

YDataSessionManager::~YDataSessionManager()
{
    delete stateDialog;
    if (indicationSocket >= 0)
        NAPI_Fini();
}

int YDataSessionManager::init(bool mode)
{
    if (indicationSocket >= 0)
        return VORN_ERR_INITIALISED_ALREADY;
    indicationSocket = NAPI_Init(mode ? alternativeMode : 0);
    if (indicationSocket >= 0)
        support::withMemory([this] { listen(); }, [this] { giveBack(); });
    return indicationSocket;
}

void YDataSessionManager::listen()
{
    setSocket(indicationSocket);
    // The first guard of an object takes memory, those after it take none: so slotReadIndicator()
    // cannot run out of it, where nobody could be told.
    const Guarded<YDataSessionManager> self(this);
    connect(this, SIGNAL(readyRead()), this, SLOT(slotReadIndicator()));
    connect(this, SIGNAL(connectionClosed()), this, SLOT(slotLoseConnection()));
}

// All as before init(), so that it may be tried again.
void YDataSessionManager::giveBack()
{
    disconnect(this, SIGNAL(readyRead()), this, SLOT(slotReadIndicator()));
    disconnect(this, SIGNAL(connectionClosed()), this, SLOT(slotLoseConnection()));
    close();
    NAPI_Fini();
    indicationSocket = withoutMemory();
}

int YDataSessionManager::openLink(const QString& profileName)
{
    if (indicationSocket < 0)
        return VORN_ERR_NOT_INITIALISED;
    const int result = openNamed(profileName);
    if (result >= 0 && pendingLinkId < 0)
        support::withMemory([this, result] { showPopup(result); }, [this] { endPending(); });
    return result;
}

void YDataSessionManager::showPopup(int linkId)
{
    stateDialog = new (std::nothrow) YStateDialog(0);
    if (!stateDialog)
        return;
    pendingLinkId = linkId;
    stateDialog->getSoftKey()->setClickedSlot(toolkit::RightKey, this,
                                              SLOT(slotCancelBtnClicked()));
    stateDialog->YPopup::show();
}

int YDataSessionManager::openLinkNoDialog(const QString& profileName)
{
    if (indicationSocket < 0)
        return VORN_ERR_NOT_INITIALISED;
    const int result = openNamed(profileName);
    stateDialog = 0;
    return result;
}

int YDataSessionManager::closeLink(int linkId)
{
    if (linkId < 0)
        return VORN_ERR_NEGATIVE_LINK;
    if (linkId == pendingLinkId)
        endPending();
    return NAPI_CloseLink(linkId);
}

int YDataSessionManager::attach(int, const QString&)
{
    return 0;
}

int YDataSessionManager::hold(int, const QString&)
{
    return 0;
}

int YDataSessionManager::drop(int, const QString&)
{
    return 0;
}

int YDataSessionManager::bindSocket2Link(int linkId, int socket)
{
    return linkId < 0 ? int(VORN_ERR_NEGATIVE_LINK) : NAPI_BindSocket2Link(linkId, socket);
}

int YDataSessionManager::getDeviceInfo(int linkId, QString& name, unsigned long* value)
{
    int result = getDeviceName(linkId, name);
    if (result != 0)
        return result;

    result = NAPI_GetDeviceInfo(linkId, NAPI_DEVICE_ADDRESS, value, sizeof(uint32_t));
    // The number has four bytes; where a long is wider, its other bytes still hold what the caller
    // had there.
    if (result == 0 && value) {
        uint32_t address;
        memcpy(&address, value, sizeof address);
        *value = address;
    }
    return result;
}

int YDataSessionManager::dnsResolverConfig(int linkId)
{
    return linkId < 0 ? int(VORN_ERR_NEGATIVE_LINK) : NAPI_DnsResolverConfig(linkId);
}

void YDataSessionManager::slotReadIndicator()
{
    // A receiver of a signal may delete the manager, or read on in a slot of its own; so the count
    // is asked again after each message, and first of all whether there is anybody to ask.
    Guarded<YDataSessionManager> self(this);
    NapiIndication message;
    while (self && size() >= sizeof message) {
        readBlock(reinterpret_cast<char*>(&message), sizeof message);
        if (message.linkId == pendingLinkId)
            answerPending(message);
        else
            announce(message);
    }
}

void YDataSessionManager::answerPending(const NapiIndication& message)
{
    if (message.type != NAPI_IND_CONNECTED && message.type != NAPI_IND_OPEN_FAILED)
        return;
    endPending();
    announce(message);
}

void YDataSessionManager::announce(const NapiIndication& message)
{
    if (message.type == NAPI_IND_OPEN_FAILED) {
        emit openFailed(message.linkId, message.cause1, message.cause2);
        return;
    }
    // Type 3 is about the link that the phone itself keeps open, which has the id 0.
    const bool up = message.type == NAPI_IND_CONNECTED ||
                    (message.type == NAPI_IND_DEFAULT_LINK && message.linkId == 0);
    if (!up && message.type != NAPI_IND_BROKEN)
        return;
    YLinkInfo info = session::linkInfo(message);
    if (up)
        emit connected(message.linkId, info);
    else
        emit broken(message.linkId, info);
}

// The network API has gone. Nothing is said and nothing is opened anew; the application learns it
// from the results of its next calls.
void YDataSessionManager::slotLoseConnection() {}

void YDataSessionManager::slotCancelBtnClicked()
{
    const int cancelled = pendingLinkId;
    deletePopup();
    NAPI_CloseLink(cancelled);
    pendingLinkId = noLink;
    emit openFailed(cancelled, NAPI_CAUSE_CANCELLED, 0);
}

void YDataSessionManager::endPending()
{
    deletePopup();
    pendingLinkId = noLink;
}

void YDataSessionManager::deletePopup()
{
    delete stateDialog;
    stateDialog = 0;
}
