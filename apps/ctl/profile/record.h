// Whole records: assignments from the command line, and the JSON form.
#ifndef CTL_RECORD_H
#define CTL_RECORD_H

#include <string>
#include <vector>

#include "base/json_document.h"
#include "line/request.h"
#include "napi.h"
#include "output.h"
#include "profile/fields.h"

namespace ctl {

// Applies the request's FIELD=VALUE assignments. Throws Failure (Exit::Usage) on an unknown field,
// one that is given twice, a value that does not fit, or a password that is not empty; the record
// may then be half changed. A word that may be a password given by mistake is not repeated.
void assign(const Request& request, NetworkProfile& record);

// The visible fields with the profile's name, for "list" and "show": texts as they read, passwords
// only with `secrets`, and always whether they are set.
Json describe(const std::string& name, const NetworkProfile& record, bool secrets);

// The value of one field as it stands in the JSON.
Json jsonValue(const Field& field, const NetworkProfile& record);

// The profile as "export" writes it: every bit of the record, but without `secrets` no password.
Json exported(const std::string& name, const NetworkProfile& record, bool secrets);

// The record of an exported profile, whose fields are the object `values`. What is wrong in them is
// added to `problems`; of a password without its text.
NetworkProfile imported(const base::JsonValue& values, std::vector<base::JsonProblem>* problems);

} // namespace ctl

#endif
