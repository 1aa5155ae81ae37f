// The program: its links, its pages, and what happens between them.
#ifndef PHONE_PHONE_H
#define PHONE_PHONE_H

#include <memory>

#include <QObject>
#include <QPointer>
#include <QThreadPool>

#include "links/linkbook.h"

class QTranslator;

namespace phone {

class Display;
class HomePage;

// Shows the home page on the display. Where another language is chosen the pages are made anew.
class Phone : public QObject
{
    Q_OBJECT

public:
    explicit Phone(Display* display);
    ~Phone() override;

    LinkBook& links() { return m_links; }
    HomePage& home() { return *m_home; }

signals:
    // The user wants the program to end.
    void exitChosen();

private slots:
    void showSigns();
    void askForSignal();
    void takeChoice(const QString& name);
    void build();
    void tellFailure(const QString& profile, int cause, int detail);
    void tellBroken(const QString& profile, int id);
    void tellConnected(const QString& profile);

private:
    void useLanguage();
    void useLook();

    void takeSignal(const QString& device, int percent);

    LinkBook m_links;
    QPointer<Display> m_display;
    QThreadPool m_asking; // for services, which may take their time
    int m_signal = -1;    // percent; -1 where nothing is known
    std::unique_ptr<QTranslator> m_ownTexts;
    std::unique_ptr<HomePage> m_home;
};

} // namespace phone

#endif
