// Texts for the segment of an address: what the validator says of each, and what comes of typing
// it.
#ifndef TESTS_WIDGETS_SEGMENT_ROWS_H
#define TESTS_WIDGETS_SEGMENT_ROWS_H

#include <ostream>
#include <vector>

#include <QString>

struct SegmentRow
{
    const char* name;
    QString text;
    int state;         // for the range from 0 to 255: 0 invalid, 1 intermediate, 2 acceptable
    const char* typed; // the four segments, joined by dots, once it has been typed into the first
};

std::vector<SegmentRow> segmentRows();

void PrintTo(const SegmentRow& row, std::ostream* out);

#endif
