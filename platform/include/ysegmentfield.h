// A row of short line edits with separators, such as an address.
#ifndef YSEGMENTFIELD_H
#define YSEGMENTFIELD_H

#include <memory>

#include <qstring.h>
#include <qwidget.h>

#include "platform_export.h"
#include "ytypes.h"

#include "ykeywords_begin.h"

class QEvent;
class QKeyEvent;
class QPaintEvent;
class QResizeEvent;
class YLineEdit;

// The cursor goes through the segments as through one text: Left, Right and Backspace cross from
// one to the next, so does a typed separator, or '*' and '#' of a keypad without letters, and a
// segment that is full hands over to the next one. A pasted text with separators fills several.
class VORN_PLATFORM_API YSegmentField : public QWidget
{
    Q_OBJECT

public:
    // `name` is the object name or null, `flags` is 0. No segments and the separator "." at first.
    YSegmentField(QWidget* parent, const char* name, YWidgetFlags flags, int widgetClassId);
    ~YSegmentField();

    // Between 0 and 16. Segments that are kept keep their settings and texts; others are deleted.
    void setNumSegments(int count);
    int numSegments() const;

    // The text drawn between the segments. Its first character is the one that crosses over.
    void setSeparatorString(const QString& separator);
    QString separatorString() const;

    // The line edit of a segment, from 0, owned by the field; null for an index that is none.
    YLineEdit* getField(int index) const;

    // The text above the segments; an empty one takes no room.
    void setLabel(const QString& label);
    QString label() const;

    // Whether the segments are switched on, see YLineEdit::isYEnabled().
    bool isYEnabled() const;

    QSize sizeHint() const;
    QSize minimumSizeHint() const;
    int heightForWidth(int width) const;
    bool eventFilter(QObject* watched, QEvent* event);

public slots:
    void setEnabled(bool enabled);

protected:
    void paintEvent(QPaintEvent* event);
    void resizeEvent(QResizeEvent* event);

private:
    void addSegment();
    bool crossKey(int index, const QKeyEvent& event);
    bool paste(int index);
    void handOver(int index);
    void enter(int index, bool atEnd);
    void layoutSegments();

    struct Private;
    std::unique_ptr<Private> d;
};

#include "ykeywords_end.h"

#endif
