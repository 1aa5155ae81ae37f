#ifndef QCOMBOBOX_H
#define QCOMBOBOX_H

#include "qwidget.h"

class QStringList;

class QComboBox : public QWidget
{
    Q_OBJECT

public:
    QComboBox(QWidget* parent = 0, const char* name = 0);
    QComboBox(bool editable, QWidget* parent = 0, const char* name = 0);
    ~QComboBox();

    int count() const;
    void insertStringList(const QStringList&, int index = -1);
    void insertItem(const QString& text, int index = -1);
    void removeItem(int index);
    void clear();
    QString currentText() const;
    QString text(int index) const;
    void changeItem(const QString& text, int index);
    int currentItem() const;
    virtual void setCurrentItem(int index);
    bool autoResize() const;
    virtual void setAutoResize(bool);

signals:
    void activated(int index);
    void highlighted(int index);
    void activated(const QString&);
    void highlighted(const QString&);
    void textChanged(const QString&);
};

#endif
