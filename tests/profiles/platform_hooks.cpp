#include "profiles/platform_hooks.h"

#include <dlfcn.h>

#include <QAbstractEventDispatcher>
#include <QApplication>

#include <ylistbox.h>
#include <ysingleselectdlg.h>

#include "profiles/recorder.h"
#include "profiles/select_dialog.h"

// The definitions below stand in the place of the platform's; these find the platform's own.
template <typename Function> static Function original(const char* name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

namespace hooks {

static bool listIsHidden = false;
static int pretendedRow = -1;
static bool recording = false;

void hideListBox(bool hide)
{
    listIsHidden = hide;
}

void pretendCurrentItem(int row)
{
    pretendedRow = row;
}

void recordLoop(bool record)
{
    recording = record;
}

} // namespace hooks

YListBox* YSingleSelectDlg::getListBox() const
{
    static const auto itself =
        original<YListBox* (*)(const YSingleSelectDlg*)>("_ZNK16YSingleSelectDlg10getListBoxEv");
    return hooks::listIsHidden ? nullptr : itself(this);
}

int YListBox::currentItem() const
{
    static const auto itself = original<int (*)(const YListBox*)>("_ZNK8YListBox11currentItemEv");
    return hooks::pretendedRow == -1 ? itself(this) : hooks::pretendedRow;
}

int YPopup::exec()
{
    static const auto itself = original<int (*)(YPopup*)>("_ZN6YPopup4execEv");
    const bool recorded = hooks::recording;
    if (recorded)
        recorder::note("exec");
    hooks::recording = false;
    const int result = itself(this);
    hooks::recording = recorded;
    if (recorded)
        recorder::note("exec ends");
    return result;
}

QAbstractEventDispatcher* QAbstractEventDispatcher::instance(QThread* thread)
{
    static const auto itself = original<QAbstractEventDispatcher* (*)(QThread*)>(
        "_ZN24QAbstractEventDispatcher8instanceEP7QThread");
    if (hooks::recording)
        recorder::note("wake");
    return itself(thread);
}

void QCoreApplication::processEvents(QEventLoop::ProcessEventsFlags flags)
{
    static const auto itself = original<void (*)(QEventLoop::ProcessEventsFlags)>(
        "_ZN16QCoreApplication13processEventsE6QFlagsIN10QEventLoop17ProcessEventsFlagEE");
    if (hooks::recording)
        recorder::note(selectdialog::shown() ? "process events, dialog there"
                                             : "process events, dialog gone");
    itself(flags);
}
