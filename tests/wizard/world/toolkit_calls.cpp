// The functions below stand before the toolkit's and Qt's own, note what they are given, and go on
// to them.
#include "wizard/world/toolkit_calls.h"

#include <QValidator>

#include <yappinfoarea.h>
#include <yapplication.h>
#include <ycombobox.h>
#include <yformcontainer.h>
#include <yinputfield.h>
#include <ykbmainwidget.h>
#include <ylabel.h>
#include <ylineedit.h>
#include <ymessagedlg.h>
#include <ynoticedlg.h>
#include <yoptionsmenu.h>
#include <ypressbutton.h>
#include <yseparator.h>
#include <ysoftkey.h>

#include "common/interposed.h"
#include "ipaddressedit_validator.h"
#include "wizard/world/toolkit_words.h"

using interposed::Call;
using toolkitcalls::goOn;
using toolkitcalls::nameOf;
using toolkitcalls::placeOf;
using toolkitcalls::said;

#define PAGE_CONSTRUCTOR _ZN13YKbMainWidgetC2EP7QWidgetPKcj
#define FORM_CONSTRUCTOR _ZN14YFormContainerC1EP7QWidgetPKci
#define AREA_CONSTRUCTOR _ZN12YAppInfoAreaC1EP7QWidgetPKcS3_i
#define EDIT_CONSTRUCTOR _ZN9YLineEditC2EP7QWidgetPKci
#define GUARDED_COMBO_CONSTRUCTOR _ZN9YComboBoxC2EP7QWidgetPKcb
#define COMBO_CONSTRUCTOR _ZN9YComboBoxC1EP7QWidgetPKcb
#define BUTTON_CONSTRUCTOR _ZN12YPressButtonC2EP7QWidgetPKci
#define SEPARATOR_CONSTRUCTOR _ZN10YSeparatorC1EP7QWidgetPKcji
#define LABEL_CONSTRUCTOR _ZN6YLabelC1EP7QWidgetPKcji
#define MENU_CONSTRUCTOR _ZN12YOptionsMenuC1ERK5QRectP7QWidgetPKcji
#define KEYS_CONSTRUCTOR _ZN8YSoftKeyC1EPKcP7QWidgetS3_
#define MESSAGE_CONSTRUCTOR _ZN11YMessageDlgC1ERK7QStringS2_iiP7QWidgetPKcbj
#define NOTICE_CONSTRUCTOR _ZN10YNoticeDlgC1EiRK7QStringS2_P7QWidgetPKcbj

#define NEXT(symbol) nextOf<decltype(&symbol)>(SYMBOL_TEXT(symbol))
#define EXPORTED __attribute__((visibility("default")))

