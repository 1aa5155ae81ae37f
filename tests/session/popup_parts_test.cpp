// What the popup hands to the toolkit's constructors. These functions stand before the toolkit's
// own, note their arguments, and go on to them.

#include <dlfcn.h>
#include <new>

#include <ystatedialog.h>

#include "session/session_fixture.h"

namespace {

std::vector<std::string> constructed;
bool refuseNextPopup = false;

template <typename Function> Function next(const char* symbol)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, symbol));
}

std::string text(const char* name)
{
    return name ? name : "none";
}

} // namespace

#define POPUP_CONSTRUCTOR _ZN6YPopupC2EiP7QWidgetPKcbii
#define LABEL_CONSTRUCTOR _ZN6YLabelC1EP7QWidgetPKcji
#define TEXT_OF(symbol) TEXT_OF_EXPANDED(symbol)
#define TEXT_OF_EXPANDED(symbol) #symbol

extern "C" {

__attribute__((visibility("default"))) void POPUP_CONSTRUCTOR(void* popup, int type,
                                                              QWidget* parent, const char* name,
                                                              bool modal, int style, int last)
{
    constructed.push_back("popup " + std::to_string(type) + (parent ? " parent " : " no parent ") +
                          text(name) + (modal ? " modal " : " modeless ") + std::to_string(style) +
                          " " + std::to_string(last));
    next<decltype(&POPUP_CONSTRUCTOR)>(TEXT_OF(POPUP_CONSTRUCTOR))(popup, type, parent, name, modal,
                                                                   style, last);
}

__attribute__((visibility("default"))) void LABEL_CONSTRUCTOR(void* label, QWidget* parent,
                                                              const char* name, unsigned int flags,
                                                              int widgetClass)
{
    constructed.push_back(std::string("label") + (parent ? " in its parent " : " no parent ") +
                          text(name) + " " + std::to_string(flags) + " " +
                          std::to_string(widgetClass));
    next<decltype(&LABEL_CONSTRUCTOR)>(TEXT_OF(LABEL_CONSTRUCTOR))(label, parent, name, flags,
                                                                   widgetClass);
}

} // extern "C"

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
        constructed.clear();
        refuseNextPopup = false;
    }
};

TEST_F(PopupParts, GetTheToolkitsValuesInTheirOrder)
{
    manager->openLink("Internet");
    EXPECT_EQ((std::vector<std::string>{"popup 0 no parent none modal 464 0",
                                        "label in its parent none 0 86",
                                        "label in its parent none 0 86"}),
              constructed);
}

TEST_F(PopupParts, TakeTheParentThatAnApplicationGives)
{
    QWidget parent;
    YStateDialog popupOfAnApplication(&parent);
    ASSERT_FALSE(constructed.empty());
    EXPECT_EQ("popup 0 parent none modal 464 0", constructed.front());
}

TEST_F(PopupParts, AreDoneWithoutWhenThereIsNoMemory)
{
    refuseNextPopup = true;
    EXPECT_EQ(5, manager->openLink("Internet"));
    EXPECT_FALSE(refuseNextPopup);
    EXPECT_EQ(nullptr, popup());
    EXPECT_TRUE(constructed.empty());

    // The link is not pending: its messages are handled as any link's, and the next one gets a
    // popup.
    deliver(indication(NAPI_IND_BROKEN, 5));
    EXPECT_EQ("broken(5)", log->take());
    EXPECT_EQ(5, manager->openLink("Internet"));
    EXPECT_NE(nullptr, popup());
}
