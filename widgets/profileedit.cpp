#include "profileedit.h"

#include "support/text.h"

// The toolkit's number for the look of a line edit in a form.
static const int formLineEditClass = 39;

ProfileEdit::ProfileEdit(QWidget* parent, const char* name)
    : YLineEdit(parent, name, formLineEditClass)
{}

ProfileEdit::~ProfileEdit() {}

void ProfileEdit::setDefaultProfileName(const QString& name)
{
    defaultProfileName = name;
}

void ProfileEdit::focusInEvent(QFocusEvent* event)
{
    if (support::compare(text(), defaultProfileName) == 0)
        clear();
    YLineEdit::focusInEvent(event);
}

void ProfileEdit::focusOutEvent(QFocusEvent* event)
{
    if (text().length() == 0)
        setText(defaultProfileName);
    YLineEdit::focusOutEvent(event);
}
