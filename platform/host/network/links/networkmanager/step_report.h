// What openings do, for a person who watches.
#ifndef NETWORK_NETWORKMANAGER_STEP_REPORT_H
#define NETWORK_NETWORKMANAGER_STEP_REPORT_H

#include <functional>
#include <string>

namespace network {

using StepListener = std::function<void(int link, const std::string& text)>;

// Hears of each step from here on, on the engine's thread and with its mutex held, so it must not
// call the network API; an empty one ends it. Called from any thread.
void listenToSteps(StepListener listener);

void reportStep(int link, const std::string& text);

} // namespace network

#endif
