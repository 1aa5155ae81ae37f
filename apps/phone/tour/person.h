// A person at the phone, who does one thing after the other.
#ifndef PHONE_TOUR_PERSON_H
#define PHONE_TOUR_PERSON_H

#include <functional>
#include <vector>

#include <QObject>
#include <QString>

class QWidget;

namespace phone {

class Person : public QObject
{
    Q_OBJECT

public:
    // The keys of the phone.
    void press(int key, int times = 1);
    void type(const QString& text);

    // Waits until a page, popup or dialog of this class or object name has the input.
    void see(const QString& layer);
    void await(const QString& what, std::function<bool()> isSo);
    // Does something once; it may open a dialog and so not come back until that is closed.
    void act(std::function<void()> deed);

    // Does it all, one thing at a time, in whatever event loop runs.
    void begin();

    // The page or popup that has the input, by its class or object name.
    static bool isSeen(const QString& layer);

signals:
    void done();
    // Something did not come within ten seconds; nothing more is done.
    void gaveUp(const QString& what);

private slots:
    void next();

private:
    // Something to do; false as long as it cannot be done yet.
    struct Deed
    {
        QString what;
        std::function<bool()> tryIt;
    };

    void add(const QString& what, std::function<bool()> tryIt);

    std::vector<Deed> m_deeds;
    std::size_t m_next = 0;
    int m_waited = 0;
};

} // namespace phone

#endif
