// What a row answers that is switched off because the profile uses WiFi only.
#ifndef WIZARD_WIFIONLY_H
#define WIZARD_WIFIONLY_H

class QKeyEvent;

namespace wizard {

// Return and Enter show a message, which blocks until the user has read it; result: true, and the
// key is used up. Every other key is left to the row, so that the focus can move on.
bool explainWifiOnly(const QKeyEvent* event);

} // namespace wizard

#endif
