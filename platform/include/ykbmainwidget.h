// A page of the phone: title bar, contents, soft keys.
#ifndef YKBMAINWIDGET_H
#define YKBMAINWIDGET_H

#include <memory>

#include <qstring.h>
#include <qwidget.h>

#include "platform_export.h"
#include "ytypes.h"

#include "ykeywords_begin.h"

class QCloseEvent;
class QKeyEvent;
class QPaintEvent;
class QShowEvent;
class YSoftKey;

// A page fills the screen, above the pages shown before it and below every popup. It is hidden at
// first. Closing the screen's window calls hide().
class VORN_PLATFORM_API YKbMainWidget : public QWidget
{
    Q_OBJECT

public:
    // What the keys beside the screen are lit for; the host's phone has no such lights.
    enum MorphMode { NoMorph = 0, FormMorph = 3 };

    // `parent` is who deletes the page, or null: the page itself is a layer of the screen. `name`
    // is the object name or null, `flags` is 0.
    YKbMainWidget(QWidget* parent, const char* name, YWidgetFlags flags);
    ~YKbMainWidget();

    // A MorphMode; NoMorph unless set.
    void setMorphMode(int mode);
    int morphMode() const;

    // The text of the title bar, in smaller letters or two lines where it is long.
    void setMainWidgetTitle(const QString& title);
    QString mainWidgetTitle() const;

    // The parts of the page, null until set. They become children of the page; the one that was
    // set before is deleted. The title-bar widget stands at the right end of the title bar.
    void setContentWidget(QWidget* widget);
    QWidget* contentWidget() const;
    void setTitleBarWidget(QWidget* widget);
    QWidget* titleBarWidget() const;
    void setSoftKey(YSoftKey* softKey);
    YSoftKey* softKey() const;

public slots:
    // Shows the page on top of the other pages; one that is shown already stays where it is.
    virtual void show();
    virtual void hide();

protected:
    bool event(QEvent* event);
    void closeEvent(QCloseEvent* event);
    void keyPressEvent(QKeyEvent* event);
    void paintEvent(QPaintEvent* event);
    void resizeEvent(QResizeEvent* event);
    void showEvent(QShowEvent* event);
    bool focusNextPrevChild(bool next);

private:
    void adopt(QWidget* old, QWidget* widget);
    void layoutParts();

    struct Private;
    std::unique_ptr<Private> d;
};

#include "ykeywords_end.h"

#endif
