// What stands on a page that has nothing to show, and what to do.
#ifndef PHONE_CARDS_EMPTYHINT_H
#define PHONE_CARDS_EMPTYHINT_H

#include <QWidget>

namespace phone {

class EmptyHint : public QWidget
{
    Q_OBJECT

public:
    EmptyHint(QWidget* parent, const QString& title, const QString& hint);

    void setTexts(const QString& title, const QString& hint);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_title;
    QString m_hint;
};

} // namespace phone

#endif
