#include "publishing/mail/mail_setup_window.h"

#include "publishing/mail/mail_fixture.h"
#include "publishing/mail/mail_settings.h"
#include "widgets/title_strip.h"

#include <QComboBox>

using platform::BoxIcon;
using Box = support::FakeDialogs::Box;
using test::MailTest;

namespace {

// Writes down the keys in the order in which they come.
class RecordingStore : public core::ConfigStore {
public:
    explicit RecordingStore(core::ConfigStore& behind)
        : m_behind(behind)
    {
        core::services().config = this;
    }
    ~RecordingStore() override { core::services().config = &m_behind; }

    [[nodiscard]] QString read(const QString& key) const override { return m_behind.read(key); }
    void write(const QString& key, const QString& value) override
    {
        written.append(key + '=' + value);
        m_behind.write(key, value);
    }

    QStringList written;

private:
    core::ConfigStore& m_behind;
};

class MailSetup : public MailTest {
protected:
    // Opens it as the composer does and runs the script on it.
    void open(const std::function<void()>& script, bool firstRun = false)
    {
        mail::MailSettings settings;
        mail::readMailSettings(settings);
        whenSetupOpens([&] {
            script();
            if (setup() != nullptr) {
                core::windows().unload(core::Window::frmConfig);
            }
        });
        mail::showMailSetup(settings, firstRun);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static QLineEdit& field(const char* name) { return part<QLineEdit>(setup(), name); }
    static void press(const char* button) { part<QAbstractButton>(setup(), button).click(); }
    static void fillIn(const char* server, const char* port, const char* address)
    {
        field("txtServName").setText(server);
        field("txtServPort").setText(port);
        field("txtMailName").setText(address);
    }
};

} // namespace

TEST_F(MailSetup, ShowsTheSettings)
{
    open([] {
        EXPECT_EQ(field("txtServName").text(), "mail.example.com");
        EXPECT_EQ(field("txtServPort").text(), "25");
        EXPECT_EQ(field("txtMailName").text(), "me@example.com");
    });
    config.values.clear();
    open([] {
        EXPECT_EQ(field("txtServName").text(), "ERROR");
        EXPECT_EQ(field("txtServPort").text(), "0");
        EXPECT_EQ(field("txtMailName").text(), "ERROR");
    });
}

TEST_F(MailSetup, StaysOpenWithWhatIsWrong)
{
    RecordingStore store(config);
    open([&] {
        const std::tuple<const char*, const char*, const char*, Box> faults[] = {
            {" ",
             "x",
             "",
             {"You must enter a vaild server name", "Error no name entered", BoxIcon::Critical}},
            {"s", "x", "", {"Invaild port number", "Invaild Port Number", BoxIcon::Critical}},
            {"s",
             "1",
             " ",
             {"You must at least enter something for the E-Mail display name",
              "No E-Mail name entered", BoxIcon::Information}},
            {"s",
             "1",
             "a@b.nl",
             {"Invaild E-Mail Address Entered", "Invaild E-Mail Addesss", BoxIcon::Critical}},
        };
        for (const auto& [server, port, address, box] : faults) {
            fillIn(server, port, address);
            press("cmdOk");
            EXPECT_EQ(dialogs.boxes.back(), box);
            EXPECT_TRUE(setup()->isVisible());
        }
    });
    EXPECT_TRUE(store.written.isEmpty());
}

TEST_F(MailSetup, StoresItsKeysInTheirOrder)
{
    config.values["Classic"] = "1";
    RecordingStore store(config);
    open([] {
        fillIn("smtp.example.org", "25.5", " you@example.org ");
        press("cmdOk");
        EXPECT_EQ(setup(), nullptr);
    });
    EXPECT_EQ(store.written, (QStringList{"Servername=smtp.example.org", "Serverport=25.5",
                                          "Mailtext= you@example.org "}));
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0],
              (Box{"Your new setting will take affect the next time you load the program",
                   "Finished", BoxIcon::Information}));
    mail::MailSettings settings;
    mail::readMailSettings(settings);
    EXPECT_EQ(settings.MailServerPort, 26);
}

TEST_F(MailSetup, LeavesTheOpenComposerItsValues)
{
    openComposer();
    open([] {
        fillIn("smtp.example.org", "26", "you@example.org");
        press("cmdOk");
    });
    EXPECT_EQ(txtMail(1).text(), "me@example.com");
    whenSetupOpens([] {
        EXPECT_EQ(field("txtServName").text(), "mail.example.com");
        press("cmdCancel");
    });
    tool(6).click();
    EXPECT_EQ(setup(), nullptr);
    EXPECT_TRUE(composer()->isVisible());
}

