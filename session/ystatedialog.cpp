#include "ystatedialog.h"

#include <yglobal.h>
#include <ylabel.h>
#include <ysoftkey.h>

#include "support/memory.h"
#include "support/toolkitnumbers.h"

namespace {

// How far the text begins to the right of where the popup's contents do, for the icon's sake.
const int textIndent = 64;

} // namespace

YStateDialog::YStateDialog(QWidget* parent)
    : YPopup(toolkit::UsualType, parent, 0, true, toolkit::ProgressStyle, 0)
{
    setGeometry(YGlobal::getDlgSmallR());

    YLabel* icon = new YLabel(this, 0, 0, toolkit::PlainLabel);
    icon->setGeometry(8, 11, 50, 50);

    stateLabel = new YLabel(this, 0, 0, toolkit::PlainLabel);
    QRect content = YGlobal::getDlgSmallConR();
    content.setLeft(content.left() + textIndent);
    stateLabel->setGeometry(YGlobal::mapFromGlobalR(this, content));

    softKey = getSoftKey();
    softKey->showButton(toolkit::LeftKey, false);
    softKey->setText(toolkit::RightKey, tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"), 0);
}

YStateDialog::~YStateDialog() {}

void YStateDialog::setStateString(const QString& text)
{
    support::withMemory([this, &text] { stateLabel->setText(text); }, [] {});
}
