// The phone's look for the toolkit's own widgets, in an application that has a look of its own.
#ifndef YDRESS_H
#define YDRESS_H

class QWidget;

// Style, colours and letters go to a widget and to whatever lies in it, and to nothing else of the
// application. A widget that an application puts among its own has a ground of its own, too, since
// the application's may be dark where the phone's theme is light.
struct YDress
{
    // To be called by the constructor of each class whose widgets may stand alone.
    static void wear(QWidget* widget);

    // Dresses the whole application, as a YApplication is.
    static void wearAll();

    // The theme is another one.
    static void refresh();
};

#endif
