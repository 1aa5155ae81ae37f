#include "log/logfile.h"

#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <applog.h>
#include <network/napi_host.h>

namespace phone {

namespace {

constexpr qint64 largest = 1024 * 1024;
constexpr qint64 shown = 64 * 1024;

QString& attached()
{
    static QString file;
    return file;
}

} // namespace

bool attachLog(const QString& file)
{
    if (APPLOG_ModuleStream) {
        attached() = qEnvironmentVariable("VORN_APPLOG");
        return true;
    }
    const QString path = file.isEmpty()
                             ? QString::fromStdString(napihost::rootFolder()) + "/log/vornphone.log"
                             : file;
    QDir().mkpath(QFileInfo(path).absolutePath());
    const int afresh = QFileInfo(path).size() > largest ? O_TRUNC : O_APPEND;
    const int descriptor = ::open(QFile::encodeName(path).constData(),
                                  O_WRONLY | O_CREAT | O_CLOEXEC | afresh, S_IRUSR | S_IWUSR);
    FILE* stream = descriptor < 0 ? nullptr : ::fdopen(descriptor, "a");
    if (!stream)
        return false;
    ::setvbuf(stream, nullptr, _IOLBF, 0);
    APPLOG_ModuleStream = stream;
    attached() = path;
    return true;
}

QString logFile()
{
    return attached();
}

QString logText()
{
    QFile file(attached());
    if (attached().isEmpty() || !file.open(QIODevice::ReadOnly))
        return QString();
    const qint64 from = std::max<qint64>(0, file.size() - shown);
    file.seek(from);
    QByteArray text = file.readAll();
    if (from > 0)
        text.remove(0, text.indexOf('\n') + 1);
    return QString::fromUtf8(text);
}

} // namespace phone
