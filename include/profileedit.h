// The input field for the name of a network profile.
#ifndef PROFILEEDIT_H
#define PROFILEEDIT_H

#include <qstring.h>

#include <ylineedit.h>

#include "vornqtnapi_export.h"

class QFocusEvent;

// A line edit with a default name: entering the field while it shows the default name empties it,
// so that typing starts afresh; leaving it empty brings the default name back. A text equal to the
// default name is taken for it, also when it was typed.
//
//     #include <profilefunctions.h>
//
//     QString name;
//     getDefaultProfileName(name);
//     ProfileEdit* edit = new ProfileEdit(form);
//     edit->setDefaultProfileName(name);
//     edit->setText(name);
//
// It neither limits nor checks what is typed. GUI thread only.
class VORNQTNAPI_EXPORT ProfileEdit : public YLineEdit
{
    Q_OBJECT

public:
    // `name` is the object name, or null. There is no default name at first. Throws std::bad_alloc
    // where memory runs out, and nothing is left of the widget then.
    ProfileEdit(QWidget* parent = 0, const char* name = 0);
    ~ProfileEdit();

    // The default name from now on; the text that is shown does not change. An empty one is none.
    void setDefaultProfileName(const QString& name);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QString defaultProfileName;
};

#endif
