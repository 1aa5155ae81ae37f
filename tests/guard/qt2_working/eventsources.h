// Where the events of the loop come from: timers, descriptors, and calls from other threads.
#ifndef EVENTSOURCES_H
#define EVENTSOURCES_H

class QObject;

namespace eventsources {

int startTimer(QObject* receiver, int milliseconds);
void watch(QObject* notifier, int descriptor);
// Ends every timer and every watch of an object.
void forget(const QObject* object);

// Sends what is due and ready in one pass; first waits for something when `wait` is true. Returns
// whether anything was sent.
bool pass(bool wait);
// Ends a wait. From any thread.
void wake();
// How often a pass has begun to wait. From any thread.
int waits();

} // namespace eventsources

#endif
