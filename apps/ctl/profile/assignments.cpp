#include "profile/assignments.h"

#include <cstring>
#include <set>

#include "failure.h"
#include "profile/fields.h"
#include "profile/values.h"
#include "suggestion.h"
#include "terminal_text.h"

namespace ctl {

namespace {

std::vector<std::string> fieldNames()
{
    std::vector<std::string> names;
    for (const Field& field : fields())
        if (isVisible(field))
            names.emplace_back(field.name);
    return names;
}

bool asksForPassword(const Request& request)
{
    return request.askPassword || request.askCsdPassword || !request.passwordFile.empty() ||
           !request.csdPasswordFile.empty();
}

// Where a password is asked for, an unknown word may be one that was put there by mistake.
Failure unknownWord(const Request& request, const std::string& word, const std::string& problem,
                    const std::string& advice)
{
    const bool isShown = !asksForPassword(request);
    return Failure(Exit::Usage,
                   isShown ? problem + inQuotes(word) + '.'
                           : "a word behind the profile's name is not of the form FIELD=VALUE.",
                   isShown ? advice
                           : "A password never stands on the command line: --password asks for it, "
                             "and --password-file FILE reads it.");
}

const Field& settable(const Request& request, const std::string& name)
{
    const Field* field = findField(name.c_str());
    if (field && isVisible(*field))
        return *field;
    const std::string closest = suggestion(name, fieldNames());
    if (!closest.empty())
        throw Failure(Exit::Usage, "a profile has no field " + inQuotes(name) + '.', closest);
    throw unknownWord(request, name, "a profile has no field ", "");
}

[[noreturn]] void refusePassword(const Field& field)
{
    throw Failure(Exit::Usage,
                  std::string("a password does not belong on the command line, where others can "
                              "read it (field \"") +
                      field.name + "\").",
                  std::string("Use --") + field.name + " to be asked for it, or --" + field.name +
                      "-file FILE.");
}

// "password:SECRET" and "password SECRET" are meant as "password=SECRET" is.
[[noreturn]] void failWithoutValue(const Request& request, const std::string& word)
{
    for (const Field& field : fields())
        if (field.kind == Kind::Secret && word.compare(0, std::strlen(field.name), field.name) == 0)
            refusePassword(field);
    const std::string name = word.substr(0, word.find(':'));
    const Field* field = findField(name.c_str());
    if (field && isVisible(*field))
        throw Failure(Exit::Usage, inQuotes(name) + " is not of the form FIELD=VALUE.",
                      "Put \"=\" behind the field: " + name + "=VALUE");
    throw unknownWord(request, word, "there is no \"=\" in the word ",
                      "Fields are given as FIELD=VALUE, for example apn=internet timeout=15.");
}

void assignOne(const Request& request, const std::string& assignment, NetworkProfile& record)
{
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos)
        failWithoutValue(request, assignment);
    const Field& field = settable(request, assignment.substr(0, equals));
    const std::string value = assignment.substr(equals + 1);
    if (field.kind == Kind::Secret && !value.empty())
        refusePassword(field);
    if (const auto problem = parseValue(field, value, record))
        throw Failure(Exit::Usage, std::string(field.name) + ": " + *problem + ".");
}

} // namespace

void assign(const Request& request, NetworkProfile& record)
{
    std::set<std::string> assigned;
    for (const std::string& assignment : request.assignments) {
        assignOne(request, assignment, record);
        const std::string name = assignment.substr(0, assignment.find('='));
        if (!assigned.insert(name).second)
            throw Failure(Exit::Usage, "the field " + inQuotes(name) + " is given twice.");
    }
}

} // namespace ctl
