// Whole records in their JSON form.
#ifndef COMMON_RECORD_H
#define COMMON_RECORD_H

#include <string>
#include <vector>

#include "base/json_document.h"
#include "napi.h"
#include "output.h"
#include "profile/fields.h"

namespace ctl {

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

// Whether one of its passwords is set.
bool holdsPassword(const NetworkProfile& record);

} // namespace ctl

#endif
