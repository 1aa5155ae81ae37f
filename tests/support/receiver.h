// Somebody to connect to.
#ifndef TESTS_SUPPORT_RECEIVER_H
#define TESTS_SUPPORT_RECEIVER_H

#include <qobject.h>
#include <qstring.h>

class Receiver : public QObject
{
    Q_OBJECT

public:
    // Emits changed() with these arguments.
    void change(int index, const QString& text) { emit changed(index, text); }

    int calls = 0;
    int lastIndex = -1;

signals:
    void changed(int index, const QString& text);

private slots:
    void act() { ++calls; }

    void choose(int index)
    {
        ++calls;
        lastIndex = index;
    }
};

#endif
