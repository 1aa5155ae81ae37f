// The page on which is said what is exported, and to where.
#ifndef PHONE_EXCHANGE_EXPORTPAGE_H
#define PHONE_EXCHANGE_EXPORTPAGE_H

#include <QStringList>

#include "page.h"

class YComboBox;
class YLineEdit;

namespace phone {

class ExportPage : public Page
{
    Q_OBJECT

public:
    // `current` is the profile under the cursor, or "", `all` all that can be exported; the file's
    // usual place is in `folder`.
    ExportPage(QWidget* owner, const QString& current, const QStringList& all,
               const QString& folder);

private slots:
    void write();

private:
    QString m_current;
    QStringList m_all;
    YComboBox* m_which;
    YComboBox* m_passwords;
    YLineEdit* m_file;
};

} // namespace phone

#endif
