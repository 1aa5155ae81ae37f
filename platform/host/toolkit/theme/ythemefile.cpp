#include "toolkit/theme/ythemefile.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QRegularExpression>

namespace {

constexpr int largest = 4000;
constexpr int smallestLetters = 6; // that can be told apart
constexpr int smallestTextSize = 50;

int leastOf(const QString& path)
{
    return path.contains(QLatin1String("letters."))       ? smallestLetters
           : path.startsWith(QLatin1String("textSizes.")) ? smallestTextSize
                                                          : 0;
}

bool isColourName(const QString& path)
{
    return path.startsWith(QLatin1String("colours.")) || path.startsWith(QLatin1String("accents."));
}

// An invalid colour for a text that is none.
QColor readColour(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^#([0-9A-Fa-f]{6})([0-9A-Fa-f]{2})?$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return QColor();
    QColor colour(QLatin1Char('#') + match.captured(1));
    if (match.hasCaptured(2))
        colour.setAlpha(match.captured(2).toInt(nullptr, 16));
    return colour;
}

// A null value for what is no number of these.
QVariant readNumber(const QVariant& value, int least)
{
    const double number = value.toDouble();
    const bool whole = value.userType() != QMetaType::QString && number >= least &&
                       number <= largest && number == static_cast<int>(number);
    return whole ? QVariant(static_cast<int>(number)) : QVariant();
}

QString shown(const QVariant& value)
{
    return value.userType() == QMetaType::QString ? '"' + value.toString() + '"' : value.toString();
}

QString wrongNumber(const QString& path, const QVariant& value)
{
    return QStringLiteral("%1: %2 is no whole number of %3 to %4")
        .arg(path, shown(value))
        .arg(leastOf(path))
        .arg(largest);
}

} // namespace

YThemeFile YThemeFile::standard()
{
    YThemeFile theme;
    theme.m_isStandard = true;
    theme.takeFile(QStringLiteral(":/vorn/theme/theme.json"));
    theme.m_isStandard = false;
    return theme;
}

QStringList YThemeFile::take(const QByteArray& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return {QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset)};
    if (!document.isObject())
        return {QStringLiteral("a theme file is a JSON object")};
    QStringList wrong;
    takeObject(document.object(), QString(), wrong);
    return wrong;
}

QStringList YThemeFile::takeFile(const QString& path)
{
    constexpr qint64 mostBytes = 1 << 20;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {file.errorString()};
    return take(file.read(mostBytes));
}

QStringList YThemeFile::namesIn(const QString& path) const
{
    const QString start = path + '.';
    QStringList names;
    for (auto value = m_values.begin(); value != m_values.end(); ++value)
        if (value.key().startsWith(start))
            names << value.key().mid(start.size()).section('.', 0, 0);
    names.sort();
    names.removeDuplicates();
    return names;
}

void YThemeFile::takeObject(const QJsonObject& object, const QString& path, QStringList& wrong)
{
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const QString name = path.isEmpty() ? entry.key() : path + '.' + entry.key();
        if (entry.value().isObject())
            takeObject(entry.value().toObject(), name, wrong);
        else
            takeValue(name, entry.value().toVariant(), wrong);
    }
}

void YThemeFile::takeValue(const QString& path, const QVariant& value, QStringList& wrong)
{
    if (!isKnown(path)) {
        wrong << path + QStringLiteral(": there is no value of this name");
        return;
    }
    if (isColourName(path)) {
        const QColor colour = readColour(value.toString());
        if (colour.isValid())
            m_values[path] = colour;
        else
            wrong << QStringLiteral("%1: %2 is no colour; #RRGGBB and #RRGGBBAA are")
                         .arg(path, shown(value));
        return;
    }
    const QVariant number = readNumber(value, leastOf(path));
    if (number.isValid())
        m_values[path] = number;
    else
        wrong << wrongNumber(path, value);
}

// A kind of screen may have any of the values that all screens have.
bool YThemeFile::isKnown(const QString& path) const
{
    if (m_isStandard || has(path))
        return true;
    const bool ofScreen = path.startsWith(QLatin1String("screens.")) && path.count('.') == 3;
    return ofScreen && has(path.section('.', 2)) && !isColourName(path.section('.', 2));
}
