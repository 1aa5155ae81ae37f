// The standard output of vornctl: collected, written at once, and never lost without a word.
#ifndef COMMON_OUTPUT_H
#define COMMON_OUTPUT_H

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace ctl {

// Keys keep the order in which they are documented.
using Json = nlohmann::ordered_json;

// Writes everything to the descriptor. Throws Failure: Exit::Pipe without a word when the reader
// went away, else Exit::Output with the reason.
void writeAll(int descriptor, const std::string& bytes, const std::string& what);

// Writes to the standard output; `what` of failures is "the output".
void print(const std::string& text);

// Tells a person something on the standard error output. Nothing depends on its being read.
void note(const std::string& text);

// A document as text with a newline at its end; `indent` is the number of blanks for each level, -1
// for one line. Nothing in it acts on a terminal.
std::string jsonText(const Json& document, int indent);

// Prints a document and a newline: indented for a document that is complete, in one line for one of
// many that follow each other.
void printJson(const Json& document);
void printJsonLine(const Json& document);

// How many columns the terminal has that the standard output is; 0 when it is none.
std::size_t outputWidth();

// A table for people: the first row is the heading. Cells are made printable and aligned by their
// width on a terminal; the last column is not padded.
class Table
{
public:
    explicit Table(std::vector<std::string> heading);
    void add(std::vector<std::string> cells);

    // With a width, the widest columns are cut until the rows are no wider, down to a few
    // characters each; an ellipsis stands where something is cut off.
    std::string text(std::size_t width = 0) const;

private:
    std::vector<std::size_t> widthsFor(std::size_t width) const;

    struct Cell
    {
        std::string text;
        std::size_t width;
    };
    std::vector<std::vector<Cell>> m_rows;
    std::vector<std::size_t> m_widths;
};

} // namespace ctl

#endif
