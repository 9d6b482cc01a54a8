#include "publishing/mail/mail_window.h"

#include "publishing/mail/loopback_mail_server.h"
#include "publishing/mail/mail_fixture.h"
#include "support/full_disk.h"
#include "support/ordinary_user.h"

#include <QCheckBox>
#include <QClipboard>
#include <QMimeData>
#include <QPointer>
#include <filesystem>

using platform::BoxIcon;
using test::LoopbackMailServer;
using test::MailTest;

namespace {

const QByteArray kDocument("[Quillpost Sender Beta 1 Do not edit below this line]\r\n"
                           "[MailFrom]to@example.com\r\n"
                           "[MAILTO]from@example.org\r\n"
                           "[SUBJECT]The lake\r\n"
                           "[MAILDATA]<p>One <b>two</b></p>\x19\r\n");

class MailWindow : public MailTest {
protected:
    void save(const QString& path)
    {
        dialogs.saveAnswers.push_back(platform::SaveChoice{path, 1});
        tool(2).click();
    }

    void open(const QString& path)
    {
        dialogs.openAnswers.push_back({path});
        tool(1).click();
    }

    void openBytes(const QByteArray& bytes)
    {
        tree.add({"a.qpm", bytes.toStdString()});
        open(tree.path("a.qpm"));
    }

    // Sends to a server of the test's own.
    void sendTo(const LoopbackMailServer& server)
    {
        config.values["Servername"] = "127.0.0.1";
        config.values["Serverport"] = QString::number(server.port());
        openComposer();
        fill("to@example.com", "from@example.org", "The lake", "Hello\n.\nthere");
        tool(0).click();
    }
};

} // namespace

TEST_F(MailWindow, ReadsItsSettingsAsItOpens)
{
    openComposer();
    EXPECT_EQ(txtMail(0).text(), "");
    EXPECT_EQ(txtMail(1).text(), "me@example.com");
    EXPECT_EQ(txtMail(2).text(), "");
    EXPECT_EQ(editor().toPlainText(), "");
    EXPECT_EQ(composer()->focusWidget(), &txtMail(0));
    EXPECT_TRUE(dialogs.boxes.empty());
    core::windows().unload(core::Window::frmMailSender);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    config.values["Mailtext"] = "other@example.com";
    openComposer();
    EXPECT_EQ(txtMail(1).text(), "other@example.com");
}

TEST_F(MailWindow, ShowsWhatAMissingKeyReadsAs)
{
    config.values.clear();
    openComposer();
    EXPECT_EQ(txtMail(1).text(), "ERROR");
}

TEST_F(MailWindow, HasItsControlsByTheirNames)
{
    openComposer();
    for (const char* name :
         {"txtMail_0", "txtMail_1", "txtMail_2", "Label1_0", "Label1_1", "Label1_2", "DHTML",
          "Toolbar2", "picstatus", "imgstatus", "lblStatus", "Image1_0", "Image1_1", "Bevel1",
          "Bevel3", "picbar", "Picture8", "Max"}) {
        EXPECT_NE(composer()->findChild<QWidget*>(QString::fromLatin1(name)), nullptr) << name;
    }
    EXPECT_NE(composer()->findChild<QObject*>("smtp"), nullptr);
    EXPECT_EQ(part<QLabel>(composer(), "Label1_2").text(), "&Subject :");
    const QStringList captions{"Send", "Open", "Save", "", "", "", ""};
    for (int index = 0; index < captions.size(); ++index) {
        EXPECT_EQ(tool(index).Caption(), captions[index]);
    }
}

TEST_F(MailWindow, AsksForTheSetupWhereThereIsNoSettingsFile)
{
    tree.remove("app/config.ini");
    bool setupShown = false;
    whenSetupOpens([&] {
        setupShown = true;
        part<QLineEdit>(setup(), "txtServName").setText("mail.example.com");
        part<QLineEdit>(setup(), "txtServPort").setText("25");
        part<QLineEdit>(setup(), "txtMailName").setText("me@example.com");
        part<QAbstractButton>(setup(), "cmdOk").click();
    });
    openComposer();
    ASSERT_TRUE(QTest::qWaitFor([&] { return setupShown && setup() == nullptr; }));
    ASSERT_EQ(dialogs.boxes.size(), 2U);
    EXPECT_EQ(dialogs.boxes[0], (support::FakeDialogs::Box{
                                    "Your new mail sender needs to be setup before you can use it.",
                                    "Setup Mail Sender", BoxIcon::Information}));
    EXPECT_TRUE(composer()->isVisible());
    EXPECT_EQ(txtMail(1).text(), ""); // nothing was read
}

