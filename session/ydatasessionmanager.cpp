#include "ydatasessionmanager.h"

#include <new>
#include <string.h>
#include <string>

#include <napi.h>
#include <ysoftkey.h>

#include "support/text.h"
#include "ystatedialog.h"

// Results of this class's own making.
static const int notInitialised = -101;
static const int alreadyInitialised = -103;
static const int negativeLinkId = -151;

// The other mode of the network API, asked for by init(true).
static const int alternativeMode = 4;

static const int noLink = -1;

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
        return alreadyInitialised;
    indicationSocket = NAPI_Init(mode ? alternativeMode : 0);
    if (indicationSocket < 0)
        return indicationSocket;
    setSocket(indicationSocket);
    connect(this, SIGNAL(readyRead()), this, SLOT(slotReadIndicator()));
    connect(this, SIGNAL(connectionClosed()), this, SLOT(slotLoseConnection()));
    return indicationSocket;
}

int YDataSessionManager::openLink(const QString& profileName)
{
    if (indicationSocket < 0)
        return notInitialised;
    const int result = NAPI_OpenLink(support::utf8(profileName).c_str());
    if (result < 0 || pendingLinkId >= 0)
        return result;
    stateDialog = new (std::nothrow) YStateDialog(0);
    if (!stateDialog)
        return result;
    pendingLinkId = result;
    stateDialog->getSoftKey()->setClickedSlot(1, this, SLOT(slotCancelBtnClicked()));
    stateDialog->YPopup::show();
    return result;
}

int YDataSessionManager::openLinkNoDialog(const QString& profileName)
{
    if (indicationSocket < 0)
        return notInitialised;
    const int result = NAPI_OpenLink(support::utf8(profileName).c_str());
    stateDialog = 0;
    return result;
}

int YDataSessionManager::closeLink(int linkId)
{
    if (linkId < 0)
        return negativeLinkId;
    if (linkId == pendingLinkId) {
        dropPopup();
        pendingLinkId = noLink;
    }
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
    return linkId < 0 ? negativeLinkId : NAPI_BindSocket2Link(linkId, socket);
}

int YDataSessionManager::getDeviceInfo(int linkId, QString& name, unsigned long* value)
{
    const int nameSize = 16;
    char buffer[nameSize + 1] = {};
    int result = NAPI_GetDeviceInfo(linkId, NAPI_DEVICE_NAME, buffer, nameSize);
    if (result != 0)
        return result;
    name = support::fromUtf8(buffer, -1);

    result = NAPI_GetDeviceInfo(linkId, NAPI_DEVICE_ADDRESS, value, sizeof(uint32_t));
    // The number has four bytes; where a long is wider, its other bytes still hold what the caller
    // had there.
    if (result == 0) {
        uint32_t address;
        memcpy(&address, value, sizeof address);
        *value = address;
    }
    return result;
}

int YDataSessionManager::dnsResolverConfig(int linkId)
{
    return linkId < 0 ? negativeLinkId : NAPI_DnsResolverConfig(linkId);
}

void YDataSessionManager::dropPopup()
{
    delete stateDialog;
    stateDialog = 0;
}
