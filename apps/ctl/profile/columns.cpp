#include "profile/columns.h"

#include "failure.h"
#include "line/request.h"
#include "profile/record.h"
#include "profile/values.h"
#include "terminal_text.h"

namespace ctl {

namespace {

const char setSuffix[] = "-set";

} // namespace

std::vector<std::string> profileColumns()
{
    std::vector<std::string> columns = {"name"};
    for (const Field& field : fields()) {
        if (!isVisible(field))
            continue;
        if (field.kind == Kind::Secret)
            columns.push_back(std::string(field.name) + setSuffix);
        columns.emplace_back(field.name);
    }
    return columns;
}

Cell profileCell(const std::string& column, const std::string& name, const NetworkProfile& record,
                 bool secrets)
{
    if (column == "name")
        return {name, name, name};
    if (const Field* field = findField(column.c_str()))
        return {shownText(*field, record, secrets), valueText(*field, record),
                jsonValue(*field, record)};
    const std::string secret = column.substr(0, column.size() - (sizeof setSuffix - 1));
    const bool isSet = !valueText(*findField(secret.c_str()), record).empty();
    return {isSet ? "yes" : "no", isSet ? "yes" : "no", isSet};
}

void refuseHiddenPasswords(const Request& request, const std::vector<std::string>& columns)
{
    if (request.showSecrets || (!request.json && !request.terse))
        return;
    for (const std::string& column : columns)
        if (const Field* field = findField(column.c_str()); field && field->kind == Kind::Secret)
            throw Failure(Exit::Usage,
                          "--fields: " + inQuotes(column) + " is shown with --show-secrets only.",
                          inQuotes(column + setSuffix) + " tells whether there is one.");
}

} // namespace ctl
