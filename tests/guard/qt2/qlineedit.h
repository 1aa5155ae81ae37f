#ifndef QLINEEDIT_H
#define QLINEEDIT_H

#include "qwidget.h"

class QValidator;

class QLineEdit : public QWidget
{
    Q_OBJECT

public:
    enum EchoMode { Normal, NoEcho, Password };

    QLineEdit(QWidget* parent, const char* name = 0);
    QLineEdit(const QString& text, QWidget* parent, const char* name = 0);
    ~QLineEdit();

    QString text() const;
    QString displayText() const;
    int maxLength() const;
    virtual void setMaxLength(int);
    bool frame() const;
    virtual void setFrame(bool);
    EchoMode echoMode() const;
    virtual void setEchoMode(EchoMode);
    void setReadOnly(bool);
    bool isReadOnly() const;
    const QValidator* validator() const;
    virtual void setValidator(const QValidator*);
    int alignment() const;
    void setAlignment(int);
    int cursorPosition() const;
    virtual void setCursorPosition(int);
    virtual void setSelection(int start, int length);
    bool edited() const;
    void setEdited(bool);

public slots:
    virtual void setText(const QString&);
    void selectAll();
    void deselect();
    void clear();
    void insert(const QString&);

signals:
    void textChanged(const QString&);
    void returnPressed();
};

#endif
