// The class ids that decide the look of a widget.
#ifndef YSKINSERVICE_H
#define YSKINSERVICE_H

// Constructors take an id as a plain integer. A widget that is given an id of another kind of
// widget keeps the look of its own class.
struct YSkinService
{
    // The ids; the numbers are those that programs were compiled with.
    enum WidgetClsID {
        DefaultClass = 0,
        AppInfoArea = 3,
        FormContainer = 23,
        FormLineEdit = 39,
        OptionsMenu = 54,
        FormPressButton = 60,
        SegmentField = 63, // the field and the small line edits in it
        Separator = 64,
        PlainLabel = 86
    };
};

#endif
