// The words in which calls to the toolkit are noted.
#ifndef TESTS_WIZARD_TOOLKIT_WORDS_H
#define TESTS_WIZARD_TOOLKIT_WORDS_H

#include <string>
#include <type_traits>

#include <ycombobox.h>
#include <yformcontainer.h>
#include <ylineedit.h>
#include <ypressbutton.h>

#include "common/interposed.h"

namespace toolkitcalls {

// How an argument is handed over: an object of a class by its address.
template <typename T>
using Handed =
    std::conditional_t<std::is_class_v<std::remove_reference_t<T>>, const T&, std::decay_t<T>>;

template <typename... Arguments> void goOn(const char* symbol, Arguments&&... arguments)
{
    nextOf<void (*)(Handed<Arguments>...)>(symbol)(arguments...);
}

inline std::string said(const QString& text)
{
    return interposed::quoted(text);
}

inline std::string said(int number)
{
    return std::to_string(number);
}

inline std::string said(bool flag)
{
    return flag ? "yes" : "no";
}

inline std::string said(const char* text)
{
    return interposed::orNone(text);
}

inline std::string said(const void* object)
{
    return object ? "some" : "none";
}

template <typename First, typename... Rest>
std::string said(const First& first, const Rest&... rest)
{
    return said(first) + ' ' + said(rest...);
}

// A row by its label, a page by its class.
inline std::string nameOf(const QObject* object)
{
    if (auto* edit = qobject_cast<const YLineEdit*>(object))
        return edit->label().toStdString();
    if (auto* combo = qobject_cast<const YComboBox*>(object))
        return combo->title().toStdString();
    if (auto* button = qobject_cast<const YButton*>(object))
        return button->text().toStdString();
    return object ? object->metaObject()->className() : "none";
}

// What a row is given as its parent.
inline std::string placeOf(QWidget* parent)
{
    for (QWidget* widget = parent; widget; widget = widget->parentWidget()) {
        auto* form = qobject_cast<YFormContainer*>(widget);
        if (form)
            return parent == form->viewport() ? "viewport" : nameOf(parent);
    }
    return nameOf(parent);
}

} // namespace toolkitcalls

#endif
