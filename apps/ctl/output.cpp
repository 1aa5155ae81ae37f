#include "output.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <unistd.h>

#include "failure.h"
#include "terminal_text.h"

namespace ctl {

void writeAll(int descriptor, const std::string& bytes, const std::string& what)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::write(descriptor, bytes.data() + done, bytes.size() - done);
        if (count >= 0)
            done += static_cast<std::size_t>(count);
        else if (errno == EPIPE)
            throw Failure(Exit::Pipe, "");
        else if (errno != EINTR)
            throw Failure(Exit::Output, "cannot write " + what + ": " + std::strerror(errno) + ".");
    }
}

void print(const std::string& text)
{
    writeAll(STDOUT_FILENO, text, "the output");
}

void note(const std::string& text)
{
    try {
        writeAll(STDERR_FILENO, "vornctl: " + text + '\n', "a message");
    } catch (const Failure&) {
        return; // there is nowhere left to say it
    }
}

std::string jsonText(const Json& document, int indent)
{
    return printableJson(document.dump(indent, ' ', false, Json::error_handler_t::replace)) + '\n';
}

void printJson(const Json& document)
{
    print(jsonText(document, 2));
}

void printJsonLine(const Json& document)
{
    print(jsonText(document, -1));
}

Table::Table(std::vector<std::string> heading) : m_widths(heading.size())
{
    add(std::move(heading));
}

void Table::add(std::vector<std::string> cells)
{
    std::vector<Cell> row;
    row.reserve(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i) {
        std::string text = printable(cells[i]);
        const std::size_t width = displayWidth(text);
        m_widths[i] = std::max(m_widths[i], width);
        row.push_back({std::move(text), width});
    }
    m_rows.push_back(std::move(row));
}

std::string Table::text() const
{
    std::string text;
    for (const std::vector<Cell>& row : m_rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            text += row[i].text;
            if (i + 1 < row.size())
                text.append(m_widths[i] - row[i].width + 2, ' ');
        }
        text += '\n';
    }
    return text;
}

} // namespace ctl