extern "C" {

EXPORTED void PAGE_CONSTRUCTOR(void* page, QWidget* parent, const char* name, unsigned flags)
{
    const Call call("page " + said(static_cast<const void*>(parent), name, int(flags)));
    NEXT(PAGE_CONSTRUCTOR)(page, parent, name, flags);
}

EXPORTED void FORM_CONSTRUCTOR(void* form, QWidget* parent, const char* name, int widgetClass)
{
    const Call call("form of " + nameOf(parent) + ' ' + said(name, widgetClass));
    NEXT(FORM_CONSTRUCTOR)(form, parent, name, widgetClass);
}

EXPORTED void AREA_CONSTRUCTOR(void* area, QWidget* parent, const char* kind, const char* name,
                               int widgetClass)
{
    const Call call("area of " + nameOf(parent) + ' ' + said(kind, name, widgetClass));
    NEXT(AREA_CONSTRUCTOR)(area, parent, kind, name, widgetClass);
}

EXPORTED void EDIT_CONSTRUCTOR(void* edit, QWidget* parent, const char* name, int widgetClass)
{
    const Call call("edit of " + placeOf(parent) + ' ' + said(name, widgetClass));
    NEXT(EDIT_CONSTRUCTOR)(edit, parent, name, widgetClass);
}

EXPORTED void GUARDED_COMBO_CONSTRUCTOR(void* combo, QWidget* parent, const char* name, bool titled)
{
    const Call call("guarded combo of " + placeOf(parent) + ' ' + said(name, titled));
    NEXT(GUARDED_COMBO_CONSTRUCTOR)(combo, parent, name, titled);
}

EXPORTED void COMBO_CONSTRUCTOR(void* combo, QWidget* parent, const char* name, bool titled)
{
    const Call call("combo of " + placeOf(parent) + ' ' + said(name, titled));
    NEXT(COMBO_CONSTRUCTOR)(combo, parent, name, titled);
}

EXPORTED void BUTTON_CONSTRUCTOR(void* button, QWidget* parent, const char* name, int widgetClass)
{
    const Call call("button of " + placeOf(parent) + ' ' + said(name, widgetClass));
    NEXT(BUTTON_CONSTRUCTOR)(button, parent, name, widgetClass);
}

EXPORTED void SEPARATOR_CONSTRUCTOR(void* separator, QWidget* parent, const char* name,
                                    unsigned flags, int widgetClass)
{
    const Call call("separator of " + placeOf(parent) + ' ' + said(name, int(flags), widgetClass));
    NEXT(SEPARATOR_CONSTRUCTOR)(separator, parent, name, flags, widgetClass);
}

EXPORTED void LABEL_CONSTRUCTOR(void* label, QWidget* parent, const char* name, unsigned flags,
                                int widgetClass)
{
    const Call call("label of " + nameOf(parent) + ' ' + said(name, int(flags), widgetClass));
    NEXT(LABEL_CONSTRUCTOR)(label, parent, name, flags, widgetClass);
}

EXPORTED void MENU_CONSTRUCTOR(void* menu, const QRect& rect, QWidget* parent, const char* name,
                               unsigned flags, int widgetClass)
{
    const Call call(
        "menu of " + nameOf(parent) + ' ' +
        said(rect.left(), rect.top(), rect.width(), rect.height(), name, int(flags), widgetClass));
    NEXT(MENU_CONSTRUCTOR)(menu, rect, parent, name, flags, widgetClass);
}

EXPORTED void KEYS_CONSTRUCTOR(void* keys, const char* kind, QWidget* page, QWidget* parent)
{
    const Call call("keys " + said(kind) + ' ' + nameOf(page) + ' ' + nameOf(parent));
    NEXT(KEYS_CONSTRUCTOR)(keys, kind, page, parent);
}

EXPORTED void MESSAGE_CONSTRUCTOR(void* dialog, const QString& title, const QString& text, int type,
                                  int last, QWidget* parent, const char* name, bool modal,
                                  unsigned flags)
{
    const Call call("message " + said(title, text, type, last, static_cast<const void*>(parent),
                                      name, modal, int(flags)));
    NEXT(MESSAGE_CONSTRUCTOR)(dialog, title, text, type, last, parent, name, modal, flags);
}

EXPORTED void NOTICE_CONSTRUCTOR(void* dialog, int type, const QString& title, const QString& text,
                                 QWidget* parent, const char* name, bool modal, unsigned flags)
{
    const Call call("notice " + said(type, title, text, static_cast<const void*>(parent), name,
                                     modal, int(flags)));
    NEXT(NOTICE_CONSTRUCTOR)(dialog, type, title, text, parent, name, modal, flags);
}

} // extern "C"

void YKbMainWidget::setMorphMode(int mode)
{
    const Call call("morph mode " + said(mode));
    goOn("_ZN13YKbMainWidget12setMorphModeEi", this, mode);
}

void YKbMainWidget::setMainWidgetTitle(const QString& title)
{
    const Call call("title " + said(title));
    goOn("_ZN13YKbMainWidget18setMainWidgetTitleERK7QString", this, title);
}

void YKbMainWidget::setContentWidget(QWidget* widget)
{
    const Call call("content " + nameOf(widget));
    goOn("_ZN13YKbMainWidget16setContentWidgetEP7QWidget", this, widget);
}

void YKbMainWidget::setTitleBarWidget(QWidget* widget)
{
    const Call call("title bar " + nameOf(widget));
    goOn("_ZN13YKbMainWidget17setTitleBarWidgetEP7QWidget", this, widget);
}

void YKbMainWidget::setSoftKey(YSoftKey* keys)
{
    const Call call("soft keys " + said(static_cast<const void*>(keys)));
    goOn("_ZN13YKbMainWidget10setSoftKeyEP8YSoftKey", this, keys);
}

void YKbMainWidget::show()
{
    const Call call("show " + nameOf(this));
    goOn("_ZN13YKbMainWidget4showEv", this);
}