TEST_F(MailWindow, EndsTheProgramWhenAFirstRunIsLeft)
{
    tree.remove("app/config.ini");
    int ended = 0;
    core::services().endProgram = [&] { ++ended; };
    dialogs.yesNoAnswers = {false, true};
    bool stayed = false;
    whenSetupOpens([&] {
        part<QAbstractButton>(setup(), "cmdCancel").click();
        stayed = setup() != nullptr && setup()->isVisible() && ended == 0;
        part<QAbstractButton>(setup(), "cmdCancel").click();
    });
    openComposer();
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended > 0; }));
    EXPECT_TRUE(stayed);
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(setup(), nullptr);
    EXPECT_EQ(composer(), nullptr);
    ASSERT_EQ(dialogs.boxes.size(), 3U);
    EXPECT_EQ(dialogs.boxes[1].text,
              "You have not set anything up are you sure you want to quit now");
    EXPECT_EQ(dialogs.boxes[1].icon, BoxIcon::Information);
}

TEST_F(MailWindow, WritesItsDocument)
{
    openComposer();
    fill("  to@example.com ", "from@example.org", " The lake", "text");
    save(tree.path("a.QPM"));
    const QByteArray bytes = QByteArray::fromStdString(tree.content("a.QPM"));
    EXPECT_TRUE(bytes.startsWith("[Quillpost Sender Beta 1 Do not edit below this line]\r\n"
                                 "[MailFrom]to@example.com\r\n[MAILTO]from@example.org\r\n"
                                 "[SUBJECT]The lake\r\n[MAILDATA]<!DOCTYPE HTML"));
    EXPECT_TRUE(bytes.endsWith("</html>\x19\r\n"));
    EXPECT_EQ(bytes.count('\x19'), 1);
    EXPECT_EQ(txtMail(0).text(), "to@example.com");
    EXPECT_EQ(txtMail(2).text(), "The lake");
    ASSERT_EQ(dialogs.fileRequests.size(), 1U);
    EXPECT_EQ(dialogs.fileRequests[0].title, "Save Project");
    EXPECT_EQ(dialogs.fileRequests[0].filter, "All Files(*.Quillpost)|*.QPM");
    EXPECT_EQ(dialogs.fileRequests[0].folder, tree.path("app/"));
    EXPECT_EQ(dialogs.fileRequests[0].fileName, "");
}

