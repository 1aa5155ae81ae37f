#ifndef QNAMESPACE_H
#define QNAMESPACE_H

#include "qglobal.h"

// A class and not a namespace: QObject, QEvent and others inherit it.
class Qt
{
public:
    enum ButtonState {
        NoButton = 0x00,
        LeftButton = 0x01,
        RightButton = 0x02,
        MidButton = 0x04,
        ShiftButton = 0x08,
        ControlButton = 0x10,
        AltButton = 0x20
    };

    enum Orientation { Horizontal, Vertical };

    enum AlignmentFlags {
        AlignLeft = 0x01,
        AlignRight = 0x02,
        AlignHCenter = 0x04,
        AlignTop = 0x08,
        AlignBottom = 0x10,
        AlignVCenter = 0x20,
        AlignCenter = AlignVCenter | AlignHCenter
    };

    typedef uint WFlags;
    enum WidgetFlags { WType_TopLevel = 0x01, WType_Modal = 0x02, WType_Popup = 0x04 };

    enum Key {
        Key_Escape = 0x1000,
        Key_Tab = 0x1001,
        Key_Backtab = 0x1002,
        Key_Return = 0x1004,
        Key_Enter = 0x1005,
        Key_Delete = 0x1007,
        Key_Home = 0x1010,
        Key_End = 0x1011,
        Key_Left = 0x1012,
        Key_Up = 0x1013,
        Key_Right = 0x1014,
        Key_Down = 0x1015,
        Key_F1 = 0x1030,
        Key_F2 = 0x1031,
        Key_Space = 0x20,
        Key_0 = 0x30,
        Key_9 = 0x39,
        Key_A = 0x41,
        Key_Z = 0x5a
    };
};

#endif
