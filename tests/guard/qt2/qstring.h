#ifndef QSTRING_H
#define QSTRING_H

#include "qcstring.h"

class QChar
{
public:
    QChar();
    QChar(char);
    QChar(uchar);
    QChar(const QChar&);
    QChar(ushort);
    QChar(short);
    QChar(uint);
    QChar(int);
    QChar& operator=(const QChar&);

    bool isNull() const;
    bool isSpace() const;
    bool isDigit() const;
    bool isLetter() const;
    bool isLetterOrNumber() const;
    int digitValue() const;
    QChar lower() const;
    QChar upper() const;
    char latin1() const;
    ushort unicode() const;
    uchar cell() const;
    uchar row() const;
    operator char() const;

private:
    uchar cl;
    uchar rw;
};

int operator==(QChar, QChar);
int operator==(QChar, char);
int operator==(char, QChar);
int operator!=(QChar, QChar);
int operator!=(QChar, char);
int operator<(QChar, QChar);
int operator<=(QChar, QChar);
int operator>(QChar, QChar);
int operator>=(QChar, QChar);

class QString
{
public:
    static const QString null;

    QString();
    QString(QChar);
    QString(const QString&);
    QString(const QByteArray&);
    QString(const QChar* unicode, uint length);
    QString(const char*);
    ~QString();

    QString& operator=(const QString&);
    QString& operator=(const char*);
    QString& operator=(const QCString&);
    QString& operator=(QChar);
    QString& operator=(char);

    bool isNull() const;
    bool isEmpty() const;
    uint length() const;
    void truncate(uint length);
    void fill(QChar, int length = -1);
    QString copy() const;

    QString arg(long, int width = 0, int base = 10) const;
    QString arg(ulong, int width = 0, int base = 10) const;
    QString arg(int, int width = 0, int base = 10) const;
    QString arg(uint, int width = 0, int base = 10) const;
    QString arg(short, int width = 0, int base = 10) const;
    QString arg(ushort, int width = 0, int base = 10) const;
    QString arg(char, int width = 0) const;
    QString arg(QChar, int width = 0) const;
    QString arg(const QString&, int width = 0) const;
    // Taken for arg(number, width, base, fill) as well, with another outcome than on Qt 6.
    QString arg(double, int width = 0, char format = 'g', int precision = -1) const = delete;

    int find(QChar, int from = 0, bool caseSensitive = true) const;
    int find(char, int from = 0, bool caseSensitive = true) const;
    int find(const QString&, int from = 0, bool caseSensitive = true) const;
    int find(const char*, int from = 0) const;
    int contains(QChar, bool caseSensitive = true) const;
    int contains(char, bool caseSensitive = true) const;
    int contains(const QString&, bool caseSensitive = true) const;

    QString left(uint length) const;
    QString right(uint length) const;
    QString mid(uint index, uint length = 0xffffffff) const;
    QString lower() const;
    QString upper() const;
    QString stripWhiteSpace() const;
    QString simplifyWhiteSpace() const;

    QString& insert(uint index, const QString&);
    QString& insert(uint index, QChar);
    QString& append(char);
    QString& append(QChar);
    QString& append(const QString&);
    QString& prepend(char);
    QString& prepend(QChar);
    QString& prepend(const QString&);
    QString& remove(uint index, uint length);
    QString& replace(uint index, uint length, const QString&);
    QString& operator+=(const QString&);
    QString& operator+=(QChar);
    QString& operator+=(char);

    short toShort(bool* ok = 0, int base = 10) const;
    ushort toUShort(bool* ok = 0, int base = 10) const;
    int toInt(bool* ok = 0, int base = 10) const;
    uint toUInt(bool* ok = 0, int base = 10) const;
    long toLong(bool* ok = 0, int base = 10) const;
    ulong toULong(bool* ok = 0, int base = 10) const;
    double toDouble(bool* ok = 0) const;

    QString& setNum(long, int base = 10);
    QString& setNum(int, int base = 10);
    QString& setNum(uint, int base = 10);
    static QString number(long, int base = 10);
    static QString number(ulong, int base = 10);
    static QString number(int, int base = 10);
    static QString number(uint, int base = 10);
    static QString number(double, char format = 'g', int precision = 6);

    QChar at(uint index) const;
    QChar operator[](int index) const;
    QChar& ref(uint index);
    const QChar* unicode() const;
    const char* ascii() const;
    const char* latin1() const;
    QCString utf8() const;
    QCString local8Bit() const;
    static QString fromUtf8(const char*, int length = -1);
    static QString fromLatin1(const char*, int length = -1);
    static QString fromLocal8Bit(const char*, int length = -1);
    operator const char*() const;
    bool operator!() const;

    static int compare(const QString&, const QString&);
    int compare(const QString&) const;

private:
    struct Data;
    Data* d;
};

// Qt 2.3 has these, and tells a null text from an empty one, which Qt 6 does not: take isEmpty() or
// support::compare().
bool operator==(const QString&, const QString&) = delete;
bool operator==(const QString&, const char*) = delete;
bool operator==(const char*, const QString&) = delete;
bool operator!=(const QString&, const QString&) = delete;
bool operator!=(const QString&, const char*) = delete;
bool operator!=(const char*, const QString&) = delete;
bool operator<(const QString&, const QString&) = delete;
bool operator<(const QString&, const char*) = delete;
QString operator+(const QString&, const QString&);
QString operator+(const QString&, const char*);
QString operator+(const char*, const QString&);
QString operator+(const QString&, char);
QString operator+(char, const QString&);

#endif
