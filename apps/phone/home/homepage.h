// The home page: the stored profiles, and what can be done with one.
#ifndef PHONE_HOME_HOMEPAGE_H
#define PHONE_HOME_HOMEPAGE_H

#include "page.h"

class QStackedWidget;

namespace phone {

class CardList;
class ProfileModel;

class HomePage : public Page
{
    Q_OBJECT

public:
    explicit HomePage(QWidget* owner = nullptr);

    // Lists the profiles anew; the cursor stays on its profile, or its place.
    void refresh();

private slots:
    void openOptions();
    void create();

private:
    void showListOrHint();

    ProfileModel* m_profiles;
    CardList* m_list;
    QStackedWidget* m_stack;
};

} // namespace phone

#endif
