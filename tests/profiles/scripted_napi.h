// The profile list of the network API, as the test says it.
#ifndef TESTS_PROFILES_SCRIPTED_NAPI_H
#define TESTS_PROFILES_SCRIPTED_NAPI_H

#include <climits>
#include <functional>
#include <string>
#include <vector>

namespace scripted {

enum { asStored = INT_MIN };

struct Napi
{
    // The bytes of the slots: up to 64, the NUL included or not. What a slot has left is filled
    // with the digit 9 after its NUL.
    std::vector<std::string> filled;
    int firstResult = 0;  // of the call for the count
    int secondResult = 0; // of the call for the names
    int firstCount = asStored;
    int secondCount = asStored;
    // What NAPI_GetMaxProfiles answers, call by call; the last one stays.
    std::vector<unsigned int> limits = {100};
    // Runs at the end of each NAPI_GetMaxProfiles.
    std::function<void()> afterLimit = [] {};
};

// A name as it stands in a slot, with its NUL.
std::string slot(const std::string& name);

// What the calls come to from now on.
void play(const Napi& napi);

// Whether the buffer of the last call for the names began with four bytes of zero.
bool beganWithZeros();

} // namespace scripted

#endif
