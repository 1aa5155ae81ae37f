// What the tests of JSON documents share.
#ifndef TESTS_SETTINGS_JSON_TOLD_H
#define TESTS_SETTINGS_JSON_TOLD_H

#include <string>
#include <vector>

#include "base/json_document.h"

using Lines = std::vector<std::string>;

inline base::JsonDocument parsed(const std::string& text)
{
    return base::JsonDocument::parse(text, "a.json");
}

// What is wrong in a document, as a person is told it.
inline Lines told(const base::JsonDocument& document)
{
    Lines lines;
    for (const base::JsonProblem& problem : document.problems())
        lines.push_back(base::describe(document.path(), problem));
    return lines;
}

#endif
