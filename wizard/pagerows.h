// The rows of the wizard's two pages, each from the top.
#ifndef WIZARD_PAGEROWS_H
#define WIZARD_PAGEROWS_H

#include "wizard/rowtable.h"

namespace wizard {

// A row of page 1.
struct Page1Row
{
    Row row;
    bool onlyWithWifi;
};

// The first row of page 1 is the profile's name.
enum { page1RowCount = 14, page2RowCount = 11 };
extern const Page1Row page1Rows[page1RowCount];
extern const Row page2Rows[page2RowCount];

} // namespace wizard

#endif