TEST_F(MailSetup, EmptiesItsFields)
{
    RecordingStore store(config);
    open([] {
        press("cmdReset");
        EXPECT_EQ(field("txtServName").text(), "");
        EXPECT_EQ(field("txtServPort").text(), "");
        EXPECT_EQ(field("txtMailName").text(), "");
        EXPECT_TRUE(setup()->isVisible());
    });
    EXPECT_TRUE(store.written.isEmpty());
}

TEST_F(MailSetup, LeadsBackToTheComposer)
{
    openComposer();
    composer()->hide();
    open([] { press("cmdCancel"); });
    EXPECT_TRUE(composer()->isVisible());
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(MailSetup, MarksTheFieldThatHasTheFocus)
{
    open([] {
        setup()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(setup()));
        field("txtServPort").setFocus();
        EXPECT_EQ(field("txtServPort").palette().color(QPalette::Base), QColor(0xB5, 0xBE, 0xD6));
    });
}

TEST_F(MailSetup, KnowsSecurityUnlessItKeepsToTheStart)
{
    open([] {
        auto& security = part<QComboBox>(setup(), "cboSecurity");
        EXPECT_EQ(security.currentText(), "None");
        EXPECT_FALSE(field("txtUser").isEnabled());
        security.setCurrentIndex(1);
        emit security.activated(1);
        EXPECT_EQ(field("txtServPort").text(), "587");
        field("txtServPort").setText("2525");
        security.setCurrentIndex(2);
        emit security.activated(2);
        EXPECT_EQ(field("txtServPort").text(), "2525");
        EXPECT_TRUE(field("txtUser").isEnabled());
        EXPECT_EQ(field("txtPassword").echoMode(), QLineEdit::Password);
        field("txtUser").setText("me");
        press("cmdOk");
    });
    mail::MailSettings settings;
    mail::readMailSettings(settings);
    EXPECT_EQ(settings.security, mail::MailSecurity::Tls);
    EXPECT_EQ(settings.user, "me");
    config.values["Classic"] = "1";
    open([] {
        EXPECT_EQ(setup()->findChild<QWidget*>("cboSecurity"), nullptr);
        EXPECT_EQ(setup()->findChild<QWidget*>("txtUser"), nullptr);
        EXPECT_EQ(setup()->findChild<QWidget*>("txtPassword"), nullptr);
        fillIn("s", "1", "a@b.com");
        press("cmdOk");
    });
    EXPECT_EQ(config.values["MailSecurity"], "2");
}

TEST_F(MailSetup, WantsASecurityWhereTheStoredOneCannotBeRead)
{
    config.values["MailSecurity"] = "TLS";
    RecordingStore store(config);
    open([] {
        EXPECT_EQ(part<QComboBox>(setup(), "cboSecurity").currentIndex(), -1);
        EXPECT_FALSE(field("txtUser").isEnabled());
        press("cmdOk");
        EXPECT_TRUE(setup()->isVisible());
    });
    EXPECT_EQ(dialogs.boxTexts(),
              QStringList("Choose how the connection to the mail server is secured."));
    EXPECT_TRUE(store.written.isEmpty());
}

TEST_F(MailSetup, TakesNoPasswordOfNobody)
{
    RecordingStore store(config);
    open([] {
        part<QComboBox>(setup(), "cboSecurity").setCurrentIndex(1);
        field("txtUser").setText(" ");
        field("txtPassword").setText("sesame");
        press("cmdOk");
        EXPECT_TRUE(setup()->isVisible());
    });
    EXPECT_EQ(dialogs.boxTexts(), QStringList("Enter the user name that the password belongs to."));
    EXPECT_TRUE(store.written.isEmpty());
}

// There is no bus here, so nobody keeps it.
TEST_F(MailSetup, WritesNoPasswordAnywhere)
{
    tree.setVariable("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    RecordingStore store(config);
    open([] {
        part<QComboBox>(setup(), "cboSecurity").setCurrentIndex(2);
        field("txtUser").setText("me");
        field("txtPassword").setText("sesame");
        press("cmdOk");
    });
    ASSERT_EQ(dialogs.boxes.size(), 2U);
    EXPECT_TRUE(dialogs.boxes[0].text.contains("asked"));
    for (const QString& written : store.written) {
        EXPECT_FALSE(written.contains("sesame"));
    }
}
