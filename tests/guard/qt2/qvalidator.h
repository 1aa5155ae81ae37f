#ifndef QVALIDATOR_H
#define QVALIDATOR_H

#include "qobject.h"

class QWidget;

class QValidator : public QObject
{
    Q_OBJECT

public:
    enum State { Invalid, Intermediate, Acceptable };

    QValidator(QWidget* parent, const char* name = 0);
    ~QValidator();

    virtual State validate(QString&, int& position) const = 0;
    virtual void fixup(QString&) const;
};

class QIntValidator : public QValidator
{
    Q_OBJECT

public:
    QIntValidator(QWidget* parent, const char* name = 0);
    QIntValidator(int bottom, int top, QWidget* parent, const char* name = 0);
    ~QIntValidator();

    State validate(QString&, int& position) const;
    void setBottom(int);
    void setTop(int);
    virtual void setRange(int bottom, int top);
    int bottom() const;
    int top() const;
};

#endif
