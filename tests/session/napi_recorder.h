// The network API's link calls, recorded and scripted: the test program's own functions stand in
// the place of libnapi's.
#ifndef SESSION_NAPI_RECORDER_H
#define SESSION_NAPI_RECORDER_H

#include <functional>
#include <string>
#include <vector>

#include <napi.h>

struct NapiRecorder
{
    // Each call as it came, for instance "OpenLink(Internet)".
    std::vector<std::string> calls;

    // What the calls give back. Init gives the read end of a new socket pair while initError is 0.
    int initError = 0;
    // Where that end is put; -1 for wherever the system puts it.
    int descriptor = -1;
    int openResult = 5;
    int closeResult = 0;
    int bindResult = 0;
    int nameResult = 0;
    int addressResult = 0;
    int dnsResult = 0;
    // Item 0 as it is written into the 16-byte buffer.
    std::string deviceName = std::string("wwan0\0", 6);
    uint32_t deviceAddress = 0x0A010203;
    // Whether a null address is no error.
    bool takesNullAddress = false;

    // The end on which the network API writes; -1 before Init.
    int writeEnd = -1;

    ~NapiRecorder();

    // Called by Fini, for a look at what is still there.
    std::function<void()> atFini;

    // The calls joined by blanks, and the list emptied.
    std::string take();

    void send(const NapiIndication& message);
    void sendBytes(const void* bytes, std::size_t count);
    void closeWriteEnd();

    // The recorder that the calls go to; made anew for each test.
    static NapiRecorder* current;
};

// A message with a distinct value in each field.
NapiIndication indication(uint16_t type, uint8_t linkId);

#endif
