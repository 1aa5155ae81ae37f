#include "home/homepage.h"

#include <algorithm>

#include <QStackedWidget>

#include <profilefunctions.h>

#include "cards/cardlist.h"
#include "cards/emptyhint.h"
#include "home/profilemodel.h"
#include "texts/phone_text.h"

namespace phone {

HomePage::HomePage(QWidget* owner)
    : Page(owner, "home", text("TXT_RID_PHONE_TITLE_HOME", "Connections")),
      m_profiles(new ProfileModel(this)),
      m_list(new CardList(this, 2)),
      m_stack(new QStackedWidget(this))
{
    m_list->setModel(m_profiles);
    m_list->setAccessibleName(mainWidgetTitle());
    m_stack->addWidget(m_list);
    m_stack->addWidget(new EmptyHint(
        m_stack, text("TXT_RID_PHONE_HOME_EMPTY", "No connections yet"),
        text("TXT_RID_PHONE_HOME_EMPTY_HINT", "Press Options and choose New to make one.")));
    setContentWidget(m_stack);
    setKey(0, text("TXT_RID_PHONE_KEY_OPTIONS", "Options"), SLOT(openOptions()));
    refresh();
}

void HomePage::refresh()
{
    const int row = m_list->currentRow();
    const QString name = m_profiles->name(row);
    m_profiles->refresh();
    const int same = m_profiles->row(name);
    m_list->setCurrentRow(same >= 0 ? same : std::clamp(row, 0, m_profiles->rowCount() - 1));
    showListOrHint();
}

void HomePage::showListOrHint()
{
    m_stack->setCurrentIndex(m_profiles->rowCount() > 0 ? 0 : 1);
}

void HomePage::openOptions()
{
    openMenu({{text("TXT_RID_PHONE_MENU_NEW", "New"), SLOT(create())}});
}

void HomePage::create()
{
    QString name;
    createProfilebyUser(name);
    refresh();
}

} // namespace phone
