#include "fetch/textpage.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>

#include <toolkit/input/yfinger.h>
#include <toolkit/look/ytheme.h>

#include "texts/phone_text.h"

namespace phone {

TextPage::TextPage(QWidget* owner, const char* name, const QString& title)
    : Page(owner, name, title), m_view(new QPlainTextEdit(this))
{
    m_view->setReadOnly(true);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_view->setAccessibleName(title);
    m_view->setTextInteractionFlags(Qt::NoTextInteraction);
    m_view->setFocusPolicy(Qt::StrongFocus);
    m_view->document()->setDocumentMargin(YTheme::current().margin);
    m_view->viewport()->setAutoFillBackground(false);
    m_view->installEventFilter(this);
    new YFinger(m_view);
    setContentWidget(m_view);
    setKey(1, text("TXT_RID_PHONE_KEY_BACK", "Back"), SLOT(goBack()));
}

void TextPage::setText(const QString& text, const QString& ifEmpty)
{
    m_view->setPlainText(text.trimmed().isEmpty() ? ifEmpty : text);
}

void TextPage::scrollToEnd()
{
    m_view->verticalScrollBar()->setValue(m_view->verticalScrollBar()->maximum());
}

// A text without a cursor leaves the keys alone.
bool TextPage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_view || event->type() != QEvent::KeyPress)
        return Page::eventFilter(watched, event);
    QScrollBar* bar = m_view->verticalScrollBar();
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Up:
        bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
        return true;
    case Qt::Key_Down:
        bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        return true;
    default:
        return Page::eventFilter(watched, event);
    }
}

} // namespace phone
