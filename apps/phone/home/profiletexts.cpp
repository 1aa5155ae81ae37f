#include "home/profiletexts.h"

#include <cstring>

#include <napi.h>

#include "cards/card.h"
#include "texts/phone_text.h"

namespace phone {

namespace {

// A text that fills its field has no NUL.
template <std::size_t size> QString fieldText(const char (&field)[size])
{
    return QString::fromUtf8(field, qsizetype(strnlen(field, size)));
}

QString placeText(const NetworkProfile& record)
{
    const QString accessPoint = fieldText(record.gprsApn);
    if (!accessPoint.isEmpty())
        return accessPoint;
    const QString number = fieldText(record.csdNumber);
    return number.isEmpty() ? text("TXT_RID_PHONE_CARD_NO_APN", "No access point") : number;
}

} // namespace

QString preferenceText(const NetworkProfile& record)
{
    switch (record.flags & NAPI_PREFER_MASK) {
    case NAPI_PREFER_WIFI_ONLY:
        return text("TXT_RID_COMBOBOX_WIFI_ONLY", "WiFi Only");
    case NAPI_PREFER_WIFI_THEN_CELLULAR:
        return text("TXT_RID_COMBOBOX_WIFI_THEN_CELLULAR", "WiFi, then Cellular");
    case NAPI_PREFER_CELLULAR_ONLY:
        return text("TXT_RID_COMBOBOX_CELLULAR_ONLY", "Cellular Only");
    default:
        return QString();
    }
}

QStringList profileLines(const NetworkProfile& record)
{
    return {placeText(record), preferenceText(record)};
}

Sign profileSign(const NetworkProfile& record)
{
    const uint32_t preference = record.flags & NAPI_PREFER_MASK;
    if (preference == NAPI_PREFER_WIFI_ONLY || preference == NAPI_PREFER_WIFI_THEN_CELLULAR)
        return Sign::Wifi;
    return record.gprsApn[0] == '\0' && record.csdNumber[0] != '\0' ? Sign::Call : Sign::Cellular;
}

} // namespace phone
