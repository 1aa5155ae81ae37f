#ifndef QSCROLLVIEW_H
#define QSCROLLVIEW_H

#include "qframe.h"

class QScrollView : public QFrame
{
    Q_OBJECT

public:
    QScrollView(QWidget* parent = 0, const char* name = 0, WFlags flags = 0);
    ~QScrollView();

    virtual void addChild(QWidget* child, int x = 0, int y = 0);
    virtual void moveChild(QWidget* child, int x, int y);
    int childX(QWidget* child);
    int childY(QWidget* child);
    bool childIsVisible(QWidget* child);
    void showChild(QWidget* child, bool show = true);
    QWidget* viewport() const;
    int visibleWidth() const;
    int visibleHeight() const;
    int contentsWidth() const;
    int contentsHeight() const;
    int contentsX() const;
    int contentsY() const;

public slots:
    virtual void resizeContents(int width, int height);
    void scrollBy(int dx, int dy);
    virtual void setContentsPos(int x, int y);
    void ensureVisible(int x, int y);
    void ensureVisible(int x, int y, int xMargin, int yMargin);
    void center(int x, int y);

signals:
    void contentsMoving(int x, int y);
};

#endif
