#include "ipaddressedit.h"

#include <string.h>

#include <string>

#include <ylineedit.h>

#include "ipaddressedit_validator.h"
#include "support/ipv4.h"
#include "support/memory.h"
#include "support/text.h"
#include "support/toolkitnumbers.h"
#include "widgets/keypadinput.h"

namespace {

const int segmentCount = 4;
const int largestOctet = 255;
const unsigned int broadcast = 0xFFFFFFFFU;

const int segmentWidth = 40;

void setUpSegment(YLineEdit* segment)
{
    segment->setMaxLength(3);
    segment->setPreferredWidth(segmentWidth);
    segment->setAlignment(toolkit::Centred);
    IPAddressEdit_Validator* validator = new IPAddressEdit_Validator(segment);
    validator->setRange(0, largestOctet);
    segment->setValidator(validator);
    widgets::useKeypad(segment, toolkit::NumericInput);
}

// Each byte is one character, as a QString of the phone takes it.
QString textOf(const unsigned char* bytes)
{
    QString text;
    for (; bytes && *bytes; ++bytes)
        text += QChar(static_cast<unsigned short>(*bytes));
    return text;
}

// 0 for a text that is no address.
unsigned int addressOf(const QString& text)
{
    unsigned int address = 0;
    support::ipv4FromText(text, &address);
    return address;
}

} // namespace

IPAddressEdit::IPAddressEdit(QWidget* parent) : YSegmentField(parent, 0, 0, toolkit::SegmentField)
{
    setNumSegments(segmentCount);
    setSeparatorString(".");
    for (int i = 0; i < segmentCount; ++i) {
        segments[i] = getField(i);
        setUpSegment(segments[i]);
    }
    resize(sizeHint());
}

IPAddressEdit::~IPAddressEdit() {}

namespace {

// All four texts are there before the first one is shown.
void showAddress(YLineEdit* const* segments, unsigned int address)
{
    QString octets[segmentCount];
    for (int i = 0; i < segmentCount; ++i)
        octets[i] = address ? QString::number(int(address >> (24 - 8 * i) & 0xFF)) : QString("");
    for (int i = 0; i < segmentCount; ++i)
        segments[i]->setText(octets[i]);
}

// Part of an address with part of another would be a third one.
void showNothing(YLineEdit* const* segments)
{
    for (int i = 0; i < segmentCount; ++i)
        support::withMemory([segments, i] { segments[i]->setText(QString("")); }, [] {});
}

unsigned int addressIn(YLineEdit* const* segments)
{
    QString text = segments[0]->text();
    for (int i = 1; i < segmentCount; ++i)
        text += "." + segments[i]->text();
    return addressOf(text);
}

} // namespace

void IPAddressEdit::setIPAddress(QString& text)
{
    support::withMemory([this, &text] { showAddress(segments, addressOf(text)); },
                        [this] { showNothing(segments); });
}

void IPAddressEdit::setIPAddress(unsigned long address)
{
    const auto number = static_cast<unsigned int>(address & broadcast);
    support::withMemory([this, number] { showAddress(segments, number); },
                        [this] { showNothing(segments); });
}

void IPAddressEdit::setIPAddress(unsigned char* text)
{
    support::withMemory([this, text] { showAddress(segments, addressOf(textOf(text))); },
                        [this] { showNothing(segments); });
}

void IPAddressEdit::getIPAddress(unsigned long& address)
{
    address = support::withMemory([this] { return addressIn(segments); }, [] { return 0U; });
}

void IPAddressEdit::getIPAddress(QString& text)
{
    support::withMemory([this, &text] { text = support::ipv4ToText(addressIn(segments)); }, [] {});
}

void IPAddressEdit::getIPAddress(unsigned char* buffer)
{
    const auto write = [this, buffer] {
        const std::string text = support::latin1(support::ipv4ToText(addressIn(segments)));
        memcpy(buffer, text.c_str(), text.size() + 1);
    };
    support::withMemory(write, [buffer] { strcpy(reinterpret_cast<char*>(buffer), "0.0.0.0"); });
}

bool IPAddressEdit::isIPValid()
{
    unsigned long address = 0;
    getIPAddress(address);
    return address != 0 && address != broadcast;
}

bool IPAddressEdit::isEmpty()
{
    const auto look = [this] {
        for (int i = 0; i < segmentCount; ++i)
            if (!support::trimmed(segments[i]->text()).isEmpty())
                return false;
        return true;
    };
    return support::withMemory(look, [] { return false; });
}
