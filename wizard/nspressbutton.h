// A push button of the wizard.
#ifndef WIZARD_NSPRESSBUTTON_H
#define WIZARD_NSPRESSBUTTON_H

#include <ypressbutton.h>

// Switched off, because the profile uses WiFi only, it answers Return with a message that says so.
class NSPressButton : public YPressButton
{
    Q_OBJECT

public:
    NSPressButton(QWidget* parent, const char* name);
    ~NSPressButton();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

#endif
