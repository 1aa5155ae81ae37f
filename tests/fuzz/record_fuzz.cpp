// Any 1168 bytes are a record: it is shown, and it is the same after export and import.
#include <algorithm>
#include <cstring>

#include "fuzz/target.h"
#include "profile/record.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    NetworkProfile record = {};
    std::memcpy(&record, data, std::min(size, sizeof record));
    ctl::describe("Any", record, true);
    ctl::describe("Any", record, false);

    const std::string text = ctl::exported("Any", record, true).dump();
    base::JsonDocument document = base::JsonDocument::parse(text, "exported");
    std::vector<base::JsonProblem> problems;
    const NetworkProfile again = ctl::imported(document.root().at("fields"), &problems);
    fuzz::require(document.problems().empty() && problems.empty(), "an export can be imported");
    fuzz::require(std::memcmp(&record, &again, sizeof record) == 0, "import gives what was there");
    return 0;
}
