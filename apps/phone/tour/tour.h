// The typical use of the phone, played by the program itself.
#ifndef PHONE_TOUR_TOUR_H
#define PHONE_TOUR_TOUR_H

#include <QDir>
#include <QPointer>

#include "tour/person.h"

namespace phone {

class Phone;

// No connection is stored, so that one is made with the wizard and opened; then each page is looked
// at. Leaves a numbered picture of every step in a folder, and names each on the standard output.
class Tour : public QObject
{
    Q_OBJECT

public:
    // `display` is what is taken pictures of.
    Tour(Phone& phone, QWidget* display, const QDir& folder);

    // Ends the application when it is over: with 0, or with 1 where a step did not come or a
    // picture could not be written, which is said on the standard error output.
    void begin();

private slots:
    void tellLinks();
    void end();
    void fail(const QString& what);

private:
    void look(const QString& layer, const QString& picture);
    bool take(const QString& picture);
    void findNone();
    void makeConnection();
    void watchItConnect();
    void lookAround();
    void fetchPage();

    Phone& m_phone;
    QPointer<QWidget> m_display;
    QDir m_folder;
    Person m_person;
    int m_taken = 0;
};

} // namespace phone

#endif
