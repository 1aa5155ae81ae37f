// A line edit on a popup, with the focus.
#ifndef LINE_EDIT_FIXTURE_H
#define LINE_EDIT_FIXTURE_H

#include <memory>

#include <QValidator>

#include <toolkit/input/ykeypad.h>
#include <yinputfield.h>
#include <ylineedit.h>
#include <ypopup.h>
#include <yskinservice.h>

#include "common/gui_test.h"

// A number from 0 to 255, or nothing yet.
class ByteValidator : public QValidator
{
public:
    using QValidator::QValidator;
    State validate(QString& text, int&) const override
    {
        bool isNumber = false;
        const int number = text.toInt(&isNumber);
        if (text.isEmpty())
            return Intermediate;
        return isNumber && number >= 0 && number <= 255 ? Acceptable : Invalid;
    }
};

class LineEdit : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        popup = std::make_unique<YPopup>(0, nullptr, nullptr, true, 0, 0);
        edit = new YLineEdit(popup.get(), "row", YSkinService::FormLineEdit);
        edit->setGeometry(0, 0, 240, 50);
        popup->show();
        edit->setFocus();
        settle();
    }

    void TearDown() override
    {
        popup.reset();
        YKeypad::setPresent(false);
        GuiTest::TearDown();
    }

    std::unique_ptr<YPopup> popup;
    YLineEdit* edit = nullptr;
};

#endif
