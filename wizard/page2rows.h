// The rows of the wizard's second page.
#ifndef WIZARD_PAGE2ROWS_H
#define WIZARD_PAGE2ROWS_H

#include "wizard/rowtable.h"

namespace wizard {

enum { page2RowCount = 11 };
extern const Row page2Rows[page2RowCount];

} // namespace wizard

#endif
