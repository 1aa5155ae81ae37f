#include "support/object.h"

#include <gtest/gtest.h>

#include <qvalidator.h>

#include "support/notation.h"

using namespace support;

namespace {

class Object : public QObject
{
public:
    Object(QObject* parent, const char* name) : SUPPORT_QOBJECT(parent, name) {}
};

class Widget : public QWidget
{
public:
    Widget(QWidget* parent, const char* name, support::WidgetFlags flags)
        : SUPPORT_QWIDGET(parent, name, flags)
    {}
};

class Validator : public QIntValidator
{
public:
    Validator(QWidget* parent, const char* name) : SUPPORT_VALIDATOR(parent, name) {}
};

const WidgetFlags noFlags = WidgetFlags();

} // namespace

TEST(SupportQObject, PassesParentAndNameOn)
{
    QObject parent;
    Object* const object = new Object(&parent, "manager");
    EXPECT_EQ(&parent, object->parent());
    EXPECT_EQ("manager", shown(objectName(object)));
}

TEST(SupportQObject, LeavesAnObjectNamelessForANullName)
{
    const Object object(nullptr, nullptr);
    EXPECT_EQ(nullptr, object.parent());
    EXPECT_EQ("", shown(objectName(&object)));
}

TEST(SupportQObject, TakesANameInUtf8)
{
    const Object object(nullptr, "caf\xc3\xa9");
    EXPECT_EQ("caf<00e9>", shown(objectName(&object)));
}

TEST(SupportQWidget, PassesParentAndNameOn)
{
    QWidget parent(nullptr);
    const Widget* const child = new Widget(&parent, "field", noFlags);
    EXPECT_EQ(&parent, child->parentWidget());
    EXPECT_EQ("field", shown(objectName(child)));
    EXPECT_EQ("", shown(objectName(new Widget(&parent, nullptr, noFlags))));
}

TEST(SupportValidator, PassesParentAndNameOn)
{
    QWidget parent(nullptr);
    const Validator* const named = new Validator(&parent, "port");
    EXPECT_EQ(&parent, named->parent());
    EXPECT_EQ("port", shown(objectName(named)));
    EXPECT_EQ("", shown(objectName(new Validator(&parent, nullptr))));
}

TEST(ObjectName, IsEmptyForAnObjectWithoutAName)
{
    const QObject object;
    EXPECT_EQ("", shown(objectName(&object)));
}
