#include "wizard/form/recordmapping.h"

#include <cstddef>

#include "support/ipv4.h"
#include "support/log.h"
#include "wizard/form/codetables.h"
#include "wizard/form/fieldtext.h"

namespace wizard {

namespace {

template <std::size_t width> void fillText(Text field, const char (&bytes)[width], FormFields& form)
{
    form.setText(field, textOfField(bytes, width));
}

template <std::size_t width>
void storeText(const FormFields& form, Text field, char (&bytes)[width])
{
    wizard::storeText(form.text(field), bytes, width);
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
        support::logPrint(support::LogError, "unknown csd speed value for +CBST command\n");
        return;
    }
    form.setChoice(Choice::CsdSpeed, choice.speed);
    form.setChoice(Choice::LineType, choice.lineType);
}

void storeSpeed(const FormFields& form, uint8_t* code)
{
    const SpeedChoice choice = {form.choice(Choice::LineType), form.choice(Choice::CsdSpeed)};
    if (!speedCodeOf(choice, code))
        support::logPrint(support::LogError, "Invalid csdSpeed value.(lineType:%d,baudRate:%d)",
                          choice.lineType, choice.speed);
}

} // namespace

void fillPage1(const NetworkProfile& record, FormFields& form)
{
    fillText(Text::GprsApn, record.gprsApn, form);
    fillText(Text::GprsUserName, record.gprsUserName, form);
    fillText(Text::GprsPassword, record.gprsPassword, form);
    form.setChoice(Choice::GprsTimeout, gprsTimeouts.itemOf(record.gprsTimeout));
    form.setChoice(Choice::QosPolicy, record.qosPolicy);
    fillAddress(Text::GprsDns1, record.gprsDns1, form);
    fillAddress(Text::GprsDns2, record.gprsDns2, form);
    fillText(Text::Proxy1, record.proxy1, form);
    fillPort(Text::Port1, record.port1, form);
    fillText(Text::Domain1, record.domain1, form);
    fillText(Text::CsdNumber, record.csdNumber, form);
}

void fillPage2(const NetworkProfile& record, FormFields& form)
{
    fillText(Text::CsdNumber, record.csdNumber, form);
    fillText(Text::CsdUserName, record.csdUserName, form);
    fillText(Text::CsdPassword, record.csdPassword, form);
    fillSpeed(record.csdSpeed, form);
    form.setChoice(Choice::CsdTimeout, csdTimeouts.itemOf(record.csdTimeout));
    fillAddress(Text::CsdDns1, record.csdDns1, form);
    fillAddress(Text::CsdDns2, record.csdDns2, form);
    fillText(Text::Proxy2, record.proxy2, form);
    fillPort(Text::Port2, record.port2, form);
    fillText(Text::Domain2, record.domain2, form);
}

void storePage1(const FormFields& form, NetworkProfile* record)
{
    storeText(form, Text::GprsApn, record->gprsApn);
    storeText(form, Text::GprsUserName, record->gprsUserName);
    storeText(form, Text::GprsPassword, record->gprsPassword);
    gprsTimeouts.minutesOf(form.choice(Choice::GprsTimeout), &record->gprsTimeout);
    record->qosPolicy = static_cast<uint8_t>(form.choice(Choice::QosPolicy));
    storeAddress(form.text(Text::GprsDns1), &record->gprsDns1);
    storeAddress(form.text(Text::GprsDns2), &record->gprsDns2);
    record->port1 = portOf(form.text(Text::Port1));
    storeText(form, Text::Proxy1, record->proxy1);
    storeText(form, Text::Domain1, record->domain1);
}

void storePage2(const FormFields& form, NetworkProfile* record)
{
    storeText(form, Text::CsdNumber, record->csdNumber);
    storeText(form, Text::CsdUserName, record->csdUserName);
    storeText(form, Text::CsdPassword, record->csdPassword);
    storeSpeed(form, &record->csdSpeed);
    csdTimeouts.minutesOf(form.choice(Choice::CsdTimeout), &record->csdTimeout);
    storeAddress(form.text(Text::CsdDns1), &record->csdDns1);
    storeAddress(form.text(Text::CsdDns2), &record->csdDns2);
    record->port2 = portOf(form.text(Text::Port2));
    storeText(form, Text::Proxy2, record->proxy2);
    storeText(form, Text::Domain2, record->domain2);
}

} // namespace wizard
