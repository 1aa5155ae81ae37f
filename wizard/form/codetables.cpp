#include "wizard/form/codetables.h"

#include <napi.h>

namespace wizard {

enum { lineTypeCount = 2, speedCount = 5 };

namespace {

const uint8_t speedCodes[lineTypeCount][speedCount] = {
    {0, 14, 7, 6, 4},
    {0, 75, 71, 70, 68},
};

const uint32_t preferenceCodes[] = {NAPI_PREFER_WIFI_THEN_CELLULAR, NAPI_PREFER_WIFI_ONLY,
                                    NAPI_PREFER_CELLULAR_ONLY};
const int preferenceCount = int(sizeof preferenceCodes / sizeof *preferenceCodes);

} // namespace

const TimeoutTable gprsTimeouts = {{0, 15, 60, 120, 360, 1440}};
const TimeoutTable csdTimeouts = {{0, 1, 5, 15, 30, 60}};

bool speedChoiceOf(uint8_t code, SpeedChoice* choice)
{
    for (int lineType = 0; lineType < lineTypeCount; ++lineType) {
        for (int speed = 0; speed < speedCount; ++speed) {
            if (speedCodes[lineType][speed] == code) {
                *choice = {lineType, speed};
                return true;
            }
        }
    }
    return false;
}

bool speedCodeOf(const SpeedChoice& choice, uint8_t* code)
{
    if (choice.speed < 0 || choice.speed >= speedCount || choice.lineType < 0 ||
        choice.lineType >= lineTypeCount)
        return false;
    *code = speedCodes[choice.lineType][choice.speed];
    return true;
}

int TimeoutTable::itemOf(uint16_t value) const
{
    for (int item = 1; item < itemCount; ++item) {
        if (minutes[item] == value)
            return item;
    }
    return 0;
}

bool TimeoutTable::minutesOf(int item, uint16_t* value) const
{
    if (item < 0 || item >= itemCount)
        return false;
    *value = minutes[item];
    return true;
}

int preferenceItemOf(uint32_t flags, int otherwise)
{
    for (int item = 0; item < preferenceCount; ++item) {
        if ((flags & NAPI_PREFER_MASK) == preferenceCodes[item])
            return item;
    }
    return otherwise;
}

uint32_t withPreference(uint32_t flags, int item)
{
    if (item < 0 || item >= preferenceCount)
        return flags;
    return (flags & ~uint32_t(NAPI_PREFER_MASK)) | preferenceCodes[item];
}

} // namespace wizard
