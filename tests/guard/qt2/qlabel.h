#ifndef QLABEL_H
#define QLABEL_H

#include "qframe.h"

class QPixmap;

class QLabel : public QFrame
{
    Q_OBJECT

public:
    QLabel(QWidget* parent, const char* name = 0, WFlags flags = 0);
    QLabel(const QString& text, QWidget* parent, const char* name = 0, WFlags flags = 0);
    ~QLabel();

    QString text() const;
    QPixmap* pixmap() const;
    int alignment() const;
    virtual void setAlignment(int);
    int indent() const;
    void setIndent(int);
    bool autoResize() const;
    virtual void setAutoResize(bool);
    virtual void setBuddy(QWidget*);

public slots:
    virtual void setText(const QString&);
    virtual void setPixmap(const QPixmap&);
    virtual void setNum(int);
    void clear();
};

#endif
