#include "ystatedialog.h"

#include <yglobal.h>
#include <ylabel.h>
#include <ysoftkey.h>

// Values that the toolkit gives a meaning to.
static const int popupType = 0;
static const int popupStyle = 464;
static const int labelClass = 86;

static const int cancelButton = 1;
static const int iconWidth = 64;

YStateDialog::YStateDialog(QWidget* parent) : YPopup(popupType, parent, 0, true, popupStyle, 0)
{
    setGeometry(YGlobal::getDlgSmallR());

    YLabel* icon = new YLabel(this, 0, 0, labelClass);
    icon->setGeometry(8, 11, 50, 50);

    stateLabel = new YLabel(this, 0, 0, labelClass);
    QRect content = YGlobal::getDlgSmallConR();
    content.setLeft(content.left() + iconWidth);
    stateLabel->setGeometry(YGlobal::mapFromGlobalR(this, content));

    softKey = getSoftKey();
    softKey->showButton(0, false);
    softKey->setText(cancelButton, tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"), 0);
}

YStateDialog::~YStateDialog() {}

void YStateDialog::setStateString(const QString& text)
{
    stateLabel->setText(text);
}
