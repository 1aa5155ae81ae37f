// The rows of the wizard's first page.
#ifndef WIZARD_PAGE1ROWS_H
#define WIZARD_PAGE1ROWS_H

#include "wizard/rowtable.h"

namespace wizard {

// A row of page 1.
struct Page1Row
{
    Row row;
    bool onlyWithWifi;
};

// The first row is the profile's name.
enum { page1RowCount = 14 };
extern const Page1Row page1Rows[page1RowCount];

} // namespace wizard

#endif