TEST_F(MailWindow, AddsTheExtensionWhereItIsMissing)
{
    openComposer();
    fill("t", "f", "s", "text");
    for (const char* name : {"x.QPM", "y.txt", "z", "aqpm"}) {
        save(tree.path(name));
    }
    for (const char* name : {"x.QPM", "y.txt.qpm", "z.qpm", "aqpm"}) {
        EXPECT_TRUE(tree.exists(name)) << name;
    }
    dialogs.saveAnswers.push_back(std::nullopt);
    tool(2).click();
    save(QString());
    EXPECT_FALSE(tree.exists(".qpm"));
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(MailWindow, SavesNothingThatIsIncomplete)
{
    openComposer();
    const char* const texts[] = {
        "The mail could not be saved No Mail From has been completed.",
        "The mail message could not be saved No Recipient has been completed.",
        "The mail message could not be saved No Subject has been completed.",
    };
    for (int empty = 0; empty < 3; ++empty) {
        fill(empty > 0 ? "t" : "  ", empty > 1 ? "f" : " ", "", "text");
        tool(2).click();
        EXPECT_EQ(dialogs.boxes.back(),
                  (support::FakeDialogs::Box{QString::fromLatin1(texts[empty]), "Error",
                                             BoxIcon::Critical}));
    }
    EXPECT_TRUE(dialogs.fileRequests.empty());
}

TEST_F(MailWindow, ReadsItsDocument)
{
    openComposer();
    openBytes(kDocument);
    EXPECT_EQ(txtMail(0).text(), "to@example.com");
    EXPECT_EQ(txtMail(1).text(), "from@example.org");
    EXPECT_EQ(txtMail(2).text(), "The lake");
    EXPECT_EQ(editor().toPlainText(), "One two");
    EXPECT_EQ(dialogs.fileRequests[0].title, "Open Email");
    EXPECT_EQ(dialogs.fileRequests[0].filter, "All Files(*.Quillpost)|*.QPM");
    EXPECT_EQ(dialogs.fileRequests[0].folder, tree.path("app/"));
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(MailWindow, KeepsItsMailWhereADocumentCannotBeShown)
{
    openComposer();
    fill("old@example.com", "me@example.com", "Old", "old text");
    openBytes("[MailFrom]to@example.com\r\n[MAILTO]from@example.org\r\n[SUBJECT]New\r\n"
              "[MAILDATA]<p>" +
              QByteArray(4 << 20, 'a') + "</p>\x19\r\n");
    EXPECT_EQ(txtMail(0).text(), "old@example.com");
    EXPECT_EQ(txtMail(2).text(), "Old");
    EXPECT_EQ(editor().toPlainText(), "old text");
}

TEST_F(MailWindow, ReadsBackWhatItWrote)
{
    openComposer();
    const QString text = QStringLiteral("Zeile\n\u00e9\u4e2d .\n.\n<b> & \"");
    fill("to@example.com", QStringLiteral("J\u00f6rg <j@example.org>"), "[SUBJECT] x", text);
    save(tree.path("a.qpm"));
    fill("", "", "", "");
    open(tree.path("a.qpm"));
    EXPECT_EQ(txtMail(0).text(), "to@example.com");
    EXPECT_EQ(txtMail(1).text(), QStringLiteral("J\u00f6rg <j@example.org>"));
    EXPECT_EQ(txtMail(2).text(), "[SUBJECT] x");
    EXPECT_EQ(editor().toPlainText(), text);
}

TEST_F(MailWindow, OpensByTheLastThreeLettersOfTheName)
{
    openComposer();
    tree.add({"a.txt", kDocument.toStdString()});
    open(tree.path("a.txt"));
    EXPECT_EQ(dialogs.boxes.back(),
              (support::FakeDialogs::Box{"This is not a valid Quillpost document.", "Error",
                                         BoxIcon::Critical}));
    EXPECT_EQ(txtMail(0).text(), "");
    tree.add({"aQpM", "[MailFrom]x\r\n"});
    open(tree.path("aQpM"));
    EXPECT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(txtMail(0).text(), "x");
    dialogs.openAnswers.push_back({});
    tool(1).click();
    EXPECT_EQ(dialogs.boxes.size(), 1U);
}

TEST_F(MailWindow, KeepsWhatItFoundOfABrokenDocument)
{
    openComposer();
    const auto expectFields = [](const char* to, const char* from, const char* subject,
                                 const char* body) {
        EXPECT_EQ(txtMail(0).text(), to);
        EXPECT_EQ(txtMail(1).text(), from);
        EXPECT_EQ(txtMail(2).text(), subject);
        EXPECT_EQ(editor().toPlainText(), body);
    };
    fill("a", "b", "c", "d");
    openBytes(QByteArray());
    expectFields("a", "b", "c", "d");
    openBytes(QByteArray(kDocument).replace("[MAILTO]", "[x]"));
    expectFields("to@example.com", "b", "c", "d");
    openBytes(QByteArray(kDocument).replace("\x19", ""));
    expectFields("to@example.com", "from@example.org", "The lake", "d");
    EXPECT_NE(status(), "");
    openBytes(QByteArray(kDocument).replace("One", QByteArray("O\0ne", 4)));
    EXPECT_TRUE(editor().toPlainText().startsWith('O'));
    EXPECT_EQ(status(), "");
    openBytes(QByteArray(kDocument).replace("One", QByteArray(100 << 20, 'x')));
    EXPECT_TRUE(editor().toPlainText().startsWith('O'));
    EXPECT_NE(status(), "");
    open(tree.path("missing.qpm"));
    open(tree.path("app"
                   "/../missing/x.qpm"));
    EXPECT_NE(status(), "");
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(MailWindow, LeavesTheOldFileWhereItCannotWrite)
{
    openComposer();
    fill("t", " f ", "s", QString(200000, 'x'));
    tree.add({"ro/a.qpm", "old"});
    {
        const support::FullDisk disk(4096);
        save(tree.path("ro/a.qpm"));
    }
    EXPECT_EQ(tree.content("ro/a.qpm"), "old");
    std::filesystem::permissions(tree.native("ro/a.qpm"), std::filesystem::perms::owner_read);
    std::filesystem::permissions(tree.native("ro"), std::filesystem::perms::owner_read |
                                                        std::filesystem::perms::owner_exec);
    {
        const support::OrdinaryUser user;
        save(tree.path("ro/a.qpm"));
    }
    std::filesystem::permissions(tree.native("ro"), std::filesystem::perms::owner_all);
    save(tree.path("missing/folder/a.qpm"));
    EXPECT_EQ(tree.content("ro/a.qpm"), "old");
    EXPECT_EQ(dialogs.boxes.size(), 3U);
    EXPECT_EQ(txtMail(0).text(), "t");
    EXPECT_EQ(txtMail(1).text(), "f");
    EXPECT_EQ(editor().toPlainText().size(), 200000);
}

TEST_F(MailWindow, MovesTheTextOfTheFieldThatWasEnteredLast)
{
    frmMailSender& window = openComposer();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (int index = 0; index < 3; ++index) {
        QLineEdit& field = txtMail(index);
        field.setText("one two");
        field.setFocus();
        EXPECT_EQ(window.ActiveField(), index);
        field.setSelection(0, 3);
        QApplication::clipboard()->setText("old");
        tool(4).click();
        EXPECT_EQ(QApplication::clipboard()->text(), "one");
        EXPECT_EQ(field.text(), "one two");
        tool(3).click();
        EXPECT_EQ(field.text(), " two");
        field.setSelection(1, 3);
        tool(5).click();
        EXPECT_EQ(field.text(), " one");
    }
    txtMail(0).setText("to");
    editor().setPlainText("body");
    editor().setFocus();
    EXPECT_EQ(window.ActiveField(), 3);
    editor().selectAll();
    tool(4).click();
    EXPECT_EQ(QApplication::clipboard()->text(), "body");
    tool(3).click();
    EXPECT_EQ(editor().toPlainText(), "");
    tool(5).click();
    EXPECT_EQ(editor().toPlainText(), "body");
    EXPECT_EQ(txtMail(0).text(), "to");
}

TEST_F(MailWindow, MovesTheSelectionThatTabHasLeft)
{
    frmMailSender& window = openComposer();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    txtMail(2).setText("one two");
    txtMail(2).setFocus();
    txtMail(2).setSelection(4, 3);
    tool(3).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&tool(3), Qt::Key_Space);
    EXPECT_EQ(txtMail(2).text(), "one ");
    EXPECT_EQ(QApplication::clipboard()->text(), "two");
}

TEST_F(MailWindow, EmptiesTheClipboardWhereNothingIsSelected)
{
    openComposer();
    txtMail(0).setFocus();
    txtMail(0).setText("to");
    txtMail(0).deselect();
    QApplication::clipboard()->setText("old");
    tool(4).click();
    EXPECT_EQ(QApplication::clipboard()->text(), "");
    txtMail(0).setCursorPosition(0);
    tool(3).click();
    EXPECT_EQ(txtMail(0).text(), "to");
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QApplication::clipboard()->setImage(picture);
    tool(5).click();
    EXPECT_EQ(txtMail(0).text(), "to");
}

TEST_F(MailWindow, FormatsByItsSecondToolbar)
{
    openComposer();
    const std::pair<int, const char*> signs[] = {
        {2, "font-weight:700"},  {3, "font-style:italic"},   {4, "text-decoration: underline"},
        {7, "align=\"center\""}, {8, "align=\"right\""},     {10, "font-size:33pt"},
        {11, "data:image/png"},  {12, "https://example.com"}};
    QFont font = editor().font();
    font.setPointSize(33);
    QImage picture(4, 4, QImage::Format_RGB32);
    ASSERT_TRUE(picture.save(tree.path("a.png")));
    dialogs.fontAnswers = {font};
    dialogs.openAnswers = {{tree.path("a.png")}};
    dialogs.textAnswers = {QString("https://example.com")};
    for (const auto& [index, sign] : signs) {
        editor().newDocument();
        editor().insertPlainText("word");
        editor().selectAll();
        EXPECT_FALSE(editor().documentHtml().contains(sign)) << index;
        auto& button = part<chameleonButton>(composer(), QStringLiteral("Toolbar2_%1").arg(index));
        button.click();
        EXPECT_TRUE(editor().documentHtml().contains(sign)) << index;
        if (index < 9) {
            EXPECT_TRUE(button.Value()) << index;
        }
    }
    part<chameleonButton>(composer(), "Toolbar2_6").click();
    EXPECT_TRUE(part<chameleonButton>(composer(), "Toolbar2_6").Value());
    EXPECT_FALSE(part<chameleonButton>(composer(), "Toolbar2_8").Value());
}

TEST_F(MailWindow, MarksTheFieldThatHasTheFocus)
{
    frmMailSender& window = openComposer();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const QColor resting = txtMail(1).palette().color(QPalette::Base);
    EXPECT_EQ(txtMail(0).palette().color(QPalette::Base), QColor(0xB5, 0xBE, 0xD6));
    txtMail(1).setFocus();
    EXPECT_EQ(txtMail(1).palette().color(QPalette::Base), QColor(0xB5, 0xBE, 0xD6));
    EXPECT_EQ(txtMail(0).palette().color(QPalette::Base), resting);
}

TEST_F(MailWindow, SendsWhatIsWritten)
{
    LoopbackMailServer server;
    bool wasOff = false;
    server.onCommand = [&](const QByteArray& command) {
        if (command == "DATA") {
            wasOff = !tool(0).isEnabled();
            tool(0).click();
            QTest::keyClick(composer(), Qt::Key_Return, Qt::ControlModifier);
        }
    };
    sendTo(server);
    EXPECT_EQ(status(), "Status : Send Complete");
    EXPECT_TRUE(wasOff);
    EXPECT_TRUE(tool(0).isEnabled());
    ASSERT_EQ(server.commands.size(), 5);
    EXPECT_EQ(server.commands[1], "MAIL FROM: me@example.com");
    EXPECT_EQ(server.commands[2], "RCPT TO: to@example.com");
    EXPECT_TRUE(server.message.contains("From: from@example.org\r\n"));
    EXPECT_TRUE(server.message.contains("To: to@example.com\r\n"));
    EXPECT_TRUE(server.message.contains("Subject: The lake\r\n"));
    EXPECT_TRUE(server.message.contains("Hello"));
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_EQ(server.connections, 1);
}

TEST_F(MailWindow, MayCloseAtAnyStageOfASending)
{
    for (const char* stage : {"connected", "HELO", "MAIL", "RCPT", "DATA", "message", "QUIT"}) {
        LoopbackMailServer server;
        QPointer<QWidget> window;
        server.onCommand = [&](const QByteArray& command) {
            if (command.startsWith(stage)) {
                window = composer();
                window->close();
            }
        };
        dialogs.yesNoAnswers = {true};
        sendTo(server);
        EXPECT_EQ(composer(), nullptr) << stage;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(window, nullptr) << stage;
        dialogs.yesNoAnswers.clear();
    }
    for (const support::FakeDialogs::Box& box : dialogs.boxes) {
        EXPECT_TRUE(box.text.contains("Throw it away")) << box.text.toStdString();
    }
}

TEST_F(MailWindow, AsksBeforeAMailIsLost)
{
    openComposer();
    composer()->close();
    EXPECT_EQ(composer(), nullptr);
    EXPECT_TRUE(dialogs.boxes.empty());
    openComposer();
    QTest::keyClicks(&txtMail(2), "x");
    composer()->close();
    ASSERT_NE(composer(), nullptr);
    EXPECT_TRUE(composer()->isVisible());
    EXPECT_EQ(dialogs.subjects.back().preset, platform::Answer::No);
    editor().setFocus();
    fill("t", "f", "s", "text");
    save(tree.path("a.qpm"));
    composer()->close();
    EXPECT_EQ(composer(), nullptr);
    EXPECT_EQ(dialogs.boxes.size(), 1U);
}

TEST_F(MailWindow, AsksNothingWhereItKeepsToTheStart)
{
    config.values["Classic"] = "1";
    openComposer();
    QTest::keyClicks(&txtMail(2), "x");
    composer()->close();
    EXPECT_EQ(composer(), nullptr);
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(MailWindow, WantsARecipient)
{
    openComposer();
    tool(0).click();
    EXPECT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(status(), "");
}

TEST_F(MailWindow, OffersThePictureShownWithSecurityOnly)
{
    tree.add({"a & b.jpg", std::string(2048, 'x')});
    form.xiala = tree.path("a & b.jpg");
    openComposer();
    EXPECT_TRUE(part<QCheckBox>(composer(), "chkAttach").isHidden());
    core::windows().unload(core::Window::frmMailSender);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    config.values["MailSecurity"] = "1";
    openComposer();
    auto& attach = part<QCheckBox>(composer(), "chkAttach");
    EXPECT_FALSE(attach.isHidden());
    EXPECT_TRUE(attach.isChecked());
    EXPECT_EQ(attach.text(), "&Attach picture (a && b.jpg, 2 Kb)");
    core::windows().unload(core::Window::frmMailSender);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    form.xiala = tree.path("missing.jpg");
    openComposer();
    EXPECT_FALSE(part<QCheckBox>(composer(), "chkAttach").isEnabled());
    EXPECT_FALSE(part<QCheckBox>(composer(), "chkAttach").isChecked());
    core::windows().unload(core::Window::frmMailSender);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    config.values["Classic"] = "1";
    openComposer();
    EXPECT_TRUE(part<QCheckBox>(composer(), "chkAttach").isHidden());
}
