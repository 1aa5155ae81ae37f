// Names and flags of objects and widgets.
//
// SUPPORT_QOBJECT(parent, name), SUPPORT_QWIDGET(parent, name, flags) and SUPPORT_VALIDATOR(parent,
// name) stand in a constructor's initialiser list for the base QObject, QWidget or QIntValidator,
// and give the object its name: a text in UTF-8, or null for none. The parent is a pointer, or
// nullptr.
#ifndef SUPPORT_OBJECT_H
#define SUPPORT_OBJECT_H

#include "support/qt.h"

namespace support {

// The third argument of a widget's constructor; WidgetFlags() stands for none. Write it with its
// namespace: inside a widget class, Qt 2.3 has an enumeration of the same name.
typedef qt::WidgetFlags WidgetFlags;

// The name that the object was given; empty, not null, when it has none.
QString objectName(const QObject* object);

} // namespace support

#endif
