// The application object of a phone program.
#ifndef YAPPLICATION_H
#define YAPPLICATION_H

#include <qapplication.h>

#include "platform_export.h"

// A QApplication that belongs to the phone's toolkit. The toolkit's other classes work with a plain
// QApplication too. Texts, theme and screen are set up with the first of either kind.
class VORN_PLATFORM_API YApplication : public QApplication
{
    Q_OBJECT

public:
    YApplication(int& argc, char** argv);
    ~YApplication();

    // Makes the event loop of the GUI thread look for work at once. From any thread.
    void wakeUpGuiThread();
};

#endif
