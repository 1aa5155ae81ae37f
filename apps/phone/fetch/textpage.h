// A page with a long text.
#ifndef PHONE_FETCH_TEXTPAGE_H
#define PHONE_FETCH_TEXTPAGE_H

#include "page.h"

class QPlainTextEdit;

namespace phone {

// Up and Down and the finger scroll it.
class TextPage : public Page
{
    Q_OBJECT

public:
    TextPage(QWidget* owner, const char* name, const QString& title);

    // An empty text shows `ifEmpty` instead.
    void setText(const QString& text, const QString& ifEmpty = QString());
    void scrollToEnd();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPlainTextEdit* m_view;
};

} // namespace phone

#endif
