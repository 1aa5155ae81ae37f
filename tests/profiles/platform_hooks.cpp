#include "profiles/platform_hooks.h"

#include <QAbstractEventDispatcher>
#include <QApplication>

#include <ylistbox.h>
#include <ysingleselectdlg.h>

#include "common/interposed.h"
#include "profiles/recorder.h"
#include "profiles/select_dialog.h"

// The definitions below stand in the place of the platform's, and go on to them.

namespace hooks {

namespace {

bool listIsHidden = false;
int pretendedRow = -1;
bool recording = false;

} // namespace

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
        nextOf<YListBox* (*)(const YSingleSelectDlg*)>("_ZNK16YSingleSelectDlg10getListBoxEv");
    return hooks::listIsHidden ? nullptr : itself(this);
}

int YListBox::currentItem() const
{
    static const auto itself = nextOf<int (*)(const YListBox*)>("_ZNK8YListBox11currentItemEv");
    return hooks::pretendedRow == -1 ? itself(this) : hooks::pretendedRow;
}

#define DIALOG_CONSTRUCTOR _ZN16YSingleSelectDlgC2EP7QWidgetPKcbj
#define DIALOG_DESTRUCTOR _ZN16YSingleSelectDlgD2Ev

extern "C" {

__attribute__((visibility("default"))) void
DIALOG_CONSTRUCTOR(void* dialog, QWidget* parent, const char* name, bool modal, unsigned int flags)
{
    if (hooks::recording)
        recorder::note("dialog made");
    nextOf<decltype(&DIALOG_CONSTRUCTOR)>(SYMBOL_TEXT(DIALOG_CONSTRUCTOR))(dialog, parent, name,
                                                                           modal, flags);
}

__attribute__((visibility("default"))) void DIALOG_DESTRUCTOR(void* dialog)
{
    if (hooks::recording)
        recorder::note("dialog deleted");
    nextOf<decltype(&DIALOG_DESTRUCTOR)>(SYMBOL_TEXT(DIALOG_DESTRUCTOR))(dialog);
}

} // extern "C"

int YPopup::exec()
{
    static const auto itself = nextOf<int (*)(YPopup*)>("_ZN6YPopup4execEv");
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
    static const auto itself = nextOf<QAbstractEventDispatcher* (*)(QThread*)>(
        "_ZN24QAbstractEventDispatcher8instanceEP7QThread");
    if (hooks::recording)
        recorder::note("wake");
    return itself(thread);
}

void QCoreApplication::processEvents(QEventLoop::ProcessEventsFlags flags)
{
    static const auto itself = nextOf<void (*)(QEventLoop::ProcessEventsFlags)>(
        "_ZN16QCoreApplication13processEventsE6QFlagsIN10QEventLoop17ProcessEventsFlagEE");
    if (hooks::recording)
        recorder::note(selectdialog::shown() ? "process events, dialog there"
                                             : "process events, dialog gone");
    itself(flags);
}
