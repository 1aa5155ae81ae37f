// The motion with which a popup comes.
#ifndef YSLIDE_H
#define YSLIDE_H

#include <QVariantAnimation>

class QWidget;

// Moves a widget that is shown to its place from some way below it. With reduced motion nothing
// moves; nothing runs on when the widget is at its place, when it is hidden, or when somebody else
// places it.
class YSlide : public QVariantAnimation
{
    Q_OBJECT

public:
    // Belongs to `sheet`.
    explicit YSlide(QWidget* sheet);

    // To be called when the sheet has its place and its size.
    void begin();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void updateCurrentValue(const QVariant& value) override;

private:
    QWidget* m_sheet;
    int m_offset = 0; // pixels below its place
    bool m_moving = false;
};

#endif
