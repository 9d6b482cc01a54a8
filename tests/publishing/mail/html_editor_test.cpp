#include "publishing/mail/html_editor.h"

#include "publishing/mail/closed_document.h"
#include "support/fake_dialogs.h"
#include "support/memory_config_store.h"
#include "support/temp_tree.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QTcpServer>
#include <QTest>
#include <QUrl>
#include <fcntl.h>
#include <sys/inotify.h>
#include <unistd.h>

using namespace mail;

namespace {

// Tells whether a file was opened since it was last asked.
class OpenWatch {
public:
    explicit OpenWatch(const std::string& path)
        : m_watch(::inotify_init1(IN_NONBLOCK))
    {
        EXPECT_GE(::inotify_add_watch(m_watch, path.c_str(), IN_OPEN), 0);
    }
    ~OpenWatch() { ::close(m_watch); }
    OpenWatch(const OpenWatch&) = delete;
    OpenWatch& operator=(const OpenWatch&) = delete;

    [[nodiscard]] bool wasOpened() const
    {
        std::array<char, 4096> events{};
        return ::read(m_watch, events.data(), events.size()) > 0;
    }

private:
    int m_watch;
};

QByteArray pngOf(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

QImage filled(int width, int height, QColor colour)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

bool shows(const QWidget& widget, QColor colour)
{
    const QImage image = const_cast<QWidget&>(widget).grab().toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour) {
                return true;
            }
        }
    }
    return false;
}

QMimeData* htmlData(const QString& html)
{
    auto* data = new QMimeData;
    data->setHtml(html);
    return data;
}

void drop(QTextEdit& editor, const QMimeData& data)
{
    const QPoint place(20, 20);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor.viewport(), &enter);
    QDropEvent dropped(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor.viewport(), &dropped);
}

// The formats, each read whole.
QStringList bytesOfAll(const QMimeData& data)
{
    QStringList formats = data.formats();
    for (const QString& format : formats) {
        EXPECT_FALSE(data.data(format).isEmpty()) << format.toStdString();
    }
    formats.sort();
    return formats;
}

// Lends what a drag and the primary selection take.
class TakingEditor : public HtmlEditor {
public:
    using HtmlEditor::createMimeDataFromSelection;
};

class HtmlEditorTest : public testing::Test {
protected:
    HtmlEditorTest()
    {
        editor.resize(400, 300);
        editor.show();
    }

    void writeAndSelect(const QString& text)
    {
        editor.newDocument();
        editor.insertPlainText(text);
        editor.selectAll();
    }

    // What a command makes of a selected word.
    QString after(int command)
    {
        writeAndSelect("word");
        editor.ExecCommand(command);
        return editor.documentHtml();
    }

    support::TempTree tree;
    support::MemoryConfigStore config;
    support::FakeDialogs dialogs;
    HtmlEditor editor;
};

// A place on the network and a file that nobody may look at.
class ClosedEditorTest : public HtmlEditorTest {
protected:
    ClosedEditorTest()
    {
        tree.add({"canary.png", pngOf(filled(8, 8, kCanary)).toStdString()});
        tree.add({"canary.css", "p { color: #ff0080 }"});
        EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
        for (const char* name : {"canary.png", "canary.css"}) {
            watches.push_back(std::make_unique<OpenWatch>(tree.native(name)));
        }
    }

    // Everything by which a document may name something outside of it.
    [[nodiscard]] QString hostile() const
    {
        QString head;
        QString html;
        const QString svg = QString::fromLatin1(
            QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg' "
                           "xmlns:xlink='http://www.w3.org/1999/xlink' width='8' height='8'>"
                           "<image xlink:href='%1' width='8' height='8'/></svg>")
                .arg(tree.path("canary.png"))
                .toUtf8()
                .toBase64());
        for (const QString& base : {QStringLiteral("http://127.0.0.1:%1").arg(server.serverPort()),
                                    QStringLiteral("file://") + tree.root(), tree.root()}) {
            head += QStringLiteral("<link rel=\"stylesheet\" type=\"text/css\" "
                                   "href=\"%1/canary.css\">"
                                   "<meta http-equiv=\"refresh\" content=\"0;url=%1/canary.png\">"
                                   "<style>@import url(%1/canary.css); "
                                   "p { background-image: url(%1/canary.png) }</style>")
                        .arg(base);
            html += QStringLiteral("<p>text</p><img src=\"%1/canary.png\">"
                                   "<img src=\"%1/canary.png\" width=\"9\" height=\"9\">"
                                   "<table background=\"%1/canary.png\"><tr><td "
                                   "background=\"%1/canary.png\">cell</td></tr></table>"
                                   "<ul style=\"list-style-image: url(%1/canary.png)\"><li>x</ul>"
                                   "<iframe src=\"%1/canary.png\"></iframe>"
                                   "<object data=\"%1/canary.png\"></object>"
                                   "<embed src=\"%1/canary.png\">"
                                   "<video src=\"%1/canary.png\" poster=\"%1/canary.png\"></video>"
                                   "<script src=\"%1/canary.png\">document.write('ran')</script>")
                        .arg(base);
        }
        return "<html><head>" + head + "</head><body background=\"" + tree.path("canary.png") +
               "\">" + html + "<img src=\"data:image/svg+xml;base64," + svg + "\"></body></html>";
    }

    [[nodiscard]] bool wasTouched()
    {
        QTest::qWait(50);
        bool touched = server.hasPendingConnections();
        for (const auto& watch : watches) {
            touched = watch->wasOpened() || touched;
        }
        return touched;
    }

    static constexpr QColor kCanary = QColor(255, 0, 128);

    QTcpServer server;
    std::vector<std::unique_ptr<OpenWatch>> watches;
};

} // namespace

