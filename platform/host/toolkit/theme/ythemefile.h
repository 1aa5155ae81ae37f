// The numbers and colours of the phone's look, as theme files say them.
#ifndef YTHEMEFILE_H
#define YTHEMEFILE_H

#include <QByteArray>
#include <QColor>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

#include "platform_export.h"

class QJsonObject;

// A theme file is a JSON object of objects; `theme/theme.json` is the one that is compiled in and
// has every value. A value is named by its path: "letters.body", or "colours.dark.text". Colours
// are
// "#RRGGBB" or "#RRGGBBAA", all else is a whole number: pixels, milliseconds or percent.
class VORN_PLATFORM_API YThemeFile
{
public:
    // The theme that is compiled in.
    static YThemeFile standard();

    // Takes the values of a theme file in the place of those that are here; what the file does not
    // name stays. A value that is wrong, or that nothing has the name of, is left out. Result: a
    // line for each of these, for instance `letters.body: "x" is no whole number of 6 to 4000`.
    QStringList take(const QByteArray& json);
    // The same for a file; one that cannot be read gives the one line that says so.
    QStringList takeFile(const QString& path);

    int number(const QString& path) const { return m_values.value(path).toInt(); }
    bool has(const QString& path) const { return m_values.contains(path); }
    // QColor::name() would lose how translucent a colour is.
    QColor colour(const QString& path) const { return m_values.value(path).value<QColor>(); }
    // The names below a path in the order of the alphabet: "accents" has "blue", "plum" and "teal".
    QStringList namesIn(const QString& path) const;

private:
    void takeObject(const QJsonObject& object, const QString& path, QStringList& wrong);
    void takeValue(const QString& path, const QVariant& value, QStringList& wrong);
    bool isKnown(const QString& path) const;

    QHash<QString, QVariant> m_values;
    bool m_isStandard = false; // every name is known
};

#endif
