// The profile calls of the network API, recorded and scripted: the test program's own functions
// stand in the place of libnapi's.
#ifndef TESTS_WIZARD_RECORDED_NAPI_H
#define TESTS_WIZARD_RECORDED_NAPI_H

#include <map>
#include <string>

#include <napi.h>

struct RecordedNapi
{
    // What is stored, by name.
    std::map<std::string, NetworkProfile> profiles;

    // Results of the calls; 0 lets them do their work. What IsProfileValid and ReadProfile have no
    // profile for is NAPI_ERR_NO_PROFILE in any case.
    int listResult = 0;
    int validResult = 0;
    int readResult = 0;
    int createResult = 0;
    int modifyResult = 0;

    // Whether ReadProfile hands the record over when it fails, too.
    bool fillsRefused = false;

    // The record that came with the last CreateProfile or ModifyProfile.
    NetworkProfile written = {};

    // Where the last ReadProfile had to put the record.
    NetworkProfile* lastRead = nullptr;

    // Makes this the one that the calls go to.
    RecordedNapi();
    ~RecordedNapi();
};

#endif
