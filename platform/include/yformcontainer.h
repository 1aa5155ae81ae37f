// The rows of a form.
#ifndef YFORMCONTAINER_H
#define YFORMCONTAINER_H

#include <memory>

#include "platform_export.h"
#include "yscrollpanel.h"

class QKeyEvent;

// Rows stand one below the other, each as wide as the form and as high as it needs. Up and Down go
// from row to row, around at the ends, and pass over rows that take no focus; those directly above
// the row with the focus are shown with it. Return goes on from a row that does nothing with it.
class VORN_PLATFORM_API YFormContainer : public YScrollPanel
{
    Q_OBJECT

public:
    // `name` is the object name or null. `widgetClassId` is YSkinService::FormContainer.
    YFormContainer(QWidget* parent, const char* name, int widgetClassId);
    ~YFormContainer();

    // Makes `child` a row: the last one, or, when `before` is a row, the one above it. A child of
    // another parent than viewport() becomes a child of that. `stretch` asks for the form's whole
    // width, which the host gives to every row.
    void addChild(QWidget* child, bool stretch, QWidget* before);

    // The rows in their order, hidden ones too; null where there is none, or `child` is no row.
    QWidget* getFirstChild() const;
    QWidget* getNextChild(QWidget* child) const;
    QWidget* getPreviousChild(QWidget* child) const;
    int childCount() const;

    void ensureChildVisible(QWidget* child);

protected:
    int layoutContents(int width);
    void contentsKeyPressEvent(QKeyEvent* event);
    void contentsChildRemoved(QObject* child);
    bool focusNextPrevChild(bool next);

private:
    bool walk(int step, bool around);

    struct Private;
    std::unique_ptr<Private> d;
};

#endif
