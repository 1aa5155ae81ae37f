#include <ypressbutton.h>

YPressButton::YPressButton(QWidget* parent, const char* name, int widgetClassId)
    : YButton(parent, name, widgetClassId)
{}

YPressButton::~YPressButton() = default;
