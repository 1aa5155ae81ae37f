#include <qstring.h>

#include <cstring>
#include <memory>
#include <vector>

struct QString::Data
{
    // The units, and a null one behind them; shared by copies until one of them is changed.
    std::shared_ptr<std::vector<QChar>> units;
};

const QString QString::null;

QChar::QChar() : cl(0), rw(0) {}
QChar::QChar(char c) : cl(static_cast<uchar>(c)), rw(0) {}
QChar::QChar(const QChar& other) = default;
QChar& QChar::operator=(const QChar& other) = default;
QChar::QChar(ushort unit) : cl(static_cast<uchar>(unit)), rw(static_cast<uchar>(unit >> 8)) {}

ushort QChar::unicode() const
{
    return static_cast<ushort>(rw << 8 | cl);
}

QString::QString() : d(new Data) {}
QString::QString(const QString& other) : d(new Data(*other.d)) {}

QString::QString(const QChar* unicode, uint length) : d(new Data)
{
    d->units = std::make_shared<std::vector<QChar>>(unicode, unicode + length);
    d->units->push_back(QChar());
}

// Each byte is a character of Latin-1.
QString::QString(const char* text) : d(new Data)
{
    if (!text)
        return;
    d->units = std::make_shared<std::vector<QChar>>(text, text + std::strlen(text));
    d->units->push_back(QChar());
}

QString::~QString()
{
    delete d;
}

QString& QString::operator=(const QString& other)
{
    d->units = other.d->units;
    return *this;
}

bool QString::isNull() const
{
    return !d->units;
}

bool QString::isEmpty() const
{
    return length() == 0;
}

uint QString::length() const
{
    return d->units ? static_cast<uint>(d->units->size() - 1) : 0;
}

const QChar* QString::unicode() const
{
    return d->units ? d->units->data() : nullptr;
}

QString& QString::operator+=(QChar unit)
{
    const auto longer = d->units ? std::make_shared<std::vector<QChar>>(*d->units)
                                 : std::make_shared<std::vector<QChar>>(1);
    longer->back() = unit;
    longer->push_back(QChar());
    d->units = longer;
    return *this;
}
