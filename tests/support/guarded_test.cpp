#include "support/guarded.h"

#include <gtest/gtest.h>

#include <qwidget.h>

using support::Guarded;
using support::Owned;

TEST(Guarded, IsNullWithoutAnObject)
{
    const Guarded<QObject> none;
    EXPECT_TRUE(none.isNull());
    EXPECT_EQ(none.get(), nullptr);
    EXPECT_FALSE(none);
}

TEST(Guarded, PointsToItsObject)
{
    QObject object;
    const Guarded<QObject> guarded(&object);
    EXPECT_FALSE(guarded.isNull());
    EXPECT_EQ(&object, guarded.get());
    EXPECT_EQ(&object, &*guarded);
    EXPECT_FALSE(guarded->signalsBlocked());
    QObject* const plain = guarded;
    EXPECT_EQ(&object, plain);
}

TEST(Guarded, IsNullOnceTheObjectIsDeleted)
{
    QObject* const object = new QObject;
    const Guarded<QObject> guarded(object);
    delete object;
    EXPECT_TRUE(guarded.isNull());
    EXPECT_FALSE(guarded);
}

TEST(Guarded, IsNullOnceTheObjectIsDeletedWithItsSignalsBlocked)
{
    QObject* const object = new QObject;
    const Guarded<QObject> guarded(object);
    object->blockSignals(true);
    delete object;
    EXPECT_TRUE(guarded.isNull());
}

TEST(Guarded, IsNullOnceTheParentOfItsObjectIsDeleted)
{
    QWidget* const parent = new QWidget(nullptr);
    const Guarded<QWidget> guarded(new QWidget(parent));
    delete parent;
    EXPECT_TRUE(guarded.isNull());
}

TEST(Guarded, IsNullAlreadyInsideTheDestructorOfAChild)
{
    struct Child : QObject
    {
        Child(QObject* parent, const Guarded<QObject>& watched, bool& seen)
            : QObject(parent), guarded(watched), null(seen)
        {}
        ~Child() override { null = guarded.isNull(); }

        Guarded<QObject> guarded;
        bool& null;
    };
    bool null = false;
    QObject* const parent = new QObject;
    new Child(parent, Guarded<QObject>(parent), null);
    delete parent;
    EXPECT_TRUE(null);
}

TEST(Guarded, FollowsAnAssignment)
{
    QObject first;
    QObject* const second = new QObject;
    Guarded<QObject> guarded(&first);
    guarded = second;
    EXPECT_EQ(second, guarded.get());
    delete second;
    EXPECT_TRUE(guarded.isNull());
    guarded = &first;
    EXPECT_EQ(&first, guarded.get());
    guarded = nullptr;
    EXPECT_TRUE(guarded.isNull());
}

TEST(Guarded, IsCopiedWithItsGuard)
{
    QObject* const object = new QObject;
    Guarded<QObject> copy;
    {
        const Guarded<QObject> original(object);
        copy = original;
    }
    EXPECT_EQ(object, copy.get());
    delete object;
    EXPECT_TRUE(copy.isNull());
}

TEST(Guarded, MayGoBeforeItsObject)
{
    QObject object;
    {
        const Guarded<QObject> guarded(&object);
        EXPECT_EQ(&object, guarded.get());
    }
    const Guarded<QObject> another(&object);
    EXPECT_EQ(&object, another.get());
}

TEST(Owned, DeletesItsObjectAtTheEnd)
{
    Guarded<QObject> watched;
    {
        const Owned<QObject> owned(new QObject);
        watched = owned.get();
        EXPECT_FALSE(owned.isNull());
        EXPECT_FALSE(owned->signalsBlocked());
    }
    EXPECT_TRUE(watched.isNull());
}

TEST(Owned, LeavesAloneWhatOthersHaveDeleted)
{
    const Owned<QObject> owned(new QObject);
    delete owned.get();
    EXPECT_TRUE(owned.isNull());
}
