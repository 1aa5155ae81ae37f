// Types that the toolkit's headers share.
#ifndef YTYPES_H
#define YTYPES_H

// The window flags of a widget's constructor; a plain number, as in Qt 2. The host takes 0 only:
// what kind of window a widget is follows from its class.
typedef unsigned int YWidgetFlags;

// Names of the widget class ids that constructors take. An id chooses the look of a widget.
struct YSkinService
{
    enum WidgetClsID {
        DefaultClass = 0,
        AppInfoArea = 3,
        FormContainer = 23,
        FormLineEdit = 39,
        OptionsMenu = 54,
        FormPressButton = 60,
        SegmentField = 63,
        Separator = 64,
        PlainLabel = 86
    };
};

#endif
