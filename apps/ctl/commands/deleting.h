// Removing several things with one command.
#ifndef CTL_DELETING_H
#define CTL_DELETING_H

#include <functional>
#include <string>

#include "line/request.h"
#include "output.h"

namespace ctl {

struct Deleting
{
    std::function<void(const std::string& name)> check;  // throws Failure when it is not there
    std::function<void(const std::string& name)> remove; // throws Failure
    std::function<Json(const std::string& name)> identity;
};

// Removes each of the request's names once, when check() has let all of them pass; with --json,
// prints what was removed: an object for one, an array for several.
int deleteEach(const Request& request, const Deleting& how);

} // namespace ctl

#endif
