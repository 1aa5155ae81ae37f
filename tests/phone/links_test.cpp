// Open links, and pages that are fetched through one.
#include <QPlainTextEdit>
#include <QTcpServer>
#include <QTcpSocket>

#include <network/napi_host.h>
#include <toolkit/yscreen.h>
#include <ylineedit.h>

#include "cards/cardlist.h"
#include "phone/phone_fixture.h"

using phone::Person;

namespace {

// A server of one page on the loopback.
class PageServer : public QTcpServer
{
public:
    explicit PageServer(const QByteArray& answer) : m_answer(answer)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            m_client = nextPendingConnection();
            connect(m_client, &QTcpSocket::readyRead, m_client, [this] {
                m_client->readAll();
                m_client->write(m_answer);
                m_client->flush();
                if (!m_holds)
                    m_client->disconnectFromHost();
            });
        });
    }

    // The connection stays open behind the answer.
    void hold() { m_holds = true; }
    bool isAsked() const { return m_client; }
    QString address() const { return QString("http://127.0.0.1:%1/page").arg(serverPort()); }

private:
    QByteArray m_answer;
    QTcpSocket* m_client = nullptr;
    bool m_holds = false;
};

class Links : public PhoneTest
{
protected:
    void SetUp() override
    {
        PhoneTest::SetUp();
        store("Home");
        start();
        hand.row("Home");
        person.see("YNoticeDlg");
        person.press(Qt::Key_Return);
        person.see("home");
        hand.menu(1, "Links");
        person.see("links");
    }

    static QString firstCard()
    {
        const auto* list = YScreen::instance()->activeLayer()->findChild<phone::CardList*>();
        return list ? list->model()->index(0, 0).data(Qt::AccessibleTextRole).toString()
                    : QString();
    }

    void fetch(const QString& address)
    {
        hand.menu(0, "Fetch a page");
        person.see("fetch");
        person.act([address] {
            YScreen::instance()->activeLayer()->findChild<YLineEdit*>("address")->setText(address);
        });
        hand.softKey(0);
    }

    // Back to the home page.
    void goHome()
    {
        person.act([] {
            while (YScreen::instance()->activeLayer()->objectName() != QLatin1String("home"))
                YScreen::instance()->activeLayer()->hide();
        });
    }

    static QString shownText()
    {
        const auto* view = YScreen::instance()->activeLayer()->findChild<QPlainTextEdit*>();
        return view ? view->toPlainText() : QString();
    }

    Person person;
    Hand hand{person, Way::Keys};
};

TEST_F(Links, AreToldWithDeviceAddressServersTimeAndBytes)
{
    person.act([] {
        EXPECT_TRUE(firstCard().startsWith(QString::fromUtf8(
            "Home, Connected, lo \xC2\xB7 10.1.2.3, Name servers: 10.1.2.1, Time: 0:00:0")))
            << firstCard().toStdString();
        EXPECT_TRUE(firstCard().contains(", In ")) << firstCard().toStdString();
    });
    goHome();
    live(person);
}

TEST_F(Links, CloseByTheMenuAndThenThePageSaysWhatToDo)
{
    hand.menu(0, "Disconnect");
    person.await("be empty", [] {
        const QWidget* focus = YScreen::instance()->focusWidget();
        return focus && focus->accessibleName() == QLatin1String("No open links");
    });
    goHome();
    live(person);
    EXPECT_TRUE(program->links().links().empty());
}

TEST_F(Links, BreakWhereTheyArePlayed)
{
    hand.menu(0, "Break it");
    answer(person, "The connection has broken.");
    goHome();
    live(person);
    EXPECT_TRUE(program->links().links().empty());
}

TEST_F(Links, TheNextOneFailsWhereTheyArePlayed)
{
    hand.menu(0, "Fail the next one");
    person.see("YNoticeDlg");
    person.press(Qt::Key_Return);
    person.see("links");
    hand.menu(0, "Disconnect");
    goHome();
    person.see("home");
    hand.row("Home");
    answer(person, "No network in reach.");
    live(person);
}

TEST_F(Links, FetchAPageThatIsShownAsText)
{
    PageServer server("HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n<p>Hello <b>phone</b>");
    fetch(server.address());
    person.see("text");
    person.act([] { EXPECT_EQ(shownText(), "Hello phone"); });
    goHome();
    live(person);
    settings->flush();
    EXPECT_EQ(phone::Settings().text(phone::settingnames::page), server.address());
}

TEST_F(Links, SayWhatWasWrongWithThePage)
{
    PageServer server("HTTP/1.0 404 Not Found\r\n\r\n");
    fetch("ftp://127.0.0.1/");
    answer(person, "Only http is fetched.");
    person.see("fetch");
    hand.softKey(1);
    person.see("links");
    fetch(server.address());
    answer(person, "The server says: 404 Not Found");
    goHome();
    live(person);
}

TEST_F(Links, SayWhenOnlyAPartOfThePageCame)
{
    PageServer server("HTTP/1.0 200 OK\r\nContent-Length: 100\r\n\r\nshort");
    fetch(server.address());
    answer(person, "Only 5 of 100 bytes came.");
    goHome();
    live(person);
}

TEST_F(Links, GiveAFetchUpWithCancel)
{
    PageServer server("HTTP/1.0 200 OK\r\nContent-Length: 100\r\n\r\nshort");
    server.hold();
    fetch(server.address());
    person.see("YStateDialog");
    person.await("have asked", [&server] { return server.isAsked(); });
    person.press(Qt::Key_F2);
    person.see("fetch");
    goHome();
    live(person);
    EXPECT_EQ(program->links().links().size(), 1u);
}

TEST_F(Links, SayThatTheLinkBrokeWhileAPageWasFetched)
{
    PageServer server("HTTP/1.0 200 OK\r\nContent-Length: 100\r\n\r\nshort");
    server.hold();
    fetch(server.address());
    person.see("YStateDialog");
    person.await("have asked", [&server] { return server.isAsked(); });
    person.act([this] { EXPECT_EQ(napihost::breakLink(program->links().links().front().id), 0); });
    // Two messages, one over the other: of the page and of the link.
    person.see("YMessageDlg");
    person.press(Qt::Key_Return);
    person.see("YMessageDlg");
    person.press(Qt::Key_Return);
    person.see("fetch");
    goHome();
    live(person);
}

} // namespace
