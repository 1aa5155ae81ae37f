// A short notice that goes by itself.
#ifndef YNOTICEDLG_H
#define YNOTICEDLG_H

#include <memory>

#include "platform_export.h"
#include "ypopup.h"
#include "ytypes.h"

class QTimerEvent;

// A popup with a sign and a text. It closes after three seconds, or as soon as the user presses
// Return, a soft key, or taps it; exec() gives 1 in each of these cases.
class VORN_PLATFORM_API YNoticeDlg : public YPopup
{
    Q_OBJECT

public:
    // What is told: it decides the picture beside the text.
    enum NoticeType { Success = 0, Failure = 1 };

    // `noticeType` is a NoticeType; `flags` is 0. An empty title takes no room.
    YNoticeDlg(int noticeType, const QString& title, const QString& text, QWidget* parent,
               const char* name, bool modal, YWidgetFlags flags);
    ~YNoticeDlg();

    // The text that it was made with.
    QString text() const;

protected:
    int contentsHint(int width, int most) const;
    void layoutContents();
    void showEvent(QShowEvent* event);
    void hideEvent(QHideEvent* event);
    void keyPressEvent(QKeyEvent* event);
    void mouseReleaseEvent(QMouseEvent* event);
    void paintEvent(QPaintEvent* event);
    void timerEvent(QTimerEvent* event);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

#endif
