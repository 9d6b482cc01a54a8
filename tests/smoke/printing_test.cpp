#include "smoke/smoke_fixture.h"

#include <QFile>
#include <QProcess>

using namespace smoke;

namespace {

// The first page of a document with 96 pixels to the inch; null while there is none.
QImage firstPage(const QString& document, const QString& image)
{
    QProcess::execute("pdftoppm", {"-r", "96", "-png", "-singlefile", document, image});
    return QImage(image + ".png");
}

} // namespace

class Printing : public SmokeTest {};

TEST_F(Printing, WritesThePictureIntoAPdfFile)
{
    const QString document = tree.path("page.pdf");
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    openByPath(session, tree.path("pics/a.jpg"));
    ASSERT_TRUE(colourAppears(parts.viewer(), kRed, kJpegSize));
    session.keys({QStringLiteral("alt+f"), QStringLiteral("p")});
    ASSERT_TRUE(session.windowOpens(QStringLiteral("Print")));
    // The last printer, no border, and the top left corner.
    session.keys({QStringLiteral("alt+i"), QStringLiteral("End"), QStringLiteral("alt+b"),
                  QStringLiteral("alt+a"), QStringLiteral("Home"), QStringLiteral("alt+p")});
    ASSERT_TRUE(session.windowOpens(QStringLiteral("Print to a PDF file")));
    session.keys({QStringLiteral("alt+n"), QStringLiteral("ctrl+a")});
    session.type(document);
    session.key(QStringLiteral("Return"));
    ASSERT_TRUE(session.windowOpens(QStringLiteral("Print")));
    ASSERT_TRUE(waitUntil([&] { return QFile::exists(document); }));
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(session.dialogsAreClosed());

    QImage page;
    EXPECT_TRUE(waitUntil([&] {
        page = firstPage(document, tree.path("page"));
        return !page.isNull();
    }));
    EXPECT_NEAR(page.width(), 794, 1); // A4
    EXPECT_NEAR(page.height(), 1123, 1);
    const QRect printed = boundsOf(page, page.rect(), kRed);
    EXPECT_EQ(printed.topLeft(), QPoint(0, 0));
    EXPECT_NEAR(printed.width(), kJpegSize.width(), 1);
    EXPECT_NEAR(printed.height(), kJpegSize.height(), 1);
    EXPECT_EQ(session.close(), 0);
}
