// The first page of the profile wizard.
#ifndef WIZARD_DATACONNECTION_NEWWIZ1_H
#define WIZARD_DATACONNECTION_NEWWIZ1_H

#include <memory>

#include <qstring.h>

#include <ykbmainwidget.h>

#include "wizard/form/formcheck.h"
#include "wizard/form/record.h"
#include "wizard/formrows.h"

class DataConnection_NewWiz2;
class NSPressButton;
class QHideEvent;
class YFormContainer;
class YSeparator;
class YSoftKey;

// The profile's name, its connection preference and its GPRS settings. Owns the second page, the
// record that was read, and the run of the wizard. The record is never changed from the form: it is
// what page 2 is filled from, and tells whether an edited profile has to be written at all.
class DataConnection_NewWiz1 : public YKbMainWidget
{
    Q_OBJECT

public:
    enum Outcome { ResultStored = 0, ResultCancelled = 1, ResultClosed = 2 };

    // `name` is the profile to load, or empty for a new one. With `creating` it is a new one or a
    // copy, under a new name; without, the profile itself is edited.
    DataConnection_NewWiz1(const QString& name, bool creating, QWidget* parent,
                           const char* objectName, unsigned int flags);
    ~DataConnection_NewWiz1();

    // Shows the page and blocks in a nested event loop until it is hidden, by whatever way, or one
    // of the two pages is deleted. Result: an Outcome; ResultClosed when this page was deleted.
    int run();

    // Ends run().
    void hide() override;

    // Page 2 is being deleted by somebody else: its rows are forgotten, and run() ends.
    void losePage2();

    // The name under which the profile is stored, or will be.
    QString profileName() const { return m_currentName; }

    wizard::FormRows& formRows() { return m_rows; }

public slots:
    void slotGotoPrevious();
    void slotGoToNext();
    void slotPreferencChanged(int index);
    void slotSaveProfile();
    void slotContentChanged();

protected:
    // Hears of what does not go through hide(): the base class's own, and the screen's end.
    void hideEvent(QHideEvent* event) override;

private:
    struct DeletePage2
    {
        void operator()(DataConnection_NewWiz2* page) const;
    };

    void leaveLoop();
    void setTitleAndName(const QString& name);
    void addRows();
    void chooseDefaultPreference();
    void addKeys();
    int loadProfile(const QString& name);
    void switchCellularRows(bool on);
    void connectContentSignals();
    wizard::FormPurpose purpose() const;
    int checkAndStore(wizard::FormFault* fault);

    std::unique_ptr<DataConnection_NewWiz2, DeletePage2> m_page2;
    YFormContainer* m_form;
    wizard::Record m_record;
    QString m_currentName;
    wizard::FormRows m_rows;
    NSPressButton* m_additionalSettings;
    YSeparator* m_cellularSeparator;
    YSoftKey* m_softKeys;

public:
    // Belongs to whoever runs the page, who clears it first; the page takes no notice of it. It has
    // its place among the other members.
    void* reserved;

private:
    bool m_isCreating;
    bool m_inModalLoop;
    bool m_hasWifi;
    int m_result;
    int m_currentPreference;
    int m_defaultPreference;
};

#endif
