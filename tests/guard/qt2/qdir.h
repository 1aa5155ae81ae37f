#ifndef QDIR_H
#define QDIR_H

#include "qstringlist.h"

class QDir
{
public:
    QDir();
    QDir(const QString& path);
    virtual ~QDir();

    virtual QString path() const;
    virtual QString absPath() const;
    virtual bool exists() const;
    virtual bool exists(const QString& name, bool acceptAbsolutePath = true);
    virtual bool mkdir(const QString& name, bool acceptAbsolutePath = true) const;
    virtual bool rmdir(const QString& name, bool acceptAbsolutePath = true) const;
    virtual bool remove(const QString& name, bool acceptAbsolutePath = true);
    virtual bool rename(const QString& from, const QString& to, bool acceptAbsolutePaths = true);

private:
    struct Private;
    Private* d;
};

#endif
