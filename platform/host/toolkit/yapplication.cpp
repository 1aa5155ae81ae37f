#include <yapplication.h>

#include <QAbstractEventDispatcher>
#include <QLineEdit>

#include <yinputfield.h>
#include <ylineedit.h>

#include "toolkit/input/yinputmode.h"
#include "toolkit/look/ydress.h"

YApplication::YApplication(int& argc, char** argv) : QApplication(argc, argv)
{
    YDress::wearAll();
}

YApplication::~YApplication() = default;

void YApplication::wakeUpGuiThread()
{
    if (QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance(thread()))
        dispatcher->wakeUp();
}

void YApplication::setInputMethod(QWidget* widget, const QString& /*method*/, int mode,
                                  const QString& /*extra*/)
{
    if (auto* row = qobject_cast<YLineEdit*>(widget))
        row->getInputField()->setInputMode(mode);
    else if (auto* field = qobject_cast<YInputField*>(widget))
        field->setInputMode(mode);
    else if (auto* edit = qobject_cast<QLineEdit*>(widget))
        edit->setInputMethodHints(YInputMode::hints(mode) | YInputMode::hints(edit->echoMode()));
}

QString YApplication::keypadMethod()
{
    return QStringLiteral("{637a8c00-1098-42ca-969a-2bf163cd3c14}");
}
