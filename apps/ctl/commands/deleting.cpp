#include "commands/deleting.h"

#include <set>

#include "failure.h"

namespace ctl {

namespace {

void checkAll(const std::set<std::string>& names, const Deleting& how)
{
    try {
        for (const std::string& name : names)
            how.check(name);
    } catch (const Failure& failure) {
        throw Failure(failure.status(), failure.what(), "Nothing was deleted. " + failure.advice());
    }
}

} // namespace

int deleteEach(const Request& request, const Deleting& how)
{
    const std::set<std::string> names(request.names.begin(), request.names.end());
    if (names.size() > 1)
        checkAll(names, how);
    Json list = Json::array();
    for (const std::string& name : names) {
        how.remove(name);
        list.push_back(how.identity(name));
        list.back()["deleted"] = true;
    }
    if (request.json)
        printJson(list.size() == 1 ? list[0] : list);
    return 0;
}

} // namespace ctl
