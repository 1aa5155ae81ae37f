#include "wizard/rowtable.h"

#include <yformcontainer.h>
#include <yinputfield.h>
#include <ylabel.h>
#include <yseparator.h>

#include "ipaddressedit_validator.h"
#include "support/toolkitnumbers.h"
#include "support/translate.h"
#include "widgets/keypadinput.h"
#include "wizard/formrows.h"
#include "wizard/guardedrows.h"

namespace wizard {

namespace {

const int largestPort = 65535;

QString labelOf(const PhoneText& text)
{
    return support::translate(text.id, text.text);
}

void makePort(YLineEdit* edit)
{
    IPAddressEdit_Validator* validator = new IPAddressEdit_Validator(edit);
    validator->setRange(0, largestPort);
    edit->setValidator(validator);
    widgets::useKeypad(edit, toolkit::NumericInput);
}

void makePassword(YLineEdit* edit)
{
    edit->setEchoMode(QLineEdit::Password);
    edit->getInputField()->setInputMode(toolkit::PasswordInput);
}

void limit(YLineEdit* edit, int maxLength)
{
    if (maxLength > 0)
        edit->setMaxLength(maxLength);
}

// The order of the calls is the phone's.
void dress(YLineEdit* edit, const Row& row)
{
    switch (row.kind) {
    case RowKind::Port:
        return makePort(edit);
    case RowKind::DialNumber:
        limit(edit, row.number);
        return widgets::useKeypad(edit, toolkit::DialNumberInput);
    case RowKind::Password:
        makePassword(edit);
        return limit(edit, row.number);
    case RowKind::PlainText:
        return limit(edit, row.number);
    case RowKind::GuardedChoice:
    case RowKind::PlainChoice:
    case RowKind::Separator:
    case RowKind::PressButton:
        return;
    }
}

QWidget* addText(const Row& row, YFormContainer* form, FormRows& rows, const QString* text)
{
    NSEditBox* edit = new NSEditBox(form->viewport(), nullptr);
    edit->setLabel(labelOf(row.label));
    if (text)
        edit->setText(*text);
    dress(edit, row);
    form->addChild(edit, true, nullptr);
    rows.add(Text(row.field), edit, form);
    return edit;
}

QWidget* addChoice(const Row& row, YComboBox* combo, YFormContainer* form, FormRows& rows)
{
    combo->setTitle(labelOf(row.label));
    if (row.kind == RowKind::GuardedChoice)
        combo->setDlgTitle(labelOf(row.label), row.number);
    for (int i = 0; i < row.itemCount; ++i)
        combo->insertItem(labelOf(row.items[i]));
    form->addChild(combo, false, nullptr);
    rows.add(Choice(row.field), combo);
    return combo;
}

QWidget* addSeparator(const Row& row, YFormContainer* form)
{
    YSeparator* separator = new YSeparator(form->viewport(), nullptr, 0, toolkit::Separator);
    YLabel* caption = new YLabel(separator, nullptr, 0, toolkit::PlainLabel);
    caption->setText(labelOf(row.label));
    separator->setAutoResize(true);
    separator->setLabel(caption);
    form->addChild(separator, true, nullptr);
    return separator;
}

QWidget* addButton(const Row& row, YFormContainer* form)
{
    NSPressButton* button = new NSPressButton(form->viewport(), nullptr);
    button->setText(labelOf(row.label));
    form->addChild(button, false, nullptr);
    return button;
}

} // namespace

QWidget* addRow(const Row& row, YFormContainer* form, FormRows& rows, const QString* text)
{
    switch (row.kind) {
    case RowKind::PlainText:
    case RowKind::Port:
    case RowKind::DialNumber:
    case RowKind::Password:
        break;
    case RowKind::GuardedChoice:
        return addChoice(row, new NSComboBox(form->viewport(), nullptr), form, rows);
    case RowKind::PlainChoice:
        return addChoice(row, new YComboBox(form->viewport(), nullptr, true), form, rows);
    case RowKind::Separator:
        return addSeparator(row, form);
    case RowKind::PressButton:
        return addButton(row, form);
    }
    return addText(row, form, rows, text);
}

} // namespace wizard
