// The rows of both pages as the values of one form.
#ifndef WIZARD_FORMROWS_H
#define WIZARD_FORMROWS_H

#include "wizard/form/formcheck.h"
#include "wizard/form/formfields.h"

class YComboBox;
class YFormContainer;
class YLineEdit;

namespace wizard {

// Knows the rows, which belong to their pages. A field without a row has no text, and no choice
// (-1); setting it does nothing.
class FormRows : public FormFields
{
public:
    void add(Text field, YLineEdit* edit, YFormContainer* form);
    void add(Choice field, YComboBox* combo);

    // The rows of page 2 are gone.
    void forgetPage2();

    YLineEdit* edit(Text field) const { return m_edits[int(field)]; }
    YComboBox* combo(Choice field) const { return m_combos[int(field)]; }

    QString text(Text field) const override;
    void setText(Text field, const QString& text) override;
    int choice(Choice field) const override;
    void setChoice(Choice field, int item) override;

    // Gives a row the focus and brings it to the top of its form.
    void focus(Text field);
    // The same for each of these; the last one keeps the focus.
    void focus(const FaultFields& fields);

private:
    YLineEdit* m_edits[textCount] = {};
    YFormContainer* m_forms[textCount] = {};
    YComboBox* m_combos[choiceCount] = {};
};

} // namespace wizard

#endif
