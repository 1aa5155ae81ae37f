// Typing letters on twelve keys.
#ifndef YMULTITAP_H
#define YMULTITAP_H

#include <QBasicTimer>
#include <QObject>
#include <QString>

class QKeyEvent;
class YInputField;

// The keypad of one field. The letter that is still being chosen stands in the text already, so
// that the text is always what the user sees.
class YMultiTap : public QObject
{
    Q_OBJECT

public:
    explicit YMultiTap(YInputField* field);

    // Types the key into the field; false when it is none of the keypad's.
    bool press(const QKeyEvent& key);
    // The next key begins a new letter.
    void commit();
    // The name of what the keys give: "abc", "ABC" or "123"; while a letter is being chosen, the
    // letters of its key.
    QString modeText() const;

signals:
    void modeChanged();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Letters { Small, Capital, Digits };

    bool givesDigitsOnly() const;
    QString lettersOf(int key) const;
    void nextMode();
    bool chooseFrom(const QString& letters, int first, bool replacing);
    bool put(QChar letter, bool replacing);
    void hold(int key);

    YInputField* m_field;
    Letters m_mode = Letters::Small;
    int m_pendingKey = 0;
    int m_pendingIndex = 0;
    bool m_held = false;
    QBasicTimer m_timer;
};

#endif
