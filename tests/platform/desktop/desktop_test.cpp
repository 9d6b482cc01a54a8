#include "platform/desktop/desktop.h"

#include "platform/desktop/properties_sheet.h"
#include "platform/desktop/qt_desktop.h"
#include "platform/os/files.h"
#include "support/fake_desktop.h"
#include "support/temp_tree.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QUrl>
#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using platform::QtDesktop;
using support::TempTree;

namespace {

// Stands where the desktop would open an address.
class Opener : public QObject {
    Q_OBJECT
public:
    explicit Opener(const QString& scheme)
        : m_scheme(scheme)
    {
        QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~Opener() override { QDesktopServices::unsetUrlHandler(m_scheme); }

    QList<QByteArray> opened;

public slots:
    void open(const QUrl& url) { opened.append(url.toEncoded()); }

private:
    QString m_scheme;
};

void addProgram(const TempTree& tree, const std::string& name, const std::string& script)
{
    tree.add({name, "#!/bin/sh\n" + script});
    ::chmod(tree.native(name).c_str(), 0755);
}

bool waitForContent(const TempTree& tree, const std::string& name, const std::string& expected)
{
    QElapsedTimer timer;
    timer.start();
    while (tree.content(name) != expected && timer.elapsed() < 10000) {
        ::usleep(2000);
    }
    return tree.content(name) == expected;
}

QString factOf(const QString& path, const QString& label)
{
    for (const auto& [rowLabel, text] : platform::fileFacts(path)) {
        if (rowLabel == label) {
            return text;
        }
    }
    return {};
}

} // namespace

TEST(Desktop, TellsTheScreen)
{
    QtDesktop desktop;
    EXPECT_EQ(desktop.bitsPerPixel(), 32);
    QWidget window;
    desktop.maximise(window);
    EXPECT_TRUE(window.isMaximized());
}

TEST(Desktop, OpensDocumentsByTheirBytes)
{
    const TempTree tree({{"a b#1%.chm", ""}, {"bad\xFF.htm", ""}});
    Opener files("file");
    QtDesktop desktop;
    EXPECT_TRUE(desktop.openDocument(tree.path("a b#1%.chm")));
    EXPECT_TRUE(desktop.openDocument(tree.path("bad\xFF.htm")));
    EXPECT_FALSE(desktop.openDocument(tree.path("none.htm")));
    const QByteArray start = "file://" + QByteArray::fromStdString(tree.native(""));
    EXPECT_EQ(files.opened, QList<QByteArray>({start + "a%20b%231%25.chm", start + "bad%FF.htm"}));
}

TEST(Desktop, OpensAddresses)
{
    Opener pages("https");
    QtDesktop desktop;
    EXPECT_TRUE(desktop.openDocument("https://example.org/a?b=c"));
    EXPECT_FALSE(desktop.openDocument("no address"));
    EXPECT_FALSE(desktop.openDocument(""));
    EXPECT_EQ(pages.opened, QList<QByteArray>({"https://example.org/a?b=c"}));
}

TEST(Desktop, StartsAProgramWithItsArguments)
{
    const TempTree tree;
    addProgram(tree, "bin/prog \xFF",
               "printf '%s|' \"$0\" \"$@\" > " + tree.native("out.part") + "; mv " +
                   tree.native("out.part") + " " + tree.native("out"));
    QtDesktop desktop;
    EXPECT_TRUE(desktop.startProgram(tree.path("bin/prog \xFF"),
                                     {"one two", platform::fromNative("bad\xFE"), ""}));
    EXPECT_TRUE(waitForContent(tree, "out", tree.native("bin/prog \xFF") + "|one two|bad\xFE||"));
}

TEST(Desktop, StartsNothingThatIsNoProgram)
{
    const TempTree tree({{"text", "no program"}, {"folder/", ""}});
    tree.add({"broken", "#!/nowhere/interpreter\n"});
    ::chmod(tree.native("broken").c_str(), 0755);
    QtDesktop desktop;
    for (const char* const name : {"none", "text", "folder", "broken"}) {
        EXPECT_FALSE(desktop.startProgram(tree.path(name), {})) << name;
    }
    EXPECT_FALSE(desktop.startProgram("", {}));
}

TEST(Desktop, StartsAProgramThatEndsAtOnce)
{
    const TempTree tree;
    addProgram(tree, "quick", "exit 3\n");
    QtDesktop desktop;
    for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(desktop.startProgram(tree.path("quick"), {}));
    }
    // None of them is left for this process to look after.
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST(Properties, TellTheFactsOfAFile)
{
    const TempTree tree({{"pics/a.txt", "12345"}});
    ::chmod(tree.native("pics/a.txt").c_str(), 0640);
    const QString path = tree.path("pics/a.txt");
    EXPECT_EQ(factOf(path, "Name:"), "a.txt");
    EXPECT_EQ(factOf(path, "Folder:"), tree.path("pics"));
    EXPECT_EQ(factOf(path, "Size:"), "5 bytes");
    EXPECT_EQ(factOf(path, "Permissions:"), "rw-r-----");
    EXPECT_NE(factOf(path, "Type:"), "");
    EXPECT_NE(factOf(path, "Modified:"), "");
    EXPECT_EQ(factOf(tree.path("pics"), "Type:"), "Folder");
    EXPECT_TRUE(platform::fileFacts(tree.path("none")).empty());
}

TEST(Properties, ShowASheetThatGoesWithItsParent)
{
    const TempTree tree({{"a<b>.txt", "x"}});
    QWidget parent;
    QtDesktop desktop;
    desktop.showProperties(tree.path("none"), &parent);
    EXPECT_EQ(parent.findChild<QDialog*>(), nullptr);
    desktop.showProperties(tree.path("a<b>.txt"), &parent);
    auto* const sheet = parent.findChild<QDialog*>("PropertiesSheet");
    ASSERT_NE(sheet, nullptr);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_FALSE(sheet->isModal());
    EXPECT_EQ(sheet->windowTitle(), "a<b>.txt Properties");
    bool namesTheFile = false;
    for (const QLabel* const label : sheet->findChildren<QLabel*>()) {
        namesTheFile =
            namesTheFile || (label->text() == "a<b>.txt" && label->textFormat() == Qt::PlainText &&
                             label->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    }
    EXPECT_TRUE(namesTheFile);
}

TEST(FakeDesktop, RecordsWhatItIsAskedFor)
{
    const TempTree tree({{"a", ""}});
    const platform::Desktop* const before = &platform::desktop();
    auto inPlace = std::make_unique<support::FakeDesktop>();
    support::FakeDesktop& fake = *inPlace;
    EXPECT_TRUE(platform::desktop().openDocument("/help.chm"));
    EXPECT_TRUE(platform::desktop().startProgram("/bin/editor", {"x"}));
    platform::desktop().showProperties("/p", nullptr);
    fake.removesTrashed = true;
    EXPECT_TRUE(platform::desktop().moveToTrash(tree.path("a")));
    fake.bits = 16;
    EXPECT_EQ(platform::desktop().bitsPerPixel(), 16);
    EXPECT_EQ(fake.opened, QStringList({"/help.chm"}));
    EXPECT_EQ(fake.started, std::vector<support::FakeDesktop::Start>({{"/bin/editor", {"x"}}}));
    EXPECT_EQ(fake.shownProperties, QStringList({"/p"}));
    EXPECT_EQ(fake.trashed, QStringList({tree.path("a")}));
    EXPECT_FALSE(tree.exists("a"));
    inPlace.reset();
    EXPECT_EQ(&platform::desktop(), before);
}

#include "desktop_test.moc"
