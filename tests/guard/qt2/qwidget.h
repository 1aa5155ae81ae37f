#ifndef QWIDGET_H
#define QWIDGET_H

#include "qfont.h"
#include "qfontmetrics.h"
#include "qobject.h"
#include "qpaintdevice.h"
#include "qrect.h"

class QWidget : public QObject, public QPaintDevice
{
    Q_OBJECT

public:
    enum FocusPolicy {
        NoFocus = 0,
        TabFocus = 0x1,
        ClickFocus = 0x2,
        StrongFocus = 0x3,
        WheelFocus = 0x7
    };

    QWidget(QWidget* parent = 0, const char* name = 0, WFlags flags = 0);
    ~QWidget();

    bool isTopLevel() const;
    bool isModal() const;
    bool isPopup() const;
    bool isEnabled() const;
    bool isEnabledTo(QWidget*) const;

    const QRect& geometry() const;
    QRect frameGeometry() const;
    int x() const;
    int y() const;
    QPoint pos() const;
    QSize size() const;
    int width() const;
    int height() const;
    QRect rect() const;
    QSize minimumSize() const;
    QSize maximumSize() const;
    void setMinimumSize(const QSize&);
    virtual void setMinimumSize(int width, int height);
    void setMaximumSize(const QSize&);
    virtual void setMaximumSize(int width, int height);
    void setMinimumWidth(int);
    void setMinimumHeight(int);
    void setMaximumWidth(int);
    void setMaximumHeight(int);
    void setFixedSize(const QSize&);
    void setFixedSize(int width, int height);
    void setFixedWidth(int);
    void setFixedHeight(int);

    QPoint mapToGlobal(const QPoint&) const;
    QPoint mapFromGlobal(const QPoint&) const;
    QPoint mapToParent(const QPoint&) const;
    QPoint mapFromParent(const QPoint&) const;
    QWidget* topLevelWidget() const;
    QWidget* parentWidget() const;

    QFont font() const;
    virtual void setFont(const QFont&);
    QFontMetrics fontMetrics() const;
    QString caption() const;

    bool isActiveWindow() const;
    virtual void setActiveWindow();
    bool isFocusEnabled() const;
    FocusPolicy focusPolicy() const;
    virtual void setFocusPolicy(FocusPolicy);
    bool hasFocus() const;
    static void setTabOrder(QWidget*, QWidget*);
    virtual void setFocusProxy(QWidget*);
    QWidget* focusProxy() const;
    QWidget* focusWidget() const;

    bool isVisible() const;
    bool isVisibleTo(QWidget*) const;
    bool isHidden() const;
    bool isUpdatesEnabled() const;
    virtual bool close(bool alsoDelete);
    bool testWFlags(WFlags) const;

    virtual QSize sizeHint() const;
    virtual QSize minimumSizeHint() const;
    virtual void adjustSize();
    void updateGeometry();
    virtual void reparent(QWidget* parent, WFlags flags, const QPoint&, bool show = false);

public slots:
    virtual void setEnabled(bool);
    virtual void setCaption(const QString&);
    virtual void setFocus();
    void clearFocus();
    virtual void setUpdatesEnabled(bool);
    void update();
    void update(int x, int y, int width, int height);
    void update(const QRect&);
    void repaint();
    void repaint(bool erase);
    virtual void show();
    virtual void hide();
    bool close();
    void raise();
    void lower();
    virtual void move(int x, int y);
    void move(const QPoint&);
    virtual void resize(int width, int height);
    void resize(const QSize&);
    virtual void setGeometry(int x, int y, int width, int height);
    virtual void setGeometry(const QRect&);

protected:
    bool event(QEvent*);
    virtual void mousePressEvent(QMouseEvent*);
    virtual void mouseReleaseEvent(QMouseEvent*);
    virtual void mouseDoubleClickEvent(QMouseEvent*);
    virtual void mouseMoveEvent(QMouseEvent*);
    virtual void keyPressEvent(QKeyEvent*);
    virtual void keyReleaseEvent(QKeyEvent*);
    virtual void focusInEvent(QFocusEvent*);
    virtual void focusOutEvent(QFocusEvent*);
    virtual void enterEvent(QEvent*);
    virtual void leaveEvent(QEvent*);
    virtual void paintEvent(QPaintEvent*);
    virtual void moveEvent(QMoveEvent*);
    virtual void resizeEvent(QResizeEvent*);
    virtual void closeEvent(QCloseEvent*);
    virtual void showEvent(QShowEvent*);
    virtual void hideEvent(QHideEvent*);
    virtual void customEvent(QCustomEvent*);
    virtual void fontChange(const QFont& old);
    virtual bool focusNextPrevChild(bool next);

private:
    struct WidgetPrivate;
    WidgetPrivate* w;
};

#endif
