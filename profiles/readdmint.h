// Integer settings from the device-management tree.
#ifndef PROFILES_READDMINT_H
#define PROFILES_READDMINT_H

// Reads the integer node `nodeName`, for instance "DefConnPrefer", on behalf of the local
// principal. Returns 1 and stores the integer in `value`; or logs why it cannot, returns 0 and
// leaves `value` as it was. The tree is started and ended by each call, so that a change is seen by
// the next one. Call it on the GUI thread, which waits for the tree.
int readDmInt(const char* nodeName, int& value);

#endif