void YKbMainWidget::hide()
{
    const Call call("hide " + nameOf(this));
    goOn("_ZN13YKbMainWidget4hideEv", this);
}

void YAppInfoArea::appendText(int area, const QString& text, const QString& second)
{
    const Call call("append " + said(area, text, second));
    goOn("_ZN12YAppInfoArea10appendTextEiRK7QStringS2_", this, area, text, second);
}

void YFormContainer::addChild(QWidget* row, bool first, QWidget* second)
{
    const Call call("add " + said(first, static_cast<const void*>(second)));
    goOn("_ZN14YFormContainer8addChildEP7QWidgetbS1_", this, row, first, second);
}

QWidget* YFormContainer::getNextChild(QWidget* row) const
{
    const Call call("next of " + nameOf(row));
    return nextOf<QWidget* (*)(const YFormContainer*, QWidget*)>(
        "_ZNK14YFormContainer12getNextChildEP7QWidget")(this, row);
}

void YLineEdit::setLabel(const QString& label)
{
    const Call call("label " + said(label));
    goOn("_ZN9YLineEdit8setLabelERK7QString", this, label);
}

void YLineEdit::setMaxLength(int length)
{
    const Call call("length " + said(length));
    goOn("_ZN9YLineEdit12setMaxLengthEi", this, length);
}

void YLineEdit::setValidator(const QValidator* validator)
{
    auto* range = dynamic_cast<const IPAddressEdit_Validator*>(validator);
    const Call call("validator " + (range ? said(range->bottom(), range->top()) +
                                                (range->parent() == this ? "" : " of another")
                                          : "of another kind"));
    goOn("_ZN9YLineEdit12setValidatorEPK10QValidator", this, validator);
}

void YLineEdit::setEchoMode(QLineEdit::EchoMode mode)
{
    const Call call("echo " + said(int(mode)));
    goOn("_ZN9YLineEdit11setEchoModeEN9QLineEdit8EchoModeE", this, mode);
}

void YLineEdit::setText(const QString& text)
{
    const Call call("text " + nameOf(this) + ' ' + said(text));
    goOn("_ZN9YLineEdit7setTextERK7QString", this, text);
}

void YLineEdit::setEnabled(bool enabled)
{
    const Call call("enable " + nameOf(this) + ' ' + said(enabled));
    goOn("_ZN9YLineEdit10setEnabledEb", this, enabled);
}

void YLineEdit::setReadOnly(bool readOnly)
{
    const Call call("read only " + nameOf(this) + ' ' + said(readOnly));
    goOn("_ZN9YLineEdit11setReadOnlyEb", this, readOnly);
}

void YInputField::setInputMode(int mode)
{
    const Call call("input mode " + said(mode));
    goOn("_ZN11YInputField12setInputModeEi", this, mode);
}

void YApplication::setInputMethod(QWidget* widget, const QString& method, int mode,
                                  const QString& extra)
{
    const Call call("input method of " + nameOf(widget) + ' ' + said(method, mode) +
                    (extra.isEmpty() ? "" : " and more"));
    goOn("_ZN12YApplication14setInputMethodEP7QWidgetRK7QStringiS4_", widget, method, mode, extra);
}

void YComboBox::setTitle(const QString& title)
{
    const Call call("title " + said(title));
    goOn("_ZN9YComboBox8setTitleERK7QString", this, title);
}

void YComboBox::setDlgTitle(const QString& title, int type)
{
    const Call call("dialog " + said(title, type));
    goOn("_ZN9YComboBox11setDlgTitleERK7QStringi", this, title, type);
}

void YComboBox::insertItem(const QString& text, int index)
{
    const Call call("item " + said(text) + (index == -1 ? "" : ' ' + said(index)));
    goOn("_ZN9YComboBox10insertItemERK7QStringi", this, text, index);
}

void YComboBox::setCurrentItem(int index)
{
    const Call call("current " + nameOf(this) + ' ' + said(index));
    goOn("_ZN9YComboBox14setCurrentItemEi", this, index);
}

void YComboBox::setAutoResize(bool enable)
{
    const Call call("auto-resize " + said(enable));
    goOn("_ZN9YComboBox13setAutoResizeEb", this, enable);
}

