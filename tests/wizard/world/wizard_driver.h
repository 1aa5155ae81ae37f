// The wizard as a person sees and uses it: pages, rows by their labels, soft keys, messages.
#ifndef TESTS_WIZARD_WIZARD_DRIVER_H
#define TESTS_WIZARD_WIZARD_DRIVER_H

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "common/gui_test.h"

class YComboBox;
class YFormContainer;
class YKbMainWidget;
class YLineEdit;
class YPopup;
class YPressButton;
class YSoftKey;

// The page of this class, 1 or 2, of the wizard that was opened last; null when there is none.
YKbMainWidget* wizardPage(int number);
int wizardPageCount();

// Rows of a page by label; null when the page has none of this label.
YLineEdit* editOf(YKbMainWidget* page, const QString& label);
YComboBox* comboOf(YKbMainWidget* page, const QString& label);
YPressButton* buttonOf(YKbMainWidget* page);
YFormContainer* formOf(YKbMainWidget* page);

// Every row of a page from the top: class, label and text or current item, and " off" when it is
// switched off.
std::string rowsOf(YKbMainWidget* page);

std::string titleOf(YKbMainWidget* page);
std::string leftKeyOf(YKbMainWidget* page);
std::string rightKeyOf(YKbMainWidget* page);

// The label of the row with the focus.
std::string focusOf(YKbMainWidget* page);

// The popup that has the input, as "title|text"; "" when a page has it.
std::string popupText();

// Moves with Up and Down until the row with this label has the focus.
void walkTo(YKbMainWidget* page, const QString& label);

// Empties the field with the focus and types.
void retype(const QString& text);

// One thing that a person does.
struct Step
{
    std::function<void()> act;
    // Whether it opens a dialog and so comes back only when that is closed.
    bool blocks;
};

// What a person does, one after the other.
class Steps
{
public:
    template <typename Act> Steps(Act act) : steps{Step{act, false}} {}
    Steps(const Step& step) : steps{step} {}
    Steps(std::initializer_list<Steps> parts)
    {
        for (const Steps& part : parts)
            steps.insert(steps.end(), part.steps.begin(), part.steps.end());
    }

    std::vector<Step> steps;
};

// A step after which a dialog is open.
Step opening(const std::function<void()>& act);

// Begins with the first step once the event loop runs, and goes on in whatever loop a dialog runs.
void perform(const Steps& steps);

// The last step: a wizard that the others have left open would wait for ever. It fails then.
void closeWhatIsOpen();

// Goes to a row of a page by keys and chooses an item of its dialog by keys.
Steps chooseByKeys(int page, const QString& label, int item);

#endif
