// The page on which the user chooses.
#ifndef PHONE_SETTINGS_SETTINGSPAGE_H
#define PHONE_SETTINGS_SETTINGSPAGE_H

#include <vector>

#include "page.h"

class YComboBox;
class YFormContainer;

namespace phone {

struct SettingRow;

// Each choice is stored and takes effect at once.
class SettingsPage : public Page
{
    Q_OBJECT

public:
    explicit SettingsPage(QWidget* owner = nullptr);

signals:
    // The choice of one of settingnames takes effect outside of the page.
    void chosen(const QString& name);

private slots:
    void choose(int item);
    void writeFailed(const QString& why);

private:
    void addRow(YFormContainer* form, const SettingRow& row);

    std::vector<YComboBox*> m_boxes; // in the order of the table
};

} // namespace phone

#endif
