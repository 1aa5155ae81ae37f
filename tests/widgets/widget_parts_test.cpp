// What the two widgets hand to the toolkit, in which order. The functions below stand before the
// toolkit's own and Qt's, note their arguments, and go on to them.
#include <algorithm>
#include <string>
#include <vector>

#include <QFocusEvent>
#include <QIntValidator>

#include <yapplication.h>
#include <ylineedit.h>

#include "common/gui_test.h"
#include "common/interposed.h"
#include "ipaddressedit.h"
#include "profileedit.h"

using interposed::Call;
using interposed::callsOf;
using interposed::orNone;
using interposed::quoted;

namespace {

// By index, as the field has given them out.
std::vector<const void*> segments;
const void* lastValidator = nullptr;

std::string segment(const void* edit)
{
    const auto found = std::find(segments.begin(), segments.end(), edit);
    if (found == segments.end())
        return "edit: ";
    return "segment " + std::to_string(found - segments.begin()) + ": ";
}

} // namespace

#define SEGMENT_FIELD_CONSTRUCTOR _ZN13YSegmentFieldC2EP7QWidgetPKcji
#define LINE_EDIT_CONSTRUCTOR _ZN9YLineEditC2EP7QWidgetPKci
#define VALIDATOR_CONSTRUCTOR _ZN13QIntValidatorC2EP7QObject

extern "C" {

__attribute__((visibility("default"))) void SEGMENT_FIELD_CONSTRUCTOR(void* field, QWidget* parent,
                                                                      const char* name,
                                                                      unsigned int flags,
                                                                      int widgetClass)
{
    const Call call(std::string("segment field") + (parent ? " in its parent " : " no parent ") +
                    orNone(name) + ' ' + std::to_string(flags) + ' ' + std::to_string(widgetClass));
    nextOf<decltype(&SEGMENT_FIELD_CONSTRUCTOR)>(SYMBOL_TEXT(SEGMENT_FIELD_CONSTRUCTOR))(
        field, parent, name, flags, widgetClass);
}

__attribute__((visibility("default"))) void LINE_EDIT_CONSTRUCTOR(void* edit, QWidget* parent,
                                                                  const char* name, int widgetClass)
{
    const Call call(std::string("line edit") + (parent ? " in its parent " : " no parent ") +
                    orNone(name) + ' ' + std::to_string(widgetClass));
    nextOf<decltype(&LINE_EDIT_CONSTRUCTOR)>(SYMBOL_TEXT(LINE_EDIT_CONSTRUCTOR))(edit, parent, name,
                                                                                 widgetClass);
}

__attribute__((visibility("default"))) void VALIDATOR_CONSTRUCTOR(void* validator, QObject* parent)
{
    const Call call(segment(parent) + "validator made");
    lastValidator = validator;
    nextOf<decltype(&VALIDATOR_CONSTRUCTOR)>(SYMBOL_TEXT(VALIDATOR_CONSTRUCTOR))(validator, parent);
}

} // extern "C"

void QIntValidator::setRange(int bottom, int top)
{
    const Call call(std::string(this == lastValidator ? "its" : "another's") + " range " +
                    std::to_string(bottom) + ' ' + std::to_string(top));
    nextOf<void (*)(QIntValidator*, int, int)>("_ZN13QIntValidator8setRangeEii")(this, bottom, top);
}

void QWidget::resize(const QSize& size)
{
    const bool isHint = interposed::depth == 0 && interposed::recording && size == sizeHint();
    const Call call(isHint ? "resize to the size hint" : "resize");
    nextOf<void (*)(QWidget*, const QSize&)>("_ZN7QWidget6resizeERK5QSize")(this, size);
}

void YSegmentField::setNumSegments(int count)
{
    const Call call("segments " + std::to_string(count));
    nextOf<void (*)(YSegmentField*, int)>("_ZN13YSegmentField14setNumSegmentsEi")(this, count);
}

void YSegmentField::setSeparatorString(const QString& separator)
{
    const Call call("separator " + quoted(separator));
    nextOf<void (*)(YSegmentField*, const QString&)>(
        "_ZN13YSegmentField18setSeparatorStringERK7QString")(this, separator);
}

YLineEdit* YSegmentField::getField(int index) const
{
    const Call call("field " + std::to_string(index));
    YLineEdit* edit = nextOf<YLineEdit* (*)(const YSegmentField*, int)>(
        "_ZNK13YSegmentField8getFieldEi")(this, index);
    if (std::find(segments.begin(), segments.end(), edit) == segments.end())
        segments.push_back(edit);
    return edit;
}

void YLineEdit::setMaxLength(int length)
{
    const Call call(segment(this) + "most characters " + std::to_string(length));
    nextOf<void (*)(YLineEdit*, int)>("_ZN9YLineEdit12setMaxLengthEi")(this, length);
}

void YLineEdit::setPreferredWidth(int width)
{
    const Call call(segment(this) + "preferred width " + std::to_string(width));
    nextOf<void (*)(YLineEdit*, int)>("_ZN9YLineEdit17setPreferredWidthEi")(this, width);
}

void YLineEdit::setAlignment(int alignment)
{
    const Call call(segment(this) + "alignment " + std::to_string(alignment));
    nextOf<void (*)(YLineEdit*, int)>("_ZN9YLineEdit12setAlignmentEi")(this, alignment);
}

