#include "output.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <sys/ioctl.h>
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

std::size_t outputWidth()
{
    winsize size = {};
    return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

namespace {

// Blanks between two columns.
constexpr std::size_t gap = 2;

} // namespace

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

// The widths of the columns in rows that are not wider than `width`, if that can be.
std::vector<std::size_t> Table::widthsFor(std::size_t width) const
{
    constexpr std::size_t leastWidth = 8;
    std::vector<std::size_t> widths = m_widths;
    std::size_t whole = gap * (widths.size() - 1);
    for (const std::size_t each : widths)
        whole += each;
    while (width > 0 && whole > width) {
        auto widest = std::max_element(widths.begin(), widths.end());
        if (*widest <= leastWidth)
            break;
        --*widest;
        --whole;
    }
    return widths;
}

std::string Table::text(std::size_t width) const
{
    const std::vector<std::size_t> widths = widthsFor(width);
    std::string text;
    for (const std::vector<Cell>& row : m_rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            const bool fits = row[i].width <= widths[i];
            const std::string cell = fits ? row[i].text : shortened(row[i].text, widths[i]);
            text += cell;
            if (i + 1 < row.size())
                text.append(widths[i] + gap - (fits ? row[i].width : displayWidth(cell)), ' ');
        }
        text += '\n';
    }
    return text;
}

} // namespace ctl
