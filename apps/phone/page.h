// A page of the program: a title, contents and two soft keys.
#ifndef PHONE_PAGE_H
#define PHONE_PAGE_H

#include <vector>

#include <QPointer>

#include <ykbmainwidget.h>

class YOptionsMenu;

namespace phone {

// One item of a menu.
struct MenuItem
{
    QString text;
    const char* slot; // of the page, as SLOT() writes it
    bool isEnabled = true;
};

class Page : public YKbMainWidget
{
    Q_OBJECT

public:
    // `owner`, which may be null, deletes the page; `name` is the object name.
    Page(QWidget* owner, const char* name, const QString& title);

protected:
    // The soft keys: 0 left, 1 right. `slot` is this page's.
    void setKey(int button, const QString& text, const char* slot);

    // Opens a menu in the place of the soft keys.
    void openMenu(const std::vector<MenuItem>& items);

protected slots:
    void goBack();

private:
    QPointer<YOptionsMenu> m_menu;
};

} // namespace phone

#endif
