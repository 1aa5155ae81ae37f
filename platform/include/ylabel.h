// A text in the phone's look.
#ifndef YLABEL_H
#define YLABEL_H

#include <memory>

#include <qlabel.h>

#include "platform_export.h"
#include "ytypes.h"

// Shows one text, wrapped at its width; a word that is too long for a line is broken.
class VORN_PLATFORM_API YLabel : public QLabel
{
    Q_OBJECT

public:
    // `name` is the object name or null. `widgetClassId` is one of YSkinService::WidgetClsID.
    YLabel(QWidget* parent, const char* name, YWidgetFlags flags, int widgetClassId);
    ~YLabel();

    // When true, the label takes the size of its text at once and with each new text.
    void setAutoResize(bool enable);

    // Replaces the text and, with autoResize, the size.
    void setText(const QString& text);

    int heightForWidth(int width) const;

protected:
    void paintEvent(QPaintEvent* event);

private:
    bool isPlain() const;

    struct Private;
    std::unique_ptr<Private> d;
};

#endif
