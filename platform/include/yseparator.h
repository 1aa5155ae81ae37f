// A line between the rows of a form, with a caption.
#ifndef YSEPARATOR_H
#define YSEPARATOR_H

#include <memory>

#include <qwidget.h>

#include "platform_export.h"
#include "ytypes.h"

#include "ykeywords_begin.h"

class QEvent;
class QPaintEvent;
class QResizeEvent;
class YLabel;

// Takes no focus and no keys.
class VORN_PLATFORM_API YSeparator : public QWidget
{
    Q_OBJECT

public:
    // `name` is the object name or null, `flags` is 0. `widgetClassId` is YSkinService::Separator.
    YSeparator(QWidget* parent, const char* name, YWidgetFlags flags, int widgetClassId);
    ~YSeparator();

    // The caption, which becomes a child of the separator; null for none. The caption set before
    // is deleted.
    void setLabel(YLabel* label);
    YLabel* label() const;

    // When true, the separator takes the height of its caption at once, also outside of a form.
    void setAutoResize(bool enable);

    // Whether it is shown as switched on; true unless setEnabled() was told otherwise.
    bool isYEnabled() const;

    QSize sizeHint() const;
    int heightForWidth(int width) const;
    bool event(QEvent* event);

public slots:
    void setEnabled(bool enabled);

protected:
    void paintEvent(QPaintEvent* event);
    void resizeEvent(QResizeEvent* event);

private:
    void refresh();

    struct Private;
    std::unique_ptr<Private> d;
};

#include "ykeywords_end.h"

#endif