void YLineEdit::setValidator(const QValidator* validator)
{
    const Call call(segment(this) +
                    (validator == lastValidator ? "that validator set" : "another validator set"));
    nextOf<void (*)(YLineEdit*, const QValidator*)>("_ZN9YLineEdit12setValidatorEPK10QValidator")(
        this, validator);
}

void YLineEdit::setText(const QString& text)
{
    const Call call(segment(this) + "text " + quoted(text));
    nextOf<void (*)(YLineEdit*, const QString&)>("_ZN9YLineEdit7setTextERK7QString")(this, text);
}

void YLineEdit::clear()
{
    const Call call(segment(this) + "cleared");
    nextOf<void (*)(YLineEdit*)>("_ZN9YLineEdit5clearEv")(this);
}

void YLineEdit::focusInEvent(QFocusEvent* event)
{
    const Call call("the base's focus in, reason " + std::to_string(event->reason()));
    nextOf<void (*)(YLineEdit*, QFocusEvent*)>("_ZN9YLineEdit12focusInEventEP11QFocusEvent")(this,
                                                                                             event);
}

void YLineEdit::focusOutEvent(QFocusEvent* event)
{
    const Call call("the base's focus out, reason " + std::to_string(event->reason()));
    nextOf<void (*)(YLineEdit*, QFocusEvent*)>("_ZN9YLineEdit13focusOutEventEP11QFocusEvent")(
        this, event);
}

void YApplication::setInputMethod(QWidget* widget, const QString& method, int mode,
                                  const QString& extra)
{
    const Call call(segment(widget) + "input method " + method.toStdString() + ' ' +
                    std::to_string(mode) + ' ' + quoted(extra));
    nextOf<void (*)(QWidget*, const QString&, int, const QString&)>(
        "_ZN12YApplication14setInputMethodEP7QWidgetRK7QStringiS4_")(widget, method, mode, extra);
}

namespace {

typedef std::vector<std::string> Calls;

class WidgetParts : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        segments.clear();
    }
};

Calls setUpOf(const std::string& index)
{
    const std::string own = "segment " + index + ": ";
    return {
        "field " + index,
        own + "most characters 3",
        own + "preferred width 40",
        own + "alignment 36",
        own + "validator made",
        "its range 0 255",
        own + "that validator set",
        own + "input method {637a8c00-1098-42ca-969a-2bf163cd3c14} 6 null",
    };
}

TEST_F(WidgetParts, OfTheAddressFieldAreMadeInTheirOrderWithTheToolkitsValues)
{
    Calls expected = {"segment field no parent none 0 63", "segments 4", "separator \".\""};
    for (const char* index : {"0", "1", "2", "3"})
        for (const std::string& call : setUpOf(index))
            expected.push_back(call);
    expected.push_back("resize to the size hint");
    EXPECT_EQ(callsOf([] { const IPAddressEdit field; }), expected);
}

TEST_F(WidgetParts, OfTheAddressFieldStandInTheParentThatIsGiven)
{
    QWidget parent;
    const Calls calls = callsOf([&] { const IPAddressEdit field(&parent); });
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.front(), "segment field in its parent none 0 63");
}

TEST_F(WidgetParts, OfTheAddressFieldGetTheirTextsFromTheFirstToTheLast)
{
    IPAddressEdit field;
    QString address("192.168.0.1");
    QString none("0.0.0.0");
    const Calls calls = callsOf([&] {
        field.setIPAddress(address);
        field.setIPAddress(none);
    });
    EXPECT_EQ(calls,
              (Calls{"segment 0: text \"192\"", "segment 1: text \"168\"", "segment 2: text \"0\"",
                     "segment 3: text \"1\"", "segment 0: text \"\"", "segment 1: text \"\"",
                     "segment 2: text \"\"", "segment 3: text \"\""}));
}

TEST_F(WidgetParts, OfTheNameFieldAreALineEditOfAForm)
{
    EXPECT_EQ(callsOf([] { const ProfileEdit field; }), Calls{"line edit no parent none 39"});
    QWidget parent;
    EXPECT_EQ(callsOf([&] { const ProfileEdit field(&parent, "profile"); }),
              Calls{"line edit in its parent profile 39"});
}

// Makes its event handlers callable.
class OpenProfileEdit : public ProfileEdit
{
public:
    using ProfileEdit::focusInEvent;
    using ProfileEdit::focusOutEvent;
};

TEST_F(WidgetParts, OfTheNameFieldPassOnTheFocusAfterTheTextIsRight)
{
    OpenProfileEdit field;
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QFocusEvent out(QEvent::FocusOut, Qt::BacktabFocusReason);
    field.setDefaultProfileName("Profile3");
    field.setText("Profile3");
    EXPECT_EQ(callsOf([&] { field.focusInEvent(&in); }),
              (Calls{"edit: cleared", "the base's focus in, reason 1"}));
    EXPECT_EQ(callsOf([&] { field.focusOutEvent(&out); }),
              (Calls{"edit: text \"Profile3\"", "the base's focus out, reason 2"}));
    field.setText("Work");
    EXPECT_EQ(callsOf([&] { field.focusInEvent(&in); }), Calls{"the base's focus in, reason 1"});
    EXPECT_EQ(callsOf([&] { field.focusOutEvent(&out); }), Calls{"the base's focus out, reason 2"});
}

} // namespace
