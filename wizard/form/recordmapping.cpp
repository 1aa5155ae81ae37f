#include "wizard/form/recordmapping.h"

#include <stddef.h>

#include "support/ipv4.h"
#include "support/log.h"
#include "wizard/form/codetables.h"
#include "wizard/form/fieldtext.h"

namespace wizard {

namespace {

// Where the text of a form field stands in the record.
struct TextPlace
{
    Text field;
    size_t offset;
    size_t width;
};

#define TEXT_PLACE(field, member)                                                                  \
    {                                                                                              \
        field, offsetof(NetworkProfile, member), sizeof(NetworkProfile::member)                    \
    }

const TextPlace gprsTexts[] = {
    TEXT_PLACE(Text::GprsApn, gprsApn),
    TEXT_PLACE(Text::GprsUserName, gprsUserName),
    TEXT_PLACE(Text::GprsPassword, gprsPassword),
};
const TextPlace proxy1Text[] = {
    TEXT_PLACE(Text::Proxy1, proxy1),
};
const TextPlace domain1Text[] = {
    TEXT_PLACE(Text::Domain1, domain1),
};
const TextPlace csdNumberText[] = {
    TEXT_PLACE(Text::CsdNumber, csdNumber),
};
const TextPlace csdAccountTexts[] = {
    TEXT_PLACE(Text::CsdUserName, csdUserName),
    TEXT_PLACE(Text::CsdPassword, csdPassword),
};
const TextPlace proxy2Text[] = {
    TEXT_PLACE(Text::Proxy2, proxy2),
};
const TextPlace domain2Text[] = {
    TEXT_PLACE(Text::Domain2, domain2),
};

#undef TEXT_PLACE

template <size_t count>
void fillTexts(const TextPlace (&places)[count], const NetworkProfile& record, FormFields& form)
{
    const char* bytes = reinterpret_cast<const char*>(&record);
    for (const TextPlace& place : places)
        form.setText(place.field, textOfField(bytes + place.offset, place.width));
}

template <size_t count>
void storeTexts(const TextPlace (&places)[count], const FormFields& form, NetworkProfile* record)
{
    char* bytes = reinterpret_cast<char*>(record);
    for (const TextPlace& place : places)
        storeText(form.text(place.field), bytes + place.offset, place.width);
}

void fillPort(Text field, uint16_t port, FormFields& form)
{
    form.setText(field, QString::number(int(port), 10));
}

void fillAddress(Text field, uint32_t address, FormFields& form)
{
    if (address != 0)
        form.setText(field, support::ipv4ToText(address));
}

void fillSpeed(uint8_t code, FormFields& form)
{
    SpeedChoice choice = {};
    if (!speedChoiceOf(code, &choice)) {
        support::logPrint(4, "unknown csd speed value for +CBST command\n");
        return;
    }
    form.setChoice(Choice::CsdSpeed, choice.speed);
    form.setChoice(Choice::LineType, choice.lineType);
}

void storeSpeed(const FormFields& form, uint8_t* code)
{
    const SpeedChoice choice = {form.choice(Choice::LineType), form.choice(Choice::CsdSpeed)};
    if (!speedCodeOf(choice, code))
        support::logPrint(4, "Invalid csdSpeed value.(lineType:%d,baudRate:%d)", choice.lineType,
                          choice.speed);
}

} // namespace

void fillPage1(const NetworkProfile& record, FormFields& form)
{
    fillTexts(gprsTexts, record, form);
    form.setChoice(Choice::GprsTimeout, gprsTimeouts.itemOf(record.gprsTimeout));
    form.setChoice(Choice::QosPolicy, record.qosPolicy);
    fillAddress(Text::GprsDns1, record.gprsDns1, form);
    fillAddress(Text::GprsDns2, record.gprsDns2, form);
    fillTexts(proxy1Text, record, form);
    fillPort(Text::Port1, record.port1, form);
    fillTexts(domain1Text, record, form);
    fillTexts(csdNumberText, record, form);
}

void fillPage2(const NetworkProfile& record, FormFields& form)
{
    fillTexts(csdNumberText, record, form);
    fillTexts(csdAccountTexts, record, form);
    fillSpeed(record.csdSpeed, form);
    form.setChoice(Choice::CsdTimeout, csdTimeouts.itemOf(record.csdTimeout));
    fillAddress(Text::CsdDns1, record.csdDns1, form);
    fillAddress(Text::CsdDns2, record.csdDns2, form);
    fillTexts(proxy2Text, record, form);
    fillPort(Text::Port2, record.port2, form);
    fillTexts(domain2Text, record, form);
}

void storePage1(const FormFields& form, NetworkProfile* record)
{
    storeTexts(gprsTexts, form, record);
    gprsTimeouts.minutesOf(form.choice(Choice::GprsTimeout), &record->gprsTimeout);
    record->qosPolicy = static_cast<uint8_t>(form.choice(Choice::QosPolicy));
    storeAddress(form.text(Text::GprsDns1), &record->gprsDns1);
    storeAddress(form.text(Text::GprsDns2), &record->gprsDns2);
    record->port1 = portOf(form.text(Text::Port1));
    storeTexts(proxy1Text, form, record);
    storeTexts(domain1Text, form, record);
}

void storePage2(const FormFields& form, NetworkProfile* record)
{
    storeTexts(csdNumberText, form, record);
    storeTexts(csdAccountTexts, form, record);
    storeSpeed(form, &record->csdSpeed);
    csdTimeouts.minutesOf(form.choice(Choice::CsdTimeout), &record->csdTimeout);
    storeAddress(form.text(Text::CsdDns1), &record->csdDns1);
    storeAddress(form.text(Text::CsdDns2), &record->csdDns2);
    record->port2 = portOf(form.text(Text::Port2));
    storeTexts(proxy2Text, form, record);
    storeTexts(domain2Text, form, record);
}

} // namespace wizard
