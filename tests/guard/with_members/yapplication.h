// The application object of a platform whose input methods are chosen by a member of it.
#ifndef YAPPLICATION_H
#define YAPPLICATION_H

#include <qapplication.h>
#include <qstring.h>

class QWidget;

class YApplication : public QApplication
{
public:
    void setInputMethod(QWidget* widget, const QString& method, int mode, const QString& extra);
};

#endif
