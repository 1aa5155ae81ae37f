// What the commands that show things print: a table for people, values alone for scripts, or JSON;
// with --fields, of the fields that it names.
#ifndef CTL_LISTING_H
#define CTL_LISTING_H

#include <map>
#include <string>
#include <vector>

#include "output.h"

namespace ctl {

struct Request;

// One value: for people, for scripts, and for programs.
struct Cell
{
    std::string shown;
    std::string plain;
    Json json;
};

// The fields that --fields names, else `usual`. Throws Failure (Exit::Usage) for a name that is not
// among `all`.
std::vector<std::string> chosenFields(const Request& request, const std::vector<std::string>& all,
                                      const std::vector<std::string>& usual);

// Rows of chosen fields.
class Listing
{
public:
    Listing(const Request& request, std::vector<std::string> fields);

    const std::vector<std::string>& fields() const { return m_fields; }

    // One cell for each field, in their order.
    void add(const std::vector<Cell>& row);

    void add(const std::map<std::string, Cell>& cells); // of these, by field, the chosen ones

    // Prints the rows: an array, or a line for each. Where there are none, people are told
    // `ifEmpty`.
    void print(const char* ifEmpty) const;

private:
    const Request& m_request;
    std::vector<std::string> m_fields;
    Json m_json = Json::array();
    std::string m_terse;
    Table m_table;
    bool m_isEmpty = true;
};

// A row as scripts get it: the plain values with tabs between them, and a line end. No value holds
// either, as control characters are printed as escapes.
std::string terseLine(const std::vector<Cell>& row);

} // namespace ctl

#endif
