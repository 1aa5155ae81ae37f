// The second page of the profile wizard, "Additional Settings".
#ifndef WIZARD_DATACONNECTION_NEWWIZ2_H
#define WIZARD_DATACONNECTION_NEWWIZ2_H

#include <ykbmainwidget.h>

class DataConnection_NewWiz1;
class YFormContainer;
class YSoftKey;

// The second proxy, circuit-switched dialling and its name servers. It lies above page 1, which
// owns it, and saves and cancels through page 1.
class DataConnection_NewWiz2 : public YKbMainWidget
{
    Q_OBJECT

public:
    DataConnection_NewWiz2(DataConnection_NewWiz1* page1, QWidget* parent, const char* objectName,
                           unsigned int flags);
    ~DataConnection_NewWiz2();

    // Shows the page, whose rows have just been filled, as one without changes.
    void open();

    // Page 1 is deleted, or deletes this one.
    void forgetPage1() { m_page1 = nullptr; }

    // Whether the user has asked to save from this page, successfully or not.
    bool isSaved() const { return m_saved; }

public slots:
    void slotGotoPrevious();
    void slotCancelSetup();
    void slotContentChanged();
    void slotLineSpeedChanged();
    void slotSaveProfile();

private:
    void connectContentSignals();
    void switchLineType();

    DataConnection_NewWiz1* m_page1;
    YFormContainer* m_form;
    YSoftKey* m_softKeys;
    bool m_saved;
};

#endif