TEST_F(HtmlEditorTest, ChangesTheHtmlByItsCommands)
{
    EXPECT_TRUE(after(DECMD_BOLD).contains("font-weight:700"));
    EXPECT_FALSE(after(DECMD_COPY).contains("font-weight:700"));
    EXPECT_TRUE(after(DECMD_ITALIC).contains("font-style:italic"));
    EXPECT_TRUE(after(DECMD_UNDERLINE).contains("text-decoration: underline"));
    EXPECT_TRUE(after(DECMD_JUSTIFYCENTER).contains("align=\"center\""));
    EXPECT_TRUE(after(DECMD_JUSTIFYRIGHT).contains("align=\"right\""));
    editor.ExecCommand(DECMD_JUSTIFYLEFT);
    EXPECT_FALSE(editor.documentHtml().contains("align=\"right\""));
    EXPECT_TRUE(editor.isCommandOn(DECMD_JUSTIFYLEFT));
}

TEST_F(HtmlEditorTest, TakesBackWhatSwitches)
{
    for (const int command : {DECMD_BOLD, DECMD_ITALIC, DECMD_UNDERLINE}) {
        writeAndSelect("word");
        const QString plain = editor.documentHtml();
        editor.ExecCommand(command);
        EXPECT_TRUE(editor.isCommandOn(command)) << command;
        EXPECT_NE(editor.documentHtml(), plain) << command;
        editor.ExecCommand(command);
        EXPECT_FALSE(editor.isCommandOn(command)) << command;
    }
}

TEST_F(HtmlEditorTest, DoesNothingForOtherNumbers)
{
    const QString plain = after(0);
    for (const int command : {-1, 1, 4999, 5001, 5049, 65536}) {
        EXPECT_EQ(after(command), plain) << command;
    }
    EXPECT_TRUE(dialogs.fontRequests.empty());
}

TEST_F(HtmlEditorTest, TakesTheFontThatIsChosen)
{
    QFont font = editor.currentFont();
    font.setPointSize(31);
    dialogs.fontAnswers = {font, std::nullopt};
    EXPECT_TRUE(after(DECMD_FONT).contains("font-size:31pt"));
    EXPECT_FALSE(after(DECMD_FONT).contains("font-size:31pt"));
    EXPECT_EQ(dialogs.fontRequests.size(), 2U);
}

TEST_F(HtmlEditorTest, LinksTheSelection)
{
    dialogs.textAnswers = {QString(" https://example.com/a?b=1 "), std::nullopt};
    const QString linked = after(DECMD_HYPERLINK);
    EXPECT_TRUE(linked.contains("<a href=\"https://example.com/a?b=1\">"));
    EXPECT_EQ(editor.toPlainText(), "word");
    editor.insertPlainText(" more");
    EXPECT_TRUE(editor.documentHtml().contains("</a> more"));
    EXPECT_FALSE(after(DECMD_HYPERLINK).contains("href"));
}

TEST_F(HtmlEditorTest, WritesALinkWithoutASelectionAndTakesItOff)
{
    editor.newDocument();
    dialogs.textAnswers = {QString("https://example.com"), QString()};
    editor.ExecCommand(DECMD_HYPERLINK);
    EXPECT_EQ(editor.toPlainText(), "https://example.com");
    QTextCursor inside = editor.textCursor();
    inside.setPosition(5);
    editor.setTextCursor(inside);
    editor.ExecCommand(DECMD_HYPERLINK);
    EXPECT_EQ(dialogs.textRequests.back().initial, "https://example.com");
    EXPECT_FALSE(editor.documentHtml().contains("href"));
    EXPECT_EQ(editor.toPlainText(), "https://example.com");
}

