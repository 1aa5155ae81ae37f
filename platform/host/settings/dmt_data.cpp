// Statuses, principals and values: plain values behind one pointer.
#include <string>

#include "dmt.h"

namespace {

const char* orEmpty(const char* text)
{
    return text ? text : "";
}

} // namespace

struct DmtStatus::Private
{
    int code;
    std::string message;
};

DmtStatus::DmtStatus(int code, const char* message) : d(new Private{code, orEmpty(message)}) {}

DmtStatus::DmtStatus(const DmtStatus& other) : d(new Private(*other.d)) {}

DmtStatus& DmtStatus::operator=(const DmtStatus& other)
{
    *d = *other.d;
    return *this;
}

DmtStatus::~DmtStatus()
{
    delete d;
}

int DmtStatus::GetCode() const
{
    return d->code;
}

const char* DmtStatus::GetMessage() const
{
    return d->message.c_str();
}

void DmtStatus::SetMessage(const char* message)
{
    d->message = std::string(orEmpty(message));
}

struct DmtPrincipal::Private
{
    std::string name;
};

DmtPrincipal::DmtPrincipal(const char* name) : d(new Private{orEmpty(name)}) {}

DmtPrincipal::DmtPrincipal(const DmtPrincipal& other) : d(new Private(*other.d)) {}

DmtPrincipal& DmtPrincipal::operator=(const DmtPrincipal& other)
{
    *d = *other.d;
    return *this;
}

DmtPrincipal::~DmtPrincipal()
{
    delete d;
}

void DmtPrincipal::SetName(const char* name)
{
    d->name = std::string(orEmpty(name));
}

const char* DmtPrincipal::GetName() const
{
    return d->name.c_str();
}

struct DmtData::Private
{
    DmtType type = DMT_TYPE_NONE;
    int integer = 0;
    std::string text;
    bool boolean = false;
};

DmtData::DmtData() : d(new Private) {}

DmtData::DmtData(const DmtData& other) : d(new Private(*other.d)) {}

DmtData& DmtData::operator=(const DmtData& other)
{
    *d = *other.d;
    return *this;
}

DmtData::~DmtData()
{
    delete d;
}

int DmtData::GetType() const
{
    return d->type;
}

DmtStatus DmtData::GetInt(int& value) const
{
    if (d->type != DMT_TYPE_INTEGER)
        return DmtStatus(DMT_WRONG_TYPE, "the value is no integer");
    value = d->integer;
    return DmtStatus();
}

DmtStatus DmtData::GetString(const char*& text) const
{
    if (d->type != DMT_TYPE_TEXT)
        return DmtStatus(DMT_WRONG_TYPE, "the value is no text");
    text = d->text.c_str();
    return DmtStatus();
}

DmtStatus DmtData::GetBool(bool& value) const
{
    if (d->type != DMT_TYPE_BOOL)
        return DmtStatus(DMT_WRONG_TYPE, "the value is no truth value");
    value = d->boolean;
    return DmtStatus();
}

void DmtData::SetInt(int value)
{
    d->integer = value;
    d->type = DMT_TYPE_INTEGER;
}

void DmtData::SetString(const char* text)
{
    d->text = std::string(orEmpty(text));
    d->type = DMT_TYPE_TEXT;
}

void DmtData::SetBool(bool value)
{
    d->boolean = value;
    d->type = DMT_TYPE_BOOL;
}
