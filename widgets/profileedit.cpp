#include "profileedit.h"

#include "support/text.h"
#include "support/toolkitnumbers.h"

ProfileEdit::ProfileEdit(QWidget* parent, const char* name)
    : YLineEdit(parent, name, toolkit::FormLineEdit)
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
