#include "phonekeys.h"

#include <Qt>

namespace phone {

namespace {

constexpr double blockWidth = 78;
constexpr double blockHeight = 40;
constexpr double numberWidth = 82;
constexpr double numberHeight = 34;
constexpr double firstNumberRow = 108;

// Left and right of the plate, above and below.
constexpr QRectF beside(int column, int row)
{
    return {column * (keyFieldWidth - blockWidth), row * 56.0, blockWidth, blockHeight};
}

constexpr QRectF number(int column, int row)
{
    return {column * 91.0, firstNumberRow + row * 40.0, numberWidth, numberHeight};
}

constexpr CaseKey block(int key, const char* face, const char* hint, const char* name, QRectF place)
{
    return {key, false, KeyShape::Block, face, "", hint, name, place};
}

constexpr CaseKey arrow(int key, const char* name, double x, double y, double width, double height)
{
    return {key, false, KeyShape::Arrow, "", "", "", name, {x, y, width, height}};
}

constexpr CaseKey keypad(int key, const char* face, const char* letters, const char* name,
                         QRectF place)
{
    return {key, true, KeyShape::Block, face, letters, "", name, place};
}

} // namespace

const std::array<CaseKey, 21> phoneKeys = {{
    block(Qt::Key_F1, "–", "F1", "Left soft key", beside(0, 0)),
    block(Qt::Key_F2, "–", "F2", "Right soft key", beside(1, 0)),
    block(Qt::Key_Backspace, "C", "Backspace", "Clear", beside(0, 1)),
    block(Qt::Key_Escape, "↩", "Esc", "Back", beside(1, 1)),
    arrow(Qt::Key_Up, "Up", 108, 0, 48, 25),
    arrow(Qt::Key_Down, "Down", 108, 71, 48, 25),
    arrow(Qt::Key_Left, "Left", 84, 24, 25, 48),
    arrow(Qt::Key_Right, "Right", 155, 24, 25, 48),
    {Qt::Key_Return, false, KeyShape::Disc, "OK", "", "Return", "OK", {109, 25, 46, 46}},
    keypad(Qt::Key_1, "1", ". , @", "1", number(0, 0)),
    keypad(Qt::Key_2, "2", "abc", "2 abc", number(1, 0)),
    keypad(Qt::Key_3, "3", "def", "3 def", number(2, 0)),
    keypad(Qt::Key_4, "4", "ghi", "4 ghi", number(0, 1)),
    keypad(Qt::Key_5, "5", "jkl", "5 jkl", number(1, 1)),
    keypad(Qt::Key_6, "6", "mno", "6 mno", number(2, 1)),
    keypad(Qt::Key_7, "7", "pqrs", "7 pqrs", number(0, 2)),
    keypad(Qt::Key_8, "8", "tuv", "8 tuv", number(1, 2)),
    keypad(Qt::Key_9, "9", "wxyz", "9 wxyz", number(2, 2)),
    keypad(Qt::Key_Asterisk, "*", "+ =", "Star", number(0, 3)),
    keypad(Qt::Key_0, "0", "⎵ +", "0 space", number(1, 3)),
    keypad(Qt::Key_NumberSign, "#", "a A", "Hash", number(2, 3)),
}};

} // namespace phone
