#include "messages/messages.h"

#include <ymessagedlg.h>
#include <ynoticedlg.h>

namespace phone {

void tell(const QString& title, const QString& message)
{
    YMessageDlg(title, message, YMessageDlg::Information, 0, nullptr, "told", true, 0).exec();
}

bool ask(const QString& title, const QString& question)
{
    YMessageDlg dialog(title, question, YMessageDlg::Question, 0, nullptr, "asked", true, 0);
    return dialog.exec() == YMessageDlg::Accepted;
}

void notice(const QString& message)
{
    YNoticeDlg(YNoticeDlg::Success, QString(), message, nullptr, "notice", true, 0).exec();
}

} // namespace phone
