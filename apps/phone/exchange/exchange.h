// Profiles out to a file, and in from one.
#ifndef PHONE_EXCHANGE_EXCHANGE_H
#define PHONE_EXCHANGE_EXCHANGE_H

#include <QString>
#include <QStringList>

namespace phone {

// Stores the profiles of a file; asks before it replaces stored ones, and tells how it has ended.
// Can be cancelled between two profiles. Returns when it is over; true when profiles were stored.
bool importProfiles(const QString& file);

// Writes profiles to a file that nobody else may read, whole or not at all, and tells how it has
// ended. `isWithPasswords`: their passwords, too.
void exportProfiles(const QStringList& names, const QString& file, bool isWithPasswords);

} // namespace phone

#endif
