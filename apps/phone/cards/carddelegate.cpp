#include "cards/carddelegate.h"

#include <QAbstractItemView>
#include <QPainter>

#include <toolkit/look/ytheme.h>

#include "cards/card.h"
#include "cards/cardsign.h"

namespace phone {

namespace {

constexpr int gap = 6; // between cards, and between what stands in one
constexpr int inset = 10;
constexpr int signSize = 28;
constexpr int lineGap = 1;

int titleLine()
{
    return QFontMetrics(YTheme::current().bodyFont()).height();
}

int smallLine()
{
    return QFontMetrics(YTheme::current().smallFont()).height();
}

struct Colours
{
    QColor ground;
    QColor text;
    QColor muted;
    QColor edge;
    QColor badge;
    int edgeWidth;
};

// The card under the cursor is a little of the accent's colour, which leaves its texts their own.
QColor tinted(const QColor& ground, const QColor& accent)
{
    constexpr int part = 10; // of a hundred
    const auto mixed = [](int a, int b) { return (a * (100 - part) + b * part) / 100; };
    return QColor(mixed(ground.red(), accent.red()), mixed(ground.green(), accent.green()),
                  mixed(ground.blue(), accent.blue()));
}

QColor toneColour(const YTheme& theme, Tone tone)
{
    switch (tone) {
    case Tone::Good:
        return theme.success;
    case Tone::Bad:
        return theme.failure;
    case Tone::Quiet:
        break;
    }
    return theme.mutedText;
}

Colours coloursOf(const Card& card, bool isCurrent)
{
    const YTheme& theme = YTheme::current();
    const QColor badge = toneColour(theme, card.tone);
    if (isCurrent)
        return {tinted(theme.surface, theme.accent),
                theme.text,
                theme.mutedText,
                theme.accent,
                badge,
                2};
    return {theme.surface, theme.text, theme.mutedText, theme.border, badge, 1};
}

// Mirrors places where the language runs from right to left.
class Places
{
public:
    Places(Qt::LayoutDirection direction, const QRect& whole)
        : m_direction(direction), m_whole(whole)
    {}

    QRect visual(const QRect& place) const
    {
        return QStyle::visualRect(m_direction, m_whole, place);
    }
    Qt::Alignment leading() const
    {
        return QStyle::visualAlignment(m_direction, Qt::AlignLeft) | Qt::AlignVCenter |
               Qt::AlignAbsolute;
    }

private:
    Qt::LayoutDirection m_direction;
    QRect m_whole;
};

void drawLine(QPainter& painter, const Places& places, const QRect& place, const QString& text)
{
    const QString shown = painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width());
    painter.drawText(places.visual(place), int(places.leading()), shown);
}

QFont titleFont()
{
    QFont font = YTheme::current().bodyFont();
    font.setWeight(QFont::DemiBold);
    return font;
}

// Gives what is left of the title's line in front of the badge.
QRect drawBadge(QPainter& painter, const Places& places, QRect line, const QString& badge)
{
    if (badge.isEmpty())
        return line;
    painter.setFont(YTheme::current().smallFont());
    const int width =
        std::min(painter.fontMetrics().horizontalAdvance(badge) + 1, line.width() / 2);
    QRect place = line;
    place.setLeft(line.right() + 1 - width);
    drawLine(painter, places, place, badge);
    line.setRight(place.left() - gap);
    return line;
}

// A small tick in a ring in front of the name.
QRect drawMark(QPainter& painter, const Places& places, QRect line, const QColor& colour)
{
    constexpr int size = 12;
    const QRect place(line.left(), line.top() + (line.height() - size) / 2, size, size);
    const QRectF ring = QRectF(places.visual(place)).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(colour, 1.2));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(ring);
    const QPointF middle = ring.center();
    painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF(
        {middle + QPointF(-2.6, 0.2), middle + QPointF(-0.7, 2.2), middle + QPointF(2.8, -2.0)}));
    line.setLeft(place.right() + gap);
    return line;
}

void drawTexts(QPainter& painter, const Places& places, const QRect& room, const Card& card,
               const Colours& colours)
{
    QRect line(room.left(), room.top(), room.width(), titleLine());
    painter.setPen(colours.badge);
    line = drawBadge(painter, places, line, card.badge);
    if (card.isMarked)
        line = drawMark(painter, places, line, colours.text);
    painter.setPen(colours.text);
    painter.setFont(titleFont());
    drawLine(painter, places, line, card.title);
    painter.setPen(colours.muted);
    painter.setFont(YTheme::current().smallFont());
    QRect below(room.left(), room.top() + titleLine() + lineGap, room.width(), smallLine());
    for (const QString& text : card.lines) {
        drawLine(painter, places, below, text);
        below.translate(0, smallLine() + lineGap);
    }
}

void drawBox(QPainter& painter, const QRect& box, const Colours& colours)
{
    const double half = colours.edgeWidth / 2.0;
    painter.setPen(QPen(colours.edge, colours.edgeWidth));
    painter.setBrush(colours.ground);
    painter.drawRoundedRect(QRectF(box).adjusted(half, half, -half, -half),
                            YTheme::current().popupRadius, YTheme::current().popupRadius);
}

} // namespace

void CardDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    const Card card = index.data(CardRole).value<Card>();
    const bool isCurrent = option.state & QStyle::State_Selected;
    const Colours colours = coloursOf(card, isCurrent);
    QRect row = option.rect;
    const QRect box = row.adjusted(YTheme::current().margin, gap / 2, -YTheme::current().margin,
                                   -(gap - gap / 2));
    const Places places(option.direction, box);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    drawBox(*painter, box, colours);
    QRect room = box.adjusted(inset, 0, -inset, 0);
    if (card.sign != Sign::None) {
        const QRect place(room.left(), box.center().y() - signSize / 2 + 1, signSize, signSize);
        drawSign(*painter, places.visual(place), card.sign);
        room.setLeft(place.right() + 1 + inset);
    }
    const int lines = int(card.lines.size());
    const int height = titleLine() + lines * (smallLine() + lineGap);
    room.setTop(box.top() + (box.height() - height) / 2);
    drawTexts(*painter, places, room, card, colours);
    painter->restore();
}

QSize CardDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    const int width = view ? view->viewport()->width() : option.rect.width();
    const int texts = titleLine() + m_lines * (smallLine() + lineGap);
    return QSize(width, std::max(texts, signSize) + 2 * 8 + gap);
}

} // namespace phone
