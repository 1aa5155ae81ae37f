// The file into which the library's log goes.
#ifndef PHONE_LOG_LOGFILE_H
#define PHONE_LOG_LOGFILE_H

#include <QString>

namespace phone {

// Has the library log into `file`, or, where it is empty, into log/vornphone.log below the root,
// made with mode 0600 and begun afresh when it has grown beyond a megabyte. Where VORN_APPLOG names
// a file the library logs there already, and that stays. False when no file could be opened.
bool attachLog(const QString& file);

// The file; "" while there is none.
QString logFile();

// Its last part, at most 64 KiB, from the beginning of a line.
QString logText();

} // namespace phone

#endif
