// A form of the program's own with the two fields of the library: a connection's name, which has a
// default, and an IP address, which may be left empty:
//     form
// Prints both when the user saves.

#include <cstdio>

#include <ipaddressedit.h>
#include <profileedit.h>
#include <profilefunctions.h>
#include <yapplication.h>
#include <yformcontainer.h>
#include <ykbmainwidget.h>
#include <ynoticedlg.h>
#include <yskinservice.h>
#include <ysoftkey.h>

class ServerPage : public YKbMainWidget
{
    Q_OBJECT

public:
    ServerPage() : YKbMainWidget(nullptr, "server", 0)
    {
        setMainWidgetTitle("Name Server");
        auto* form = new YFormContainer(this, nullptr, YSkinService::FormContainer);
        m_name = new ProfileEdit(form->viewport());
        m_address = new IPAddressEdit(form->viewport());
        m_name->setLabel("Connection:");
        m_address->setLabel("Server:");
        // The field shows the default name until something else is typed.
        QString name;
        getDefaultProfileName(name);
        m_name->setDefaultProfileName(name);
        m_name->setText(name);
        form->addChild(m_name, true, nullptr);
        form->addChild(m_address, true, nullptr);
        setContentWidget(form);
        addKeys();
    }

private slots:
    void save()
    {
        // Empty stands for none; a half of an address is none either, but surely meant otherwise.
        if (!m_address->isEmpty() && !m_address->isIPValid()) {
            YNoticeDlg(YNoticeDlg::Failure, "Not saved", "The server is no IP address.", this,
                       nullptr, true, 0U)
                .exec();
            return;
        }
        QString address;
        m_address->getIPAddress(address);
        std::printf("%s: %s\n", m_name->text().toUtf8().constData(),
                    m_address->isEmpty() ? "no server" : address.toLatin1().constData());
        qApp->exit(0);
    }

    void cancel() { qApp->exit(1); }

private:
    void addKeys()
    {
        auto* keys = new YSoftKey("CST_2A", this, this);
        keys->setText(YSoftKey::Left, "Save", 0);
        keys->setClickedSlot(YSoftKey::Left, this, SLOT(save()));
        keys->setText(YSoftKey::Right, "Cancel", 0);
        keys->setClickedSlot(YSoftKey::Right, this, SLOT(cancel()));
        setSoftKey(keys);
    }

    ProfileEdit* m_name;
    IPAddressEdit* m_address;
};

int main(int argc, char** argv)
{
    YApplication application(argc, argv);
    ServerPage page;
    page.show();
    return application.exec();
}

#include "main.moc"