TEST_F(HtmlEditorTest, KeepsAPictureInTheDocument)
{
    const QByteArray png = pngOf(filled(960, 480, Qt::green));
    tree.add({"pics/a.png", png.toStdString()});
    dialogs.openAnswers = {{tree.path("pics/a.png")}};
    const QString html = after(DECMD_IMAGE);
    EXPECT_TRUE(html.contains("data:image/png;base64," + QString::fromLatin1(png.toBase64())));
    EXPECT_TRUE(html.contains("width=\"480\""));
    EXPECT_TRUE(html.contains("height=\"240\""));
    tree.remove("pics/a.png");
    HtmlEditor other;
    other.resize(500, 300);
    other.setDocumentHtml(html);
    EXPECT_TRUE(shows(other, Qt::green));
}

TEST_F(HtmlEditorTest, RefusesAFileThatIsNoPicture)
{
    tree.add({"pics/a.png", "no picture"});
    dialogs.openAnswers = {{tree.path("pics/a.png")}, {tree.path("pics/missing.png")}, {}};
    const QString plain = after(0);
    EXPECT_EQ(after(DECMD_IMAGE), plain);
    EXPECT_EQ(after(DECMD_IMAGE), plain);
    EXPECT_EQ(dialogs.boxes.size(), 2U);
    EXPECT_EQ(after(DECMD_IMAGE), plain);
    EXPECT_EQ(dialogs.boxes.size(), 2U);
}

TEST_F(HtmlEditorTest, MovesTextByTheClipboard)
{
    after(DECMD_COPY);
    EXPECT_EQ(QApplication::clipboard()->text(), "word");
    after(DECMD_CUT);
    EXPECT_EQ(editor.toPlainText(), "");
    editor.ExecCommand(DECMD_PASTE);
    editor.ExecCommand(DECMD_PASTE);
    EXPECT_EQ(editor.toPlainText(), "wordword");
}

TEST_F(HtmlEditorTest, PastesAPictureUnlessItKeepsToTheStart)
{
    editor.newDocument();
    QApplication::clipboard()->setImage(filled(10, 10, Qt::blue));
    editor.ExecCommand(DECMD_PASTE);
    EXPECT_TRUE(editor.documentHtml().contains("data:image/png"));
    EXPECT_TRUE(shows(editor, Qt::blue));
    config.values["Classic"] = "1";
    editor.newDocument();
    editor.ExecCommand(DECMD_PASTE);
    EXPECT_EQ(editor.document()->characterCount(), 1);
}

TEST_F(HtmlEditorTest, PassesOverWhatItCannotPaste)
{
    writeAndSelect("word");
    const QString before = editor.documentHtml();
    auto* data = new QMimeData;
    data->setData("application/x-unknown", "bytes");
    data->setColorData(QColor(Qt::red));
    QApplication::clipboard()->setMimeData(data);
    editor.ExecCommand(DECMD_PASTE);
    QApplication::clipboard()->clear();
    editor.ExecCommand(DECMD_PASTE);
    EXPECT_EQ(editor.documentHtml(), before);
}

TEST_F(HtmlEditorTest, TakesNoFormatOfTheToolkitsOwn)
{
    writeAndSelect("word");
    const QString before = editor.documentHtml();
    for (const char* format : {"application/x-qrichtext", "application/x-qt-richtext"}) {
        QMimeData alone;
        alone.setData(format, "<b>hidden</b>");
        drop(editor, alone);
        EXPECT_EQ(editor.documentHtml(), before) << format;
    }
    auto* beside = new QMimeData;
    beside->setText("seen");
    beside->setData("application/x-qrichtext", "<b>hidden</b>");
    QApplication::clipboard()->setMimeData(beside);
    editor.ExecCommand(DECMD_PASTE);
    EXPECT_EQ(editor.toPlainText(), "seen");
}

TEST_F(HtmlEditorTest, PassesOverKeysThatHaveNoName)
{
    writeAndSelect("word");
    QApplication::clipboard()->setText("old");
    for (const int key : {int(Qt::Key_unknown), 0}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::ControlModifier);
        QApplication::sendEvent(&editor, &press);
    }
    EXPECT_EQ(QApplication::clipboard()->text(), "old");
    EXPECT_EQ(editor.toPlainText(), "word");
}

