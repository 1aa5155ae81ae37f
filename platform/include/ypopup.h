// A popup on the phone's screen: the base of all dialogs.
#ifndef YPOPUP_H
#define YPOPUP_H

#include <memory>

#include <qstring.h>
#include <qwidget.h>

#include "platform_export.h"

#include "ykeywords_begin.h"

class QCloseEvent;
class QEvent;
class QHideEvent;
class QKeyEvent;
class QMouseEvent;
class QPaintEvent;
class QResizeEvent;
class QShowEvent;
class YSoftKey;

// A layer above the pages. A modal one takes all input of the screen and dims what lies below;
// popups may be nested. It is hidden until show() or exec(). Its soft keys are accept() on the left
// and reject() on the right until they are given slots of their own.
class VORN_PLATFORM_API YPopup : public QWidget
{
    Q_OBJECT

public:
    // The kind of a popup: the first integer of the constructor. The phone knows more; only the
    // usual one is used.
    enum Type { UsualType = 0 };

    // The look of a popup: the first of the two last integers of the constructor.
    enum Style {
        PlainStyle = 0,
        // A popup that tells of something under way. While its labels show no picture, an activity
        // indicator moves in it; nothing moves once it is hidden.
        ProgressStyle = 464
    };

    // What exec() gives.
    enum Result { Cancelled = 0, Accepted = 1 };

    // `type` is UsualType. `parent` is who deletes the popup, or null: the popup is a layer of
    // the screen and parentWidget() is that screen, but it goes with the parent. `name` is the
    // object name or null. `reserved` is 0.
    YPopup(int type, QWidget* parent, const char* name, bool modal, int style, int reserved);
    ~YPopup();

    // Shows the popup and blocks in a nested event loop until it is accepted, rejected, hidden or
    // deleted, or the application quits. Result: 1 when it was accepted, else 0. A call while
    // exec() of the same popup runs returns 0 at once.
    int exec();

    // What the constructor was told.
    bool isModalPopup() const;

    // The title line; an empty text takes the line away.
    void setTitle(const QString& title);
    QString title() const;
    // A text below the title; an empty one takes no room.
    void setInstructText(const QString& text);
    QString instructText() const;

    // The popup's soft-key bar, owned by the popup; never null.
    YSoftKey* getSoftKey() const;

    // The room for the contents: below title and instruction, above the soft keys.
    QRect contentsR() const;

public slots:
    // Ends exec() with 1, or hides a popup that was only shown.
    void accept();
    // Ends exec() with 0, or hides a popup that was only shown.
    void reject();

protected:
    // Hides the popup and lets exec() return `result`.
    void done(int result);

    // The height in pixels that the contents need at this width, at most `most`. The popup takes
    // its height from it when it is shown, and stands at the bottom of the screen. Negative, as
    // here: the popup keeps the geometry that it was given.
    virtual int contentsHint(int width, int most) const;
    // Called whenever contentsR() may have changed.
    virtual void layoutContents();

    bool event(QEvent* event);
    void showEvent(QShowEvent* event);
    void hideEvent(QHideEvent* event);
    void closeEvent(QCloseEvent* event);
    void keyPressEvent(QKeyEvent* event);
    void mousePressEvent(QMouseEvent* event);
    void paintEvent(QPaintEvent* event);
    void resizeEvent(QResizeEvent* event);
    bool focusNextPrevChild(bool next);

private:
    void fit();
    void layoutParts();

    struct Private;
    std::unique_ptr<Private> d;
};

#include "ykeywords_end.h"

#endif