void YButton::setText(const QString& text)
{
    const Call call("text " + said(text));
    goOn("_ZN7YButton7setTextERK7QString", this, text);
}

void YButton::setEnabled(bool enabled)
{
    const Call call("enable " + nameOf(this) + ' ' + said(enabled));
    goOn("_ZN7YButton10setEnabledEb", this, enabled);
}

void YLabel::setText(const QString& text)
{
    const Call call("text " + said(text));
    goOn("_ZN6YLabel7setTextERK7QString", this, text);
}

void YSeparator::setAutoResize(bool enable)
{
    const Call call("auto-resize " + said(enable));
    goOn("_ZN10YSeparator13setAutoResizeEb", this, enable);
}

void YSeparator::setLabel(YLabel* label)
{
    const Call call("caption " + said(static_cast<const void*>(label)));
    goOn("_ZN10YSeparator8setLabelEP6YLabel", this, label);
}

void YSeparator::setEnabled(bool enabled)
{
    const Call call("enable " + nameOf(this) + ' ' + said(enabled));
    goOn("_ZN10YSeparator10setEnabledEb", this, enabled);
}

int YOptionsMenu::insertItem(const QString& text, const QPixmap* picture, QObject* receiver,
                             const char* member, bool enabled, bool checkable, bool checked, int id,
                             int index, bool last)
{
    const Call call("item " + said(text, static_cast<const void*>(picture),
                                   nameOf(receiver).c_str(), member, enabled, checkable, checked,
                                   id, index, last));
    return nextOf<int (*)(YOptionsMenu*, const QString&, const QPixmap*, QObject*, const char*,
                          bool, bool, bool, int, int, bool)>(
        "_ZN12YOptionsMenu10insertItemERK7QStringPK7QPixmapP7QObjectPKcbbbiib")(
        this, text, picture, receiver, member, enabled, checkable, checked, id, index, last);
}

void YSoftKey::setText(int key, const QString& text, int priority)
{
    const Call call("key " + said(key, text, priority));
    goOn("_ZN8YSoftKey7setTextEiRK7QStringi", this, key, text, priority);
}

void YSoftKey::setOptionsMenu(int key, YOptionsMenu* menu)
{
    const Call call("opens " + said(key, static_cast<const void*>(menu)));
    goOn("_ZN8YSoftKey14setOptionsMenuEiP12YOptionsMenu", this, key, menu);
}

void YSoftKey::setClickedSlot(int key, QObject* receiver, const char* member)
{
    const Call call("calls " + said(key, nameOf(receiver).c_str(), member));
    goOn("_ZN8YSoftKey14setClickedSlotEiP7QObjectPKc", this, key, receiver, member);
}

void YScrollPanel::setContentsPos(int x, int y)
{
    const Call call("scroll " + said(x) + (y == toolkitcalls::rowY ? " to the row" : ""));
    goOn("_ZN12YScrollPanel14setContentsPosEii", this, x, y);
}

int YScrollPanel::childY(QWidget* row) const
{
    const Call call("y of " + nameOf(row));
    toolkitcalls::rowY = nextOf<int (*)(const YScrollPanel*, QWidget*)>(
        "_ZNK12YScrollPanel6childYEP7QWidget")(this, row);
    return toolkitcalls::rowY;
}

int YPopup::exec()
{
    const Call call("exec");
    if (toolkitcalls::answersPopups)
        return 1;
    return nextOf<int (*)(YPopup*)>("_ZN6YPopup4execEv")(this);
}

void QWidget::setFocus(Qt::FocusReason reason)
{
    const Call call("focus " + nameOf(this));
    goOn("_ZN7QWidget8setFocusEN2Qt11FocusReasonE", this, reason);
}

QMetaObject::Connection QObject::connect(const QObject* sender, const char* signal,
                                         const QObject* receiver, const char* member,
                                         Qt::ConnectionType type)
{
    const Call call("connect " + nameOf(sender) + ' ' + signal + ' ' + nameOf(receiver) + ' ' +
                    member);
    return nextOf<QMetaObject::Connection (*)(const QObject*, const char*, const QObject*,
                                              const char*, Qt::ConnectionType)>(
        "_ZN7QObject7connectEPKS_PKcS1_S3_N2Qt14ConnectionTypeE")(sender, signal, receiver, member,
                                                                  type);
}
