#ifndef QDIALOG_H
#define QDIALOG_H

#include "qwidget.h"

class QDialog : public QWidget
{
    Q_OBJECT

public:
    enum DialogCode { Rejected, Accepted };

    QDialog(QWidget* parent = 0, const char* name = 0, bool modal = false, WFlags flags = 0);
    ~QDialog();

    int exec();
    int result() const;

protected slots:
    virtual void done(int);
    virtual void accept();
    virtual void reject();
};

#endif
