// What the program tells and asks the user. Each returns when the user has answered, or when the
// application quits.
#ifndef PHONE_MESSAGES_MESSAGES_H
#define PHONE_MESSAGES_MESSAGES_H

#include <QString>

namespace phone {

// A message with OK.
void tell(const QString& title, const QString& message);

// A question with Yes and No; true for Yes.
bool ask(const QString& title, const QString& question);

// A short notice that something is done, which goes by itself.
void notice(const QString& message);

} // namespace phone

#endif
