// The diagnostic log of the profile code.
#ifndef SUPPORT_LOG_H
#define SUPPORT_LOG_H

namespace support {

// Levels above 7 are not written.
enum LogLevel { LogError = 4, LogProgress = 8 };

// Prints a printf-style message to the platform application log, or to standard output when the log
// is not attached to this process. A message whose level is above 7 is dropped. The text is written
// exactly as the format gives it; whoever wants a line end writes it. A failure to write is silent.
// Call it on the GUI thread.
void logPrint(int level, const char* format, ...) __attribute__((format(printf, 2, 3)));

} // namespace support

#endif
