// A push button as a row of a form.
#ifndef YPRESSBUTTON_H
#define YPRESSBUTTON_H

#include "platform_export.h"
#include "ybutton.h"

class VORN_PLATFORM_API YPressButton : public YButton
{
    Q_OBJECT

public:
    // `name` is the object name or null. `widgetClassId` is YSkinService::FormPressButton.
    YPressButton(QWidget* parent, const char* name, int widgetClassId);
    ~YPressButton();
};

#endif
