#include "listing.h"

#include <algorithm>

#include "failure.h"
#include "line/request.h"
#include "suggestion.h"
#include "terminal_text.h"

namespace ctl {

namespace {

std::vector<std::string> splitAtCommas(const std::string& text)
{
    std::vector<std::string> parts;
    std::size_t begin = 0;
    for (std::size_t comma = 0; comma != std::string::npos; begin = comma + 1) {
        comma = text.find(',', begin);
        parts.push_back(text.substr(begin, comma - begin));
    }
    return parts;
}

std::string joined(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

// "csd-number" is headed CSD NUMBER.
std::string headingOf(std::string field)
{
    for (char& c : field)
        c = c == '-' ? ' ' : static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    return field;
}

std::vector<std::string> headingsOf(const std::vector<std::string>& fields)
{
    std::vector<std::string> headings;
    for (const std::string& field : fields)
        headings.push_back(headingOf(field));
    return headings;
}

} // namespace

std::vector<std::string> chosenFields(const Request& request, const std::vector<std::string>& all,
                                      const std::vector<std::string>& usual)
{
    if (request.fields.empty())
        return usual;
    const std::vector<std::string> named = splitAtCommas(request.fields);
    for (const std::string& name : named) {
        if (std::count(all.begin(), all.end(), name) > 0)
            continue;
        const std::string closest = suggestion(name, all);
        throw Failure(Exit::Usage, "--fields: there is no field " + inQuotes(name) + '.',
                      closest.empty() ? "There are " + joined(all) + '.' : closest);
    }
    return named;
}

Listing::Listing(const Request& request, std::vector<std::string> fields)
    : m_request(request), m_fields(std::move(fields)), m_table(headingsOf(m_fields))
{}

void Listing::add(const std::vector<Cell>& row)
{
    m_isEmpty = false;
    if (m_request.json) {
        Json object = Json::object();
        for (std::size_t i = 0; i < row.size(); ++i)
            object[m_fields[i]] = row[i].json;
        m_json.push_back(std::move(object));
    } else if (m_request.terse) {
        m_terse += terseLine(row);
    } else {
        std::vector<std::string> cells;
        for (const Cell& cell : row)
            cells.push_back(cell.shown);
        m_table.add(std::move(cells));
    }
}

void Listing::add(const std::map<std::string, Cell>& cells)
{
    std::vector<Cell> row;
    for (const std::string& field : m_fields)
        row.push_back(cells.at(field));
    add(row);
}

void Listing::print(const char* ifEmpty) const
{
    if (m_request.json)
        return printJson(m_json);
    ctl::print(m_request.terse ? m_terse : m_table.text(outputWidth()));
    if (m_isEmpty && !m_request.terse && *ifEmpty)
        note(ifEmpty);
}

std::string terseLine(const std::vector<Cell>& row)
{
    std::string line;
    for (const Cell& cell : row)
        line += (&cell == row.data() ? "" : "\t") + printable(cell.plain);
    return line + '\n';
}

} // namespace ctl
