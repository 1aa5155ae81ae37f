// A message that the user answers.
#ifndef YMESSAGEDLG_H
#define YMESSAGEDLG_H

#include <memory>

#include "platform_export.h"
#include "ypopup.h"
#include "ytypes.h"

// A popup with a title and a text, which is scrolled with Up and Down where it is too long.
class VORN_PLATFORM_API YMessageDlg : public YPopup
{
    Q_OBJECT

public:
    // The soft keys: OK and Cancel, Yes and No, or OK alone, on the right. Return is OK or Yes.
    enum MessageType { Confirmation = 0, Question = 1, Information = 2 };

    // `messageType` is a MessageType; `reserved` and `flags` are 0. exec() gives 1 for OK and Yes.
    YMessageDlg(const QString& title, const QString& text, int messageType, int reserved,
                QWidget* parent, const char* name, bool modal, YWidgetFlags flags);
    ~YMessageDlg();

    // The text that it was made with.
    QString text() const;

protected:
    int contentsHint(int width, int most) const;
    void layoutContents();
    void keyPressEvent(QKeyEvent* event);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

#endif
