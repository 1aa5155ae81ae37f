#ifndef QGLOBAL_H
#define QGLOBAL_H

#define QT_VERSION 2310
#define QT_VERSION_STR "2.3.10"

typedef unsigned char uchar;
typedef unsigned short ushort;
typedef unsigned int uint;
typedef unsigned long ulong;

typedef signed char Q_INT8;
typedef unsigned char Q_UINT8;
typedef short Q_INT16;
typedef unsigned short Q_UINT16;
typedef int Q_INT32;
typedef unsigned int Q_UINT32;

const bool FALSE = false;
const bool TRUE = true;

enum QtMsgType { QtDebugMsg, QtWarningMsg, QtFatalMsg };

typedef void (*msg_handler)(QtMsgType, const char*);
msg_handler qInstallMsgHandler(msg_handler handler);

void qDebug(const char* format, ...) __attribute__((format(printf, 1, 2)));
void qWarning(const char* format, ...) __attribute__((format(printf, 1, 2)));
void qFatal(const char* format, ...) __attribute__((format(printf, 1, 2)));

#define Q_UNUSED(x) x = x;
#define ASSERT(x)

#endif
