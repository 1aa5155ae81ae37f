// A choice of the wizard.
#ifndef WIZARD_NSCOMBOBOX_H
#define WIZARD_NSCOMBOBOX_H

#include <ycombobox.h>

// Switched off, because the profile uses WiFi only, it answers Return with a message that says so.
class NSComboBox : public YComboBox
{
    Q_OBJECT

public:
    NSComboBox(QWidget* parent, const char* name);
    ~NSComboBox();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

#endif
