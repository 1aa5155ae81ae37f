// A row of a form in which a text is typed.
#ifndef YLINEEDIT_H
#define YLINEEDIT_H

#include <memory>

#include <qlineedit.h>
#include <qstring.h>
#include <qwidget.h>

#include "platform_export.h"

#include "ykeywords_begin.h"

class QEvent;
class QFocusEvent;
class QHideEvent;
class QKeyEvent;
class QMouseEvent;
class QPaintEvent;
class QResizeEvent;
class QValidator;
class YInputField;

// A label above a field for one line of text. Up and Down are left to the form. Return is, too, so
// that it goes on to the next row.
//
// A password shows dots, and an eye at its right end. A tap on the eye, or Right at the end of the
// text and then Return, shows the password until the eye is used again or the field is left.
class VORN_PLATFORM_API YLineEdit : public QWidget
{
    Q_OBJECT

public:
    // `name` is the object name or null. `widgetClassId` is one of YSkinService::WidgetClsID.
    YLineEdit(QWidget* parent, const char* name, int widgetClassId);
    ~YLineEdit();

    // The text above the field, wrapped where it is too long; an empty one takes no room. It is
    // also the name that a screen reader gives the row.
    void setLabel(const QString& label);
    QString label() const;

    // What has been typed or set, without the label.
    QString text() const;

    // The number of QChars that can be typed or set; 32767 unless set. A longer text is cut.
    void setMaxLength(int length);
    int maxLength() const;

    // Judges each key: one that makes a valid text invalid is refused. Not owned; null for none.
    void setValidator(const QValidator* validator);
    const QValidator* validator() const;

    // What is shown of the text. echoMode() is the mode set, even while a password is shown.
    void setEchoMode(QLineEdit::EchoMode mode);
    QLineEdit::EchoMode echoMode() const;

    // A read-only text can be read and copied only.
    void setReadOnly(bool readOnly);
    bool isReadOnly() const;

    // Left 1, right 2 or horizontally centred 4, as in Qt::AlignLeft and so on. The line always
    // stands in the middle of the field's height, so that vertical flags change nothing.
    void setAlignment(int alignment);
    int alignment() const;

    // The width of the row that sizeHint() gives, in pixels; 0 is the usual one.
    void setPreferredWidth(int width);

    // The place of the cursor: 0 before the first QChar.
    int cursorPosition() const;
    void setCursorPosition(int position);

    // Owned by the row; never null.
    YInputField* getInputField() const;

    // False once the row is switched off. It then takes the focus and the keys as before but does
    // nothing with them; a tap on it comes as Return.
    bool isYEnabled() const;

    QSize sizeHint() const;
    QSize minimumSizeHint() const;
    int heightForWidth(int width) const;
    bool event(QEvent* event);

public slots:
    void setEnabled(bool enabled);
    // Replaces the text, cut to maxLength(); also by one that the validator would refuse.
    void setText(const QString& text);
    // Makes the text empty.
    void clear();
    // Selects the whole text, which the next key replaces.
    void selectAll();

signals:
    // Each change of the text, by the user or by setText() and clear().
    void textChanged(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event);
    void keyReleaseEvent(QKeyEvent* event);
    void focusInEvent(QFocusEvent* event);
    void focusOutEvent(QFocusEvent* event);
    void mousePressEvent(QMouseEvent* event);
    void mouseReleaseEvent(QMouseEvent* event);
    void hideEvent(QHideEvent* event);
    void paintEvent(QPaintEvent* event);
    void resizeEvent(QResizeEvent* event);

private:
    bool eyeKey(QKeyEvent* event);
    void reveal(bool show);
    void tellText();
    QString keypadNote() const;
    void layoutField();
    void refresh();

    struct Private;
    std::unique_ptr<Private> d;
};

#include "ykeywords_end.h"

#endif
