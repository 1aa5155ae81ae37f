#ifndef QSTRINGLIST_H
#define QSTRINGLIST_H

#include "qstring.h"
#include "qvaluelist.h"

class QStringList : public QValueList<QString>
{
public:
    QStringList();
    QStringList(const QStringList&);
    QStringList(const QValueList<QString>&);
    QStringList(const QString&);
    QStringList(const char*);
    QStringList& operator=(const QStringList&);

    void sort();
    static QStringList split(const QString& separator, const QString& text,
                             bool allowEmpty = false);
    QString join(const QString& separator) const;
};

#endif
