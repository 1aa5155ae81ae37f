// The keys of the phone.
#ifndef PHONE_FRAME_PHONEKEYS_H
#define PHONE_FRAME_PHONEKEYS_H

#include <array>

#include <QRectF>

namespace phone {

enum class KeyShape { Block, Arrow, Disc };

// A key as it stands in the case. Its place is in the field of keys, which is keyField wide and
// high before it is scaled.
struct CaseKey
{
    int key;          // a Qt::Key, sent when it is pressed
    bool keypad;      // it is one of the twelve that give digits and letters
    KeyShape shape;   // what is drawn
    const char* face; // UTF-8
    const char* letters;
    const char* hint; // the key of the keyboard that does the same, where the face does not say it
    const char* name; // for screen readers
    QRectF place;
};

constexpr double keyFieldWidth = 264;
constexpr double keyFieldHeight = 262;

// Around the arrows and OK.
constexpr QRectF keyPlate(84, 0, 96, 96);

extern const std::array<CaseKey, 21> phoneKeys;

} // namespace phone

#endif
