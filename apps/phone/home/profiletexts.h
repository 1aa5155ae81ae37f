// A profile's values in words.
#ifndef PHONE_HOME_PROFILETEXTS_H
#define PHONE_HOME_PROFILETEXTS_H

#include <QString>
#include <QStringList>

struct NetworkProfile;

namespace phone {

enum class Sign;

// The connection preference, as the profile editor names it; "" where the profile has none.
QString preferenceText(const NetworkProfile& record);

// Where it leads to, and the preference: two lines.
QStringList profileLines(const NetworkProfile& record);

Sign profileSign(const NetworkProfile& record);

} // namespace phone

#endif
