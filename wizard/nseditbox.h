// A text field of the wizard.
#ifndef WIZARD_NSEDITBOX_H
#define WIZARD_NSEDITBOX_H

#include <ylineedit.h>

// Switched off, because the profile uses WiFi only, it answers Return with a message that says so.
class NSEditBox : public YLineEdit
{
    Q_OBJECT

public:
    NSEditBox(QWidget* parent, const char* name);
    ~NSEditBox();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

#endif
