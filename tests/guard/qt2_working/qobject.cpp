#include <qobject.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include <qapplication.h>
#include <qguardedptr.h>

#include "eventsources.h"

struct QObject::Private
{
    QObject* parent = nullptr;
    std::vector<QObject*> children;
    std::string name;
    bool named = false;
    bool blocked = false;
};

// The objects that are watched, with their places.
static std::map<const QObject*, GuardedPlace>& watched()
{
    static std::map<const QObject*, GuardedPlace> places;
    return places;
}

GuardedPlace guardedPlaceOf(QObject* object)
{
    if (!object)
        return nullptr;
    GuardedPlace& place = watched()[object];
    if (!place)
        place = std::make_shared<QObject*>(object);
    return place;
}

static void emptyPlaceOf(const QObject* object)
{
    const auto found = watched().find(object);
    if (found == watched().end())
        return;
    *found->second = nullptr;
    watched().erase(found);
}

QObject::QObject(QObject* parent, const char* name) : d(new Private)
{
    setName(name);
    if (parent)
        parent->insertChild(this);
}

// First the guards, then the children, as whoever watches the object expects it.
QObject::~QObject()
{
    emptyPlaceOf(this);
    killTimers();
    if (d->parent)
        d->parent->removeChild(this);
    while (!d->children.empty())
        delete d->children.back();
    delete d;
}

void QObject::insertChild(QObject* child)
{
    child->d->parent = this;
    d->children.push_back(child);
}

void QObject::removeChild(QObject* child)
{
    child->d->parent = nullptr;
    d->children.erase(std::remove(d->children.begin(), d->children.end(), child),
                      d->children.end());
}

QObject* QObject::parent() const
{
    return d->parent;
}

void QObject::setName(const char* name)
{
    d->named = name != nullptr;
    d->name = name ? name : "";
}

const char* QObject::name() const
{
    return d->named ? d->name.c_str() : "unnamed";
}

void QObject::blockSignals(bool block)
{
    d->blocked = block;
}

bool QObject::signalsBlocked() const
{
    return d->blocked;
}

bool QObject::event(QEvent* event)
{
    if (event->type() != QEvent::Timer)
        return false;
    timerEvent(static_cast<QTimerEvent*>(event));
    return true;
}

bool QObject::eventFilter(QObject*, QEvent*)
{
    return false;
}

void QObject::timerEvent(QTimerEvent*) {}
void QObject::childEvent(QChildEvent*) {}
void QObject::connectNotify(const char*) {}
void QObject::disconnectNotify(const char*) {}

bool QObject::checkConnectArgs(const char*, const QObject*, const char*)
{
    return true;
}

int QObject::startTimer(int milliseconds)
{
    return eventsources::startTimer(this, milliseconds);
}

void QObject::killTimers()
{
    eventsources::forget(this);
}

// No class here has a signal or a slot, so that none is ever found.
bool QObject::connect(const QObject*, const char* signal, const QObject*, const char*)
{
    qWarning("QObject::connect: No such signal %s", signal + 1);
    return false;
}

// Without an application there is nobody to ask, and the program ends.
QString QObject::tr(const char* text, const char*)
{
    if (!qApp)
        std::abort();
    return QString(text);
}

QMetaObject* QObject::metaObject() const
{
    return nullptr;
}

const char* QObject::className() const
{
    return "QObject";
}

void QObject::initMetaObject() {}
