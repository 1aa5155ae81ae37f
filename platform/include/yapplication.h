// The application object of a phone program.
#ifndef YAPPLICATION_H
#define YAPPLICATION_H

#include <qapplication.h>
#include <qstring.h>

#include "platform_export.h"

class QWidget;

// A QApplication that belongs to the phone's toolkit: all its windows have the phone's look. The
// toolkit's other classes work with a plain QApplication too, whose own windows they leave alone:
// the phone's look then goes to the screen and to the toolkit's widgets.
class VORN_PLATFORM_API YApplication : public QApplication
{
    Q_OBJECT

public:
    // As QApplication; the arguments live as long as the application does.
    YApplication(int& argc, char** argv);
    ~YApplication();

    // Makes the event loop of the GUI thread look for work at once. From any thread.
    void wakeUpGuiThread();

    // Chooses how a text is typed into a YLineEdit, or a line edit of Qt's own. `method` is the
    // input method's identifier in braces; the host's one method goes by every identifier, that of
    // the phone's keypad being keypadMethod(). `mode` is a YInputField::InputMode; `extra` is a
    // text for the method, of which the host's takes no notice. Other widgets are left alone.
    static void setInputMethod(QWidget* widget, const QString& method, int mode,
                               const QString& extra);
    // "{637a8c00-1098-42ca-969a-2bf163cd3c14}"
    static QString keypadMethod();
};

#endif
