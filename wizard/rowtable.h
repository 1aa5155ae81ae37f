// The rows of a page as a table, and how one of them is built.
#ifndef WIZARD_ROWTABLE_H
#define WIZARD_ROWTABLE_H

#include "wizard/form/formfields.h"

class QString;
class QWidget;
class YFormContainer;

namespace wizard {

class FormRows;

// A text of the phone: its resource id and its default.
struct PhoneText
{
    const char* id;
    const char* text;
};

enum class RowKind {
    PlainText,
    Port,       // a number of 0 to 65535
    DialNumber, // typed with the keys of a dial
    Password,
    GuardedChoice, // an NSComboBox, whose dialog has a title and a look of its own
    PlainChoice,
    Separator,
    PressButton
};

struct Row
{
    RowKind kind;
    int field; // a Text or a Choice where the row holds one, else 0
    PhoneText label;
    // Of a text the greatest length in QChars, 0 for any; of a guarded choice the toolkit's number
    // for the look of its dialog.
    int number;
    const PhoneText* items; // of a choice
    int itemCount;
};

constexpr Row textRow(RowKind kind, Text field, PhoneText label, int maxLength)
{
    return {kind, int(field), label, maxLength, nullptr, 0};
}

template <int count>
constexpr Row choiceRow(RowKind kind, Choice field, PhoneText label,
                        const PhoneText (&items)[count], int dialogType)
{
    return {kind, int(field), label, dialogType, items, count};
}

constexpr Row plainRow(RowKind kind, PhoneText label)
{
    return {kind, 0, label, 0, nullptr, 0};
}

// Builds one row at the end of the form, and tells `rows` of it when it holds a value. Result: the
// row's widget, owned by the form: an NSEditBox, NSComboBox, YComboBox, YSeparator or
// NSPressButton. `text`, unless null, is what a text row holds at first.
QWidget* addRow(const Row& row, YFormContainer* form, FormRows& rows,
                const QString* text = nullptr);

} // namespace wizard

#endif
