// What a program tells in the title bar beside the title.
#ifndef YAPPINFOAREA_H
#define YAPPINFOAREA_H

#include <memory>

#include <qstring.h>
#include <qwidget.h>

#include "platform_export.h"

class QPaintEvent;

// Short texts in areas, from left to right in the order of the areas' numbers. Without a text it
// takes no room.
class VORN_PLATFORM_API YAppInfoArea : public QWidget
{
    Q_OBJECT

public:
    // `layout` names the arrangement of the areas; "T", texts only, is the only one. `name` is the
    // object name or null. `widgetClassId` is YSkinService::AppInfoArea.
    YAppInfoArea(QWidget* parent, const char* layout, const char* name, int widgetClassId);
    ~YAppInfoArea();

    // Adds a text to an area, or a second one for it beside the first. Empty texts take no room.
    void appendText(int area, const QString& text, const QString& second);
    // All texts of an area with a blank between them.
    QString text(int area) const;
    void clear(int area);

    QSize sizeHint() const;

protected:
    void paintEvent(QPaintEvent* event);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

#endif
