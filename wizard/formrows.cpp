#include "wizard/formrows.h"

#include <ycombobox.h>
#include <yformcontainer.h>
#include <ylineedit.h>

namespace wizard {

void FormRows::add(Text field, YLineEdit* edit, YFormContainer* form)
{
    m_edits[int(field)] = edit;
    m_forms[int(field)] = form;
}

void FormRows::add(Choice field, YComboBox* combo)
{
    m_combos[int(field)] = combo;
}

void FormRows::forgetPage2()
{
    for (int field = int(Text::Proxy2); field < textCount; ++field) {
        m_edits[field] = nullptr;
        m_forms[field] = nullptr;
    }
    for (int field = int(Choice::CsdSpeed); field < choiceCount; ++field)
        m_combos[field] = nullptr;
}

QString FormRows::text(Text field) const
{
    return edit(field) ? edit(field)->text() : QString();
}

void FormRows::setText(Text field, const QString& text)
{
    if (edit(field))
        edit(field)->setText(text);
}

int FormRows::choice(Choice field) const
{
    return combo(field) ? combo(field)->currentItem() : -1;
}

void FormRows::setChoice(Choice field, int item)
{
    if (combo(field))
        combo(field)->setCurrentItem(item);
}

void FormRows::focus(Text field)
{
    YFormContainer* form = m_forms[int(field)];
    if (!form)
        return;
    edit(field)->setFocus();
    form->setContentsPos(form->contentsX(), form->childY(edit(field)));
}

void FormRows::focus(const FaultFields& fields)
{
    for (int i = 0; i < fields.count; ++i)
        focus(fields.fields[i]);
}

} // namespace wizard
