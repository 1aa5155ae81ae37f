// A form without widgets.
#ifndef TESTS_WIZARD_ARRAY_FORM_H
#define TESTS_WIZARD_ARRAY_FORM_H

#include "wizard/form/formfields.h"

class ArrayForm : public wizard::FormFields
{
public:
    QString text(wizard::Text field) const override { return m_texts[int(field)]; }
    void setText(wizard::Text field, const QString& text) override { m_texts[int(field)] = text; }
    int choice(wizard::Choice field) const override { return m_choices[int(field)]; }
    void setChoice(wizard::Choice field, int item) override { m_choices[int(field)] = item; }

private:
    QString m_texts[wizard::textCount];
    int m_choices[wizard::choiceCount] = {};
};

#endif
