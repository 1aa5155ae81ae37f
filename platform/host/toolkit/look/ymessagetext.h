// The text of a message, scrolled where it is too long.
#ifndef YMESSAGETEXT_H
#define YMESSAGETEXT_H

#include <QScrollArea>

class YTextLabel;

class YMessageText : public QScrollArea
{
    Q_OBJECT

public:
    explicit YMessageText(QWidget* parent);

    void setText(const QString& text);
    QString text() const;
    // The height that shows the whole text at a width.
    int heightFor(int width) const;
    // Takes smaller letters where the whole text fits no other way into `most` pixels of height; a
    // text that is too long for the smallest ones keeps the usual ones and is scrolled. Result: the
    // height, which may be more than `most`.
    int fit(int width, int most);
    // Scrolls by one line for the keys Up and Down; false for other keys.
    bool scrollByKey(int key);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showBarIfNeeded();
    void keepMargins() const;

    YTextLabel* m_label;
};

#endif
