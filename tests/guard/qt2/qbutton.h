#ifndef QBUTTON_H
#define QBUTTON_H

#include "qwidget.h"

class QPixmap;

class QButton : public QWidget
{
    Q_OBJECT

public:
    QButton(QWidget* parent = 0, const char* name = 0, WFlags flags = 0);
    ~QButton();

    QString text() const;
    virtual void setText(const QString&);
    const QPixmap* pixmap() const;
    virtual void setPixmap(const QPixmap&);
    bool isToggleButton() const;
    virtual void setDown(bool);
    bool isDown() const;
    bool isOn() const;
    bool autoRepeat() const;
    virtual void setAutoRepeat(bool);

public slots:
    void animateClick();
    void toggle();

signals:
    void pressed();
    void released();
    void clicked();
    void toggled(bool);
};

#endif
