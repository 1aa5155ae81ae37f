// The signs at the left of cards.
#ifndef PHONE_CARDS_CARDSIGN_H
#define PHONE_CARDS_CARDSIGN_H

class QPainter;
class QRect;

namespace phone {

enum class Sign;

// Draws a sign into a disc that fills the square `place`.
void drawSign(QPainter& painter, const QRect& place, Sign sign);

} // namespace phone

#endif
