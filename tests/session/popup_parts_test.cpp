// What the popup hands to the toolkit, and in which order. These functions stand before the
// toolkit's own, note their arguments, and go on to them.

#include <new>

#include <yglobal.h>
#include <ylabel.h>
#include <ysoftkey.h>
#include <ystatedialog.h>

#include "common/interposed.h"
#include "session/session_fixture.h"

using interposed::Call;
using interposed::callsOf;
using interposed::orNone;

namespace {

bool refuseNextPopup = false;

std::string placeText(const QRect& r)
{
    return std::to_string(r.x()) + "," + std::to_string(r.y()) + " " + std::to_string(r.width()) +
           "x" + std::to_string(r.height());
}

std::string number(int value)
{
    return std::to_string(value);
}

} // namespace

#define POPUP_CONSTRUCTOR _ZN6YPopupC2EiP7QWidgetPKcbii
#define LABEL_CONSTRUCTOR _ZN6YLabelC1EP7QWidgetPKcji

extern "C" {

__attribute__((visibility("default"))) void POPUP_CONSTRUCTOR(void* popup, int type,
                                                              QWidget* parent, const char* name,
                                                              bool modal, int style, int last)
{
    const Call call("popup " + number(type) + (parent ? " parent " : " no parent ") + orNone(name) +
                    (modal ? " modal " : " modeless ") + number(style) + " " + number(last));
    nextOf<decltype(&POPUP_CONSTRUCTOR)>(SYMBOL_TEXT(POPUP_CONSTRUCTOR))(popup, type, parent, name,
                                                                         modal, style, last);
}

__attribute__((visibility("default"))) void LABEL_CONSTRUCTOR(void* label, QWidget* parent,
                                                              const char* name, unsigned int flags,
                                                              int widgetClass)
{
    const Call call(std::string("label") + (parent ? " in its parent " : " no parent ") +
                    orNone(name) + " " + std::to_string(flags) + " " + number(widgetClass));
    nextOf<decltype(&LABEL_CONSTRUCTOR)>(SYMBOL_TEXT(LABEL_CONSTRUCTOR))(label, parent, name, flags,
                                                                         widgetClass);
}

} // extern "C"

void QWidget::setGeometry(const QRect& place)
{
    const Call call("geometry " + placeText(place));
    nextOf<void (*)(QWidget*, const QRect&)>("_ZN7QWidget11setGeometryERK5QRect")(this, place);
}

void QWidget::show()
{
    const Call call("show");
    nextOf<void (*)(QWidget*)>("_ZN7QWidget4showEv")(this);
}

QRect YGlobal::getDlgSmallR()
{
    const Call call("small dialog");
    return nextOf<QRect (*)()>("_ZN7YGlobal12getDlgSmallREv")();
}

QRect YGlobal::getDlgSmallConR()
{
    const Call call("small dialog's content");
    return nextOf<QRect (*)()>("_ZN7YGlobal15getDlgSmallConREv")();
}

QRect YGlobal::mapFromGlobalR(QWidget* widget, const QRect& place)
{
    const Call call("map " + placeText(place));
    return nextOf<QRect (*)(QWidget*, const QRect&)>(
        "_ZN7YGlobal14mapFromGlobalREP7QWidgetRK5QRect")(widget, place);
}

YSoftKey* YPopup::getSoftKey() const
{
    const Call call("soft keys");
    return nextOf<YSoftKey* (*)(const YPopup*)>("_ZNK6YPopup10getSoftKeyEv")(this);
}

void YSoftKey::showButton(int button, bool shown)
{
    const Call call("button " + number(button) + (shown ? " shown" : " hidden"));
    nextOf<void (*)(YSoftKey*, int, bool)>("_ZN8YSoftKey10showButtonEib")(this, button, shown);
}

void YSoftKey::setText(int button, const QString& text, int priority)
{
    const Call call("button " + number(button) + " " + text.toStdString() + " " + number(priority));
    nextOf<void (*)(YSoftKey*, int, const QString&, int)>("_ZN8YSoftKey7setTextEiRK7QStringi")(
        this, button, text, priority);
}

void YSoftKey::setClickedSlot(int button, QObject* receiver, const char* member)
{
    const Call call("button " + number(button) + " calls " + orNone(member) + " of " +
                    receiver->metaObject()->className());
    nextOf<void (*)(YSoftKey*, int, QObject*, const char*)>(
        "_ZN8YSoftKey14setClickedSlotEiP7QObjectPKc")(this, button, receiver, member);
}

QString QMetaObject::tr(const char* id, const char* text, int n) const
{
    const interposed::Call call(std::string("text ") + id + " " + orNone(text));
    return nextOf<QString (*)(const QMetaObject*, const char*, const char*, int)>(
        "_ZNK11QMetaObject2trEPKcS1_i")(this, id, text, n);
}

// The library asks for the popup's memory in this way and in no other place.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    if (refuseNextPopup) {
        refuseNextPopup = false;
        return nullptr;
    }
    try {
        return ::operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

class PopupParts : public Session
{
protected:
    void SetUp() override
    {
        Session::SetUp();
        initialise();
        refuseNextPopup = false;
    }
};

// On the usual screen of 240x320 pixels.
TEST_F(PopupParts, GetTheToolkitsValuesInTheirOrder)
{
    const QRect place = YGlobal::getDlgSmallR();
    const QRect content = YGlobal::getDlgSmallConR();
    const QRect beside(content.left() + 64, content.top(), content.width() - 64, content.height());
    const QRect inPopup = beside.translated(-place.topLeft());
    EXPECT_EQ((std::vector<std::string>{
                  "popup 0 no parent none modal 464 0",
                  "small dialog",
                  "geometry " + placeText(place),
                  "label in its parent none 0 86",
                  "geometry 8,11 50x50",
                  "label in its parent none 0 86",
                  "small dialog's content",
                  "map " + placeText(beside),
                  "geometry " + placeText(inPopup),
                  "soft keys",
                  "button 0 hidden",
                  "text TXT_RID_SOFTKEY_CANCEL Cancel",
                  "button 1 Cancel 0",
                  "soft keys",
                  "button 1 calls 1slotCancelBtnClicked() of YDataSessionManager",
                  "show",
              }),
              callsOf([this] { manager->openLink("Internet"); }));
}

TEST_F(PopupParts, TakeTheParentThatAnApplicationGives)
{
    QWidget parent;
    const auto calls = callsOf([&] { const YStateDialog popup(&parent); });
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.front(), "popup 0 parent none modal 464 0");
}

TEST_F(PopupParts, AreDoneWithoutWhenThereIsNoMemory)
{
    refuseNextPopup = true;
    EXPECT_EQ((std::vector<std::string>{}),
              callsOf([this] { EXPECT_EQ(manager->openLink("Internet"), 5); }));
    EXPECT_FALSE(refuseNextPopup);
    EXPECT_EQ(popup(), nullptr);

    // The link is not pending: its messages are handled as any link's, and the next one gets a
    // popup.
    deliver(indication(NAPI_IND_BROKEN, 5));
    EXPECT_EQ(log->take(), "broken(5)");
    EXPECT_EQ(manager->openLink("Internet"), 5);
    EXPECT_NE(popup(), nullptr);
}
