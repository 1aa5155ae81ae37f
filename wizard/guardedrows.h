// The rows of the wizard that are switched off where the profile uses WiFi only.
#ifndef WIZARD_GUARDEDROWS_H
#define WIZARD_GUARDEDROWS_H

#include <ycombobox.h>
#include <ylineedit.h>
#include <ypressbutton.h>

// Each is a row of the toolkit that, switched off, answers Return and Enter with a message that
// says why. The message blocks until the user has read it. Every other key is the row's own, so
// that the focus can move on.

// A text field.
class NSEditBox : public YLineEdit
{
    Q_OBJECT

public:
    NSEditBox(QWidget* parent, const char* name);
    ~NSEditBox();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

// A choice.
class NSComboBox : public YComboBox
{
    Q_OBJECT

public:
    NSComboBox(QWidget* parent, const char* name);
    ~NSComboBox();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

// A push button.
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
