// The screen's rectangles, the features and the settings: noted among the calls to the toolkit.
#include <dmt.h>
#include <setuputility.h>
#include <yglobal.h>

#include "common/interposed.h"
#include "wizard/world/toolkit_calls.h"
#include "wizard/world/toolkit_words.h"

using interposed::Call;
using toolkitcalls::said;

namespace {

// The toolkit's own questions are asked inside other calls.
QRect toldOr(const QRect& told, const QRect& real)
{
    return interposed::depth > 1 || told.isEmpty() ? real : told;
}

} // namespace

QRect YGlobal::getHomeR(bool withStatusArea)
{
    const Call call("home " + said(withStatusArea));
    return toldOr(toolkitcalls::home,
                  nextOf<QRect (*)(bool)>("_ZN7YGlobal8getHomeREb")(withStatusArea));
}

QRect YGlobal::getCstR()
{
    const Call call("bar");
    return toldOr(toolkitcalls::softKeyBar, nextOf<QRect (*)()>("_ZN7YGlobal7getCstREv")());
}

int SETUP_Utility::isFeatureAvailable(int feature) const
{
    const Call call("feature " + said(feature));
    return nextOf<int (*)(const SETUP_Utility*, int)>("_ZNK13SETUP_Utility18isFeatureAvailableEi")(
        this, feature);
}

extern "C" __attribute__((visibility("default"))) void _ZN13SETUP_UtilityD1Ev(void* utility)
{
    const Call call("features gone");
    nextOf<void (*)(void*)>("_ZN13SETUP_UtilityD1Ev")(utility);
}

DmtStatus DmtTree::GetNode(const char* name, DmtNodeHandle& node) const
{
    const Call call("setting " + said(name));
    return nextOf<DmtStatus (*)(const DmtTree*, const char*, DmtNodeHandle&)>(
        "_ZNK7DmtTree7GetNodeEPKcR13DmtNodeHandle")(this, name, node);
}
