#include "profiles/readdmint.h"

#include <dmt.h>

#include "support/log.h"

using support::logPrint;

namespace {

// Whoever looks at a status in a debugger is sent to its code; the user sees neither.
bool hasFailed(DmtStatus status)
{
    status.SetMessage("Refer error code for more information.");
    return status.GetCode() != DMT_OK;
}

int readValue(const DmtNodeHandle& node, int& value)
{
    DmtData data;
    if (hasFailed(node->GetValue(data))) {
        logPrint(support::LogError, "Getting DM Tree Node Value failed");
        return 0;
    }
    if (data.GetType() != DMT_TYPE_INTEGER) {
        logPrint(support::LogError, "Data Type is not correct");
        return 0;
    }
    int integer = 0;
    if (hasFailed(data.GetInt(integer))) {
        logPrint(support::LogError, "Get INT valu failed");
        return 0;
    }
    value = integer;
    return 1;
}

int readNode(DmtTreeHandle& tree, DmtNodeHandle& node, const char* nodeName, int& value)
{
    DmtPrincipal principal;
    principal.SetName("localhost");
    if (hasFailed(DmtTreeFactory::GetTree(principal, tree))) {
        logPrint(support::LogError, "Getting DM Tree Failed");
        return 0;
    }
    if (hasFailed(tree->GetNode(nodeName, node))) {
        logPrint(support::LogError, "Getting DM Tree Node Failed");
        return 0;
    }
    return readValue(node, value);
}

} // namespace

int readDmInt(const char* nodeName, int& value)
{
    if (!nodeName) {
        logPrint(support::LogError, "Node Name is NULL");
        return 0;
    }
    if (hasFailed(DmtTreeFactory::Initialize())) {
        logPrint(support::LogError, "DM Tree initialization failed");
        return 0;
    }
    DmtTreeHandle tree;
    DmtNodeHandle node;
    const int result = readNode(tree, node, nodeName, value);
    node.Release();
    tree.Release();
    DmtTreeFactory::Uninitialize();
    return result;
}
