// Results and causes in words, with what to do.
#ifndef PHONE_MESSAGES_FAILURES_H
#define PHONE_MESSAGES_FAILURES_H

#include <QString>

namespace phone {

// Why an opening failed (the two numbers of openFailed()), and what to do about it.
QString causeMessage(int cause, int detail);

// What a negative result of the network API means, and what to do about it.
QString resultMessage(int result);

} // namespace phone

#endif
