// The input field for an IPv4 address.
#ifndef IPADDRESSEDIT_H
#define IPADDRESSEDIT_H

#include <qstring.h>

#include <ysegmentfield.h>

#include "vornqtnapi_export.h"

class YLineEdit;

// Four small fields separated by dots, each for a number from 0 to 255. The whole may be empty,
// which stands for "no address":
//
//     IPAddressEdit* server = new IPAddressEdit(form);
//     QString address("192.168.0.1");
//     server->setIPAddress(address);
//     ...
//     unsigned long number = 0;
//     if (server->isIPValid())
//         server->getIPAddress(number); // 0xC0A80001
//
// An address as a number has the first dotted part in the most significant of its 32 bits. An
// address as a text is four decimal numbers separated by dots; leading zeros do not make a part
// octal, and blanks around the text do not count. Whatever way an address goes in, the parts are
// shown without leading zeros. GUI thread only.
class VORNQTNAPI_EXPORT IPAddressEdit : public YSegmentField
{
    Q_OBJECT

public:
    // The fields are empty, and the widget has its preferred size. Throws std::bad_alloc where
    // memory runs out, and nothing is left of the widget then.
    IPAddressEdit(QWidget* parent = 0);
    ~IPAddressEdit();

    // Shows an address. 0.0.0.0, and a text that is no address, leave all four fields empty. `text`
    // is not changed. In the last form `text` is a NUL-terminated dotted address, not four bytes;
    // null counts as a text that is no address. Of a number only the lower 32 bits count. Where
    // memory runs out the fields are left empty; no exception comes.
    void setIPAddress(QString& text);
    void setIPAddress(unsigned long address);
    void setIPAddress(unsigned char* text);

    // Gives the address that stands in the fields; when they hold none, because one of them is
    // empty for instance, the address is 0 and its text "0.0.0.0". The text has no leading zeros.
    // `buffer` has room for 16 bytes, which the longest address needs with its NUL; null is not
    // allowed. Where memory runs out the address is 0, too, and a QString keeps its value; no
    // exception comes.
    void getIPAddress(unsigned long& address);
    void getIPAddress(QString& text);
    void getIPAddress(unsigned char* buffer);

    // Whether the fields hold an address other than 0.0.0.0 and 255.255.255.255.
    bool isIPValid();

    // Whether nothing but blanks stands in the fields; false where memory runs out.
    bool isEmpty();

private:
    YLineEdit* segments[4];
};

#endif
