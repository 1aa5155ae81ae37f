// The page on which a file of exported profiles is chosen.
#ifndef PHONE_EXCHANGE_IMPORTPAGE_H
#define PHONE_EXCHANGE_IMPORTPAGE_H

#include "page.h"

namespace phone {

class CardList;
class FileModel;

class ImportPage : public Page
{
    Q_OBJECT

public:
    // Begins in `folder`.
    ImportPage(QWidget* owner, const QString& folder);

signals:
    void imported();

private slots:
    void choose();

private:
    void enter(const QString& folder);

    FileModel* m_files;
    CardList* m_list;
};

} // namespace phone

#endif
