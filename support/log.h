// The diagnostic log of the profile code.
#ifndef SUPPORT_LOG_H
#define SUPPORT_LOG_H

namespace support {

// Prints a printf-style message to the platform application log, or to standard output when the log
// is not attached to this process. Messages of a level above 7 are dropped: 4 stands for errors and
// warnings, 8 for progress. The text is written exactly as the format gives it; whoever wants a
// line end writes it. A failure to write is silent. Call it on the GUI thread.
void logPrint(int level, const char* format, ...) __attribute__((format(printf, 2, 3)));

} // namespace support

#endif
