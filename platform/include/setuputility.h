// The platform feature query: what this model of the phone can do.
#ifndef SETUPUTILITY_H
#define SETUPUTILITY_H

#include "platform_export.h"

// Feature numbers.
enum SetupFeature {
    SETUP_FEATURE_WIFI = 431 // connections over WiFi
};

//     if (SETUP_Utility().isFeatureAvailable(SETUP_FEATURE_WIFI))
//         offerWifi();
class VORN_PLATFORM_API SETUP_Utility
{
public:
    SETUP_Utility();
    ~SETUP_Utility();

    // Tells whether a feature, by its number, is available: non-zero when it is, 0 when it is not
    // or the number is unknown. Read anew at each call, which blocks while the file is read. On the
    // host etc/features.json tells; a broken file is said once on standard error, with file and
    // line, and makes no feature available. May be called from any thread.
    int isFeatureAvailable(int feature) const;

private:
    SETUP_Utility(const SETUP_Utility&);
    SETUP_Utility& operator=(const SETUP_Utility&);
};

#endif
