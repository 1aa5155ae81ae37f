#ifndef QFRAME_H
#define QFRAME_H

#include "qwidget.h"

class QFrame : public QWidget
{
    Q_OBJECT

public:
    enum Shape { NoFrame = 0, Box = 0x1, Panel = 0x2, WinPanel = 0x3, HLine = 0x4, VLine = 0x5 };
    enum Shadow { Plain = 0x10, Raised = 0x20, Sunken = 0x30 };

    QFrame(QWidget* parent = 0, const char* name = 0, WFlags flags = 0, bool allowLines = true);

    int frameStyle() const;
    virtual void setFrameStyle(int);
    int frameWidth() const;
    QRect contentsRect() const;
    int lineWidth() const;
    virtual void setLineWidth(int);
    int margin() const;
    virtual void setMargin(int);
};

#endif
