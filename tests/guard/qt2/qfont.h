#ifndef QFONT_H
#define QFONT_H

#include "qstring.h"

class QFont
{
public:
    QFont();
    QFont(const QString& family, int pointSize = 12, int weight = 50, bool italic = false);
    QFont(const QFont&);
    ~QFont();
    QFont& operator=(const QFont&);

    QString family() const;
    int pointSize() const;
    void setPointSize(int);
    bool bold() const;
    void setBold(bool);

private:
    struct Data;
    Data* d;
};

#endif
