#include "session/napi_recorder.h"

#include <algorithm>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

#include <gtest/gtest.h>

NapiRecorder* NapiRecorder::current = nullptr;

NapiRecorder::~NapiRecorder()
{
    closeWriteEnd();
}

std::string NapiRecorder::take()
{
    std::string text;
    for (const std::string& call : calls)
        text += (text.empty() ? "" : " ") + call;
    calls.clear();
    return text;
}

void NapiRecorder::send(const NapiIndication& message)
{
    sendBytes(&message, sizeof message);
}

void NapiRecorder::sendBytes(const void* bytes, std::size_t count)
{
    ASSERT_EQ(static_cast<ssize_t>(count), ::send(writeEnd, bytes, count, MSG_NOSIGNAL));
}

void NapiRecorder::closeWriteEnd()
{
    if (writeEnd >= 0)
        ::close(writeEnd);
    writeEnd = -1;
}

NapiIndication indication(uint16_t type, uint8_t linkId)
{
    NapiIndication message = {};
    message.type = type;
    message.linkId = linkId;
    message.infoByte = 0xC7;
    std::strcpy(message.infoText, "text of the link");
    message.infoWord = 0xDEADBEEF;
    message.cause1 = 0xA1B2;
    message.cause2 = 0x0304;
    return message;
}

namespace {

void note(const std::string& call)
{
    NapiRecorder::current->calls.push_back(call);
}

std::string number(int value)
{
    return std::to_string(value);
}

} // namespace

int NAPI_Init(int mode)
{
    NapiRecorder& recorder = *NapiRecorder::current;
    note("Init(" + number(mode) + ")");
    if (recorder.initError != 0)
        return recorder.initError;
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return NAPI_ERR_RESOURCES;
    recorder.closeWriteEnd();
    recorder.writeEnd = ends[1];
    if (recorder.descriptor < 0)
        return ends[0];
    ::dup2(ends[0], recorder.descriptor);
    ::close(ends[0]);
    return recorder.descriptor;
}

int NAPI_Fini()
{
    note("Fini()");
    if (NapiRecorder::current->atFini)
        NapiRecorder::current->atFini();
    return 0;
}

int NAPI_OpenLink(const char* name)
{
    note("OpenLink(" + std::string(name) + ")");
    return NapiRecorder::current->openResult;
}

int NAPI_CloseLink(int linkId)
{
    note("CloseLink(" + number(linkId) + ")");
    return NapiRecorder::current->closeResult;
}

int NAPI_BindSocket2Link(int linkId, int socket)
{
    note("BindSocket2Link(" + number(linkId) + "," + number(socket) + ")");
    return NapiRecorder::current->bindResult;
}

int NAPI_GetDeviceInfo(int linkId, int item, void* buffer, int length)
{
    const NapiRecorder& recorder = *NapiRecorder::current;
    note("GetDeviceInfo(" + number(linkId) + "," + number(item) + "," + number(length) + ")");
    if (item == NAPI_DEVICE_NAME) {
        if (recorder.nameResult == 0)
            std::memcpy(buffer, recorder.deviceName.data(),
                        std::min<std::size_t>(recorder.deviceName.size(),
                                              static_cast<std::size_t>(length)));
        return recorder.nameResult;
    }
    if (!buffer)
        return recorder.takesNullAddress ? recorder.addressResult : int(NAPI_ERR_ARGUMENT);
    if (recorder.addressResult == 0)
        std::memcpy(buffer, &recorder.deviceAddress, sizeof recorder.deviceAddress);
    return recorder.addressResult;
}

int NAPI_DnsResolverConfig(int linkId)
{
    note("DnsResolverConfig(" + number(linkId) + ")");
    return NapiRecorder::current->dnsResult;
}