TEST_F(HtmlEditorTest, WorksByKeys)
{
    editor.newDocument();
    QTest::keyClick(&editor, Qt::Key_B, Qt::ControlModifier);
    EXPECT_TRUE(editor.isCommandOn(DECMD_BOLD));
    QTest::keyClick(&editor, Qt::Key_I, Qt::ControlModifier);
    QTest::keyClick(&editor, Qt::Key_U, Qt::ControlModifier);
    QTest::keyClicks(&editor, "x");
    QTest::keyClick(&editor, Qt::Key_E, Qt::ControlModifier);
    EXPECT_TRUE(editor.isCommandOn(DECMD_ITALIC) && editor.isCommandOn(DECMD_UNDERLINE));
    EXPECT_TRUE(editor.isCommandOn(DECMD_JUSTIFYCENTER));
    dialogs.textAnswers = {QString("https://example.com")};
    QTest::keyClick(&editor, Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(dialogs.textRequests.size(), 1U);
}

TEST_F(ClosedEditorTest, LoadsNothingThatADocumentNames)
{
    editor.setDocumentHtml(hostile());
    EXPECT_FALSE(shows(editor, kCanary));
    EXPECT_FALSE(wasTouched());
    EXPECT_FALSE(editor.toPlainText().contains("ran"));
    EXPECT_TRUE(editor.toPlainText().contains("cell"));
    editor.ExecCommand(DECMD_BOLD);
    editor.setDocumentHtml(editor.documentHtml());
    EXPECT_FALSE(shows(editor, kCanary));
    EXPECT_FALSE(wasTouched());
}

// Every format that is offered is asked for, as a program that receives it may.
TEST_F(ClosedEditorTest, LoadsNothingForWhatIsTakenOut)
{
    const QStringList offered{"text/html", "text/plain"};
    editor.setDocumentHtml(hostile());
    editor.selectAll();
    for (const int command : {DECMD_COPY, DECMD_CUT}) {
        editor.ExecCommand(command);
        const QMimeData* taken = QApplication::clipboard()->mimeData();
        EXPECT_EQ(bytesOfAll(*taken), offered);
        EXPECT_TRUE(taken->html().contains("cell"));
        EXPECT_TRUE(taken->text().contains("cell"));
    }
    QApplication::clipboard()->clear();
    EXPECT_FALSE(wasTouched());
}

TEST_F(ClosedEditorTest, LoadsNothingForWhatIsDraggedOrMarked)
{
    TakingEditor taking;
    taking.setDocumentHtml(hostile());
    taking.selectAll();
    const std::unique_ptr<QMimeData> data(taking.createMimeDataFromSelection());
    EXPECT_EQ(bytesOfAll(*data), (QStringList{"text/html", "text/plain"}));
    EXPECT_TRUE(data->html().contains("cell"));
    EXPECT_FALSE(wasTouched());
}

TEST_F(ClosedEditorTest, LoadsNothingThatIsPastedOrDropped)
{
    QApplication::clipboard()->setMimeData(htmlData(hostile()));
    editor.ExecCommand(DECMD_PASTE);
    EXPECT_FALSE(shows(editor, kCanary));
    EXPECT_TRUE(editor.toPlainText().contains("cell"));
    editor.newDocument();
    const std::unique_ptr<QMimeData> dropped(htmlData(hostile()));
    drop(editor, *dropped);
    EXPECT_TRUE(editor.toPlainText().contains("cell"));
    EXPECT_FALSE(shows(editor, kCanary));
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(tree.path("canary.png")),
                   QUrl(QStringLiteral("http://127.0.0.1:%1/x").arg(server.serverPort()))});
    drop(editor, files);
    QApplication::clipboard()->setMimeData(htmlData(QString()));
    EXPECT_FALSE(shows(editor, kCanary));
    EXPECT_FALSE(wasTouched());
}

// So that the watch is one that can tell.
TEST_F(ClosedEditorTest, IsWatchedByWhatSeesAnOpenEditorLoad)
{
    QTextEdit open;
    open.resize(400, 300);
    open.setHtml(hostile());
    EXPECT_TRUE(shows(open, kCanary));
    EXPECT_TRUE(wasTouched());
}

TEST_F(ClosedEditorTest, DecodesNothingButPlainPictures)
{
    const QString kinds[] = {"data:image/svg+xml;base64,",
                             "data:text/html;base64,",
                             "data:;base64,",
                             "data:image/png,",
                             "data:",
                             "data:image/jpeg;base64,"};
    const QString png = QString::fromLatin1(pngOf(filled(9, 9, kCanary)).toBase64());
    for (const QString& kind : kinds) {
        editor.setDocumentHtml("<img src=\"" + kind + png + "\">");
        EXPECT_FALSE(shows(editor, kCanary)) << kind.toStdString();
    }
    editor.setDocumentHtml("<img src=\"data:image/png;base64," + png + "\">");
    EXPECT_TRUE(shows(editor, kCanary));
}

TEST_F(HtmlEditorTest, ShowsAnyBytesAsADocument)
{
    QString odd = QString::fromLatin1("a\0b\x19<b>\x01</p></td><table><tr><img><a href=>", 40);
    odd += QChar(0xDC80);
    editor.setDocumentHtml(odd);
    editor.grab();
    EXPECT_TRUE(editor.toPlainText().startsWith('a'));
    editor.setDocumentHtml(QString());
    EXPECT_EQ(editor.toPlainText(), "");
}
