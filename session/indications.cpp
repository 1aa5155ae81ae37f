// The slots of the session manager: messages of the network API, and the popup's Cancel key.

#include "session/linkindication.h"
#include "support/guarded.h"
#include "ydatasessionmanager.h"
#include "ystatedialog.h"

// openFailed() carries it when the user has cancelled.
static_assert(NAPI_CAUSE_CANCELLED == 13, "applications rely on the number");

void YDataSessionManager::slotReadIndicator()
{
    // A receiver of a signal may delete the manager, or read on in a slot of its own; so the count
    // is asked again after each message, and first of all whether there is anybody to ask.
    support::Guarded<YDataSessionManager> self(this);
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
    dropPopup();
    pendingLinkId = -1;
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
    dropPopup();
    NAPI_CloseLink(pendingLinkId);
    const int cancelled = pendingLinkId;
    pendingLinkId = -1;
    emit openFailed(cancelled, NAPI_CAUSE_CANCELLED, 0);
}
