// What one card shows.
#ifndef PHONE_CARDS_CARD_H
#define PHONE_CARDS_CARD_H

#include <QMetaType>
#include <QString>
#include <QStringList>

namespace phone {

enum class Sign { None, Cellular, Wifi, Call, Warning, Folder, File };
enum class Tone { Quiet, Good, Bad };

struct Card
{
    QString title;
    QStringList lines;       // below the title, each in one line
    QString badge;           // at the right of the title, "" for none
    Tone tone = Tone::Quiet; // of the badge
    Sign sign = Sign::None;  // at the left
    bool isMarked = false;   // the default one
    QString markedAs;        // what the mark says to a screen reader

    // All of it as a sentence for a screen reader.
    QString spoken() const;
};

// The role under which a model gives the Card of a row; Qt::AccessibleTextRole gives what it says.
enum { CardRole = Qt::UserRole };

} // namespace phone

Q_DECLARE_METATYPE(phone::Card)

#endif
