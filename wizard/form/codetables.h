// What the items of the form's choices stand for in a record.
#ifndef WIZARD_CODETABLES_H
#define WIZARD_CODETABLES_H

#include <stdint.h>

namespace wizard {

// Bearer speed, a code of +CBST (3GPP TS 27.007, clause 6.7). Line types: 0 modem, 1 ISDN. Speeds:
// 0 automatic, 1 14400, 2 9600, 3 4800, 4 2400 bit/s.
struct SpeedChoice
{
    int lineType;
    int speed;
};

// The first choice of a code, all speeds of a modem before those of ISDN; whether there is one.
// `*choice` changes only then.
bool speedChoiceOf(uint8_t code, SpeedChoice* choice);

// Whether the choice has a code, and only then changes `*code`.
bool speedCodeOf(const SpeedChoice& choice, uint8_t* code);

// Idle time-outs in minutes; item 0 is "off", as is every number of minutes that has no item.
struct TimeoutTable
{
    enum { itemCount = 6 };
    uint16_t minutes[itemCount];

    int itemOf(uint16_t value) const;
    // Whether there is such an item, and only then changes `*value`.
    bool minutesOf(int item, uint16_t* value) const;
};

extern const TimeoutTable gprsTimeouts;
extern const TimeoutTable csdTimeouts;

enum PreferenceItem { WifiThenCellular = 0, WifiOnly = 1, CellularOnly = 2 };

// The item for the connection preference in a record's flags, and `otherwise` where these have none
// of the three codes.
int preferenceItemOf(uint32_t flags, int otherwise);

// The flags with their connection preference replaced by that of the item; unchanged when there is
// no such item.
uint32_t withPreference(uint32_t flags, int item);

} // namespace wizard

#endif
