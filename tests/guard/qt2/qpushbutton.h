#ifndef QPUSHBUTTON_H
#define QPUSHBUTTON_H

#include "qbutton.h"

class QPushButton : public QButton
{
    Q_OBJECT

public:
    QPushButton(QWidget* parent, const char* name = 0);
    QPushButton(const QString& text, QWidget* parent, const char* name = 0);
    ~QPushButton();

    bool autoDefault() const;
    virtual void setAutoDefault(bool);
    bool isDefault() const;
    virtual void setDefault(bool);
    bool isFlat() const;
    void setFlat(bool);

public slots:
    virtual void setOn(bool);
};

#endif
