#include "toolkit/input/ymultitap.h"

#include <algorithm>
#include <utility>

#include <QKeyEvent>
#include <QTimerEvent>

#include <yinputfield.h>

#include "toolkit/input/yinputmode.h"

namespace {

// A key pressed again within this time goes on to its next letter.
constexpr int letterMilliseconds = 1000;
constexpr qsizetype mostShown = 6;

struct KeyLetters
{
    int key;
    const char16_t* letters; // in the order in which they come
    const char16_t* dial;
    const char16_t* digits;
};

constexpr KeyLetters table[] = {
    {Qt::Key_1, u".,-_@:/?!'()&1", u"1", u"1"},
    {Qt::Key_2, u"abc2äàáâãåæç", u"2", u"2"},
    {Qt::Key_3, u"def3éèêë", u"3", u"3"},
    {Qt::Key_4, u"ghi4ìíîï", u"4", u"4"},
    {Qt::Key_5, u"jkl5", u"5", u"5"},
    {Qt::Key_6, u"mno6öñòóôõø", u"6", u"6"},
    {Qt::Key_7, u"pqrs7ß", u"7", u"7"},
    {Qt::Key_8, u"tuv8üùúû", u"8", u"8"},
    {Qt::Key_9, u"wxyz9ý", u"9", u"9"},
    {Qt::Key_0, u" 0+", u"0+", u"0"},
    {Qt::Key_Asterisk, u"*.+#=%$€<>[]{}\\^~|\"", u"*+pw", u".*+-"},
    {Qt::Key_NumberSign, u"#", u"#", u"#"},
};

const KeyLetters* rowOf(int key)
{
    const auto* found = std::find_if(std::begin(table), std::end(table),
                                     [key](const KeyLetters& row) { return row.key == key; });
    return found == std::end(table) ? nullptr : found;
}

// A capital of one letter is one letter here: the sharp s stays as it is.
QString capitals(const QString& letters)
{
    QString result;
    for (const QChar letter : letters)
        result += letter.toUpper();
    return result;
}

} // namespace

YMultiTap::YMultiTap(YInputField* owner) : QObject(owner), m_field(owner) {}

bool YMultiTap::press(const QKeyEvent& event)
{
    const int key = event.key();
    if (!rowOf(key))
        return false;
    if (event.isAutoRepeat()) {
        hold(key);
        return true;
    }
    m_held = false;
    if (key == Qt::Key_NumberSign && !givesDigitsOnly()) {
        nextMode();
        return true;
    }
    const QString letters = lettersOf(key);
    const bool again = key == m_pendingKey;
    if (!again)
        commit();
    // Where nothing was typed, the next press is not to replace what stands there.
    if (!chooseFrom(letters, again ? m_pendingIndex + 1 : 0, again) || letters.size() == 1)
        return true;
    m_pendingKey = key;
    m_timer.start(letterMilliseconds, this);
    emit modeChanged();
    return true;
}

void YMultiTap::commit()
{
    m_timer.stop();
    m_pendingIndex = 0;
    if (std::exchange(m_pendingKey, 0))
        emit modeChanged();
}

QString YMultiTap::modeText() const
{
    if (m_pendingKey) {
        const QString letters = lettersOf(m_pendingKey);
        const auto digit = std::find_if(letters.begin(), letters.end(),
                                        [](QChar letter) { return letter.isDigit(); });
        return letters.left(std::min<qsizetype>(digit - letters.begin() + 1, mostShown));
    }
    if (givesDigitsOnly() || m_mode == Letters::Digits)
        return QStringLiteral("123");
    return m_mode == Letters::Capital ? QStringLiteral("ABC") : QStringLiteral("abc");
}

void YMultiTap::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_timer.timerId())
        commit();
    else
        QObject::timerEvent(event);
}

bool YMultiTap::givesDigitsOnly() const
{
    const int input = m_field->inputMode();
    return input == YInputField::NumericInput || input == YInputField::DialNumberInput;
}

QString YMultiTap::lettersOf(int key) const
{
    const KeyLetters& row = *rowOf(key);
    if (m_field->inputMode() == YInputField::DialNumberInput)
        return QString::fromUtf16(row.dial);
    if (m_field->inputMode() == YInputField::NumericInput || m_mode == Letters::Digits)
        return QString::fromUtf16(row.digits);
    const QString letters = QString::fromUtf16(row.letters);
    return m_mode == Letters::Capital ? capitals(letters) : letters;
}

void YMultiTap::nextMode()
{
    commit();
    m_mode = m_mode == Letters::Small     ? Letters::Capital
             : m_mode == Letters::Capital ? Letters::Digits
                                          : Letters::Small;
    emit modeChanged();
}

// A validator or the input mode may refuse some of the letters; they are passed over.
bool YMultiTap::chooseFrom(const QString& letters, int first, bool replacing)
{
    const int count = static_cast<int>(letters.size());
    for (int i = 0; i < count; ++i) {
        const int index = (first + i) % count;
        if (put(letters[index], replacing)) {
            m_pendingIndex = index;
            return true;
        }
    }
    return false;
}

bool YMultiTap::put(QChar letter, bool replacing)
{
    const int cursor = m_field->cursorPosition();
    const QString before = m_field->text();
    if (replacing) {
        if (cursor > 0 && before[cursor - 1] == letter)
            return true;
        m_field->setSelection(cursor - 1, 1);
    }
    const bool selected = m_field->hasSelectedText();
    m_field->insert(YInputMode::filtered(m_field->inputMode(), QString(letter)));
    if (m_field->text() != before || (selected && !m_field->hasSelectedText()))
        return true;
    if (replacing) {
        m_field->deselect();
        m_field->setCursorPosition(cursor);
    }
    return false;
}

// A key that is held gives its digit, once.
void YMultiTap::hold(int key)
{
    if (m_held || key == Qt::Key_Asterisk || key == Qt::Key_NumberSign)
        return;
    m_held = true;
    if (m_field->inputMode() == YInputField::DialNumberInput && key == Qt::Key_0)
        put('+', m_pendingKey == key);
    else if (m_pendingKey == key)
        put(QChar('0' + (key - Qt::Key_0)), true);
    commit();
}
