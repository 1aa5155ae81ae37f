#include "setuputility.h"

#include "settings/settings_files.h"

SETUP_Utility::SETUP_Utility() {}

SETUP_Utility::~SETUP_Utility() {}

int SETUP_Utility::isFeatureAvailable(int feature) const
{
    std::map<int, settingsfiles::FeatureLine> lines;
    const std::string file = settingshost::featuresFile();
    const settingshost::Result result = settingsfiles::readFeatures(&lines, "no features");
    settingsfiles::sayOnce(file, result.message);
    if (!result.isOk())
        return 0;
    const settingsfiles::FeatureLine line = lines[feature];
    settingsfiles::sayOnce(file + ' ' + std::to_string(feature), line.problem);
    return line.isAvailable;
}
