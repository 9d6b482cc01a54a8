#include "platform/desktop/screenshot_portal.h"

#include "support/stand_in_portal.h"
#include "support/temp_tree.h"

#include <QFile>
#include <QTest>
#include <QUrl>
#include <memory>
#include <vector>

using namespace std::chrono_literals;
using platform::ScreenshotPortal;
using support::StandInPortal;

namespace {

constexpr auto kShort = 300ms;
constexpr int kAWhile = 600; // milliseconds, in which nothing more comes

class Portal : public testing::Test {
protected:
    Portal()
    {
        picture.fill(QColor(10, 20, 30));
        portal->picture = picture;
    }

    void ask(std::chrono::milliseconds patience = ScreenshotPortal::kPatience)
    {
        auto* const asked = new ScreenshotPortal(owner.get(), patience);
        asked->ask([this](const QImage& answer) { answers.push_back(answer); });
    }

    void expectAnswer(const QImage& expected)
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !answers.empty(); }));
        EXPECT_EQ(answers.front().convertToFormat(QImage::Format_RGB32), expected);
    }

    void expectNothingMore()
    {
        const std::size_t before = answers.size();
        QTest::qWait(kAWhile);
        EXPECT_EQ(answers.size(), before);
    }

    // Of the one that the portal wrote.
    void expectNoFile() const
    {
        ASSERT_EQ(portal->files.size(), 1);
        EXPECT_FALSE(QFile::exists(portal->files.front()));
    }

    support::TempTree tree;
    QImage picture{40, 30, QImage::Format_RGB32};
    std::unique_ptr<StandInPortal> portal = std::make_unique<StandInPortal>(tree.path("home"));
    std::unique_ptr<QObject> owner = std::make_unique<QObject>();
    std::vector<QImage> answers;
};

} // namespace

TEST_F(Portal, HandsThePictureOverAndTakesItsFileAway)
{
    ask();
    expectAnswer(picture);
    expectNoFile();
    EXPECT_EQ(portal->options.value("interactive"), QVariant(false));
}

TEST_F(Portal, MayAnswerLate)
{
    portal->delay = kShort;
    ask();
    EXPECT_TRUE(answers.empty());
    expectAnswer(picture);
}

TEST_F(Portal, CountsOnceHoweverOftenItAnswers)
{
    portal->answer = StandInPortal::Answer::Twice;
    ask();
    expectAnswer(picture);
    expectNothingMore();
}

TEST_F(Portal, IsGivenUpWhenItNeverAnswers)
{
    portal->answer = StandInPortal::Answer::Never;
    ask(kShort);
    EXPECT_TRUE(answers.empty());
    expectAnswer({});
}

TEST_F(Portal, IsNotListenedToOnceItWasGivenUp)
{
    portal->delay = 2 * kShort;
    ask(kShort);
    expectAnswer({});
    expectNothingMore();
    EXPECT_EQ(answers.size(), 1U);
    expectNoFile();
}

TEST_F(Portal, LeavesNoFileBehindThoughTheOwnerHasGone)
{
    portal->delay = 2 * kShort;
    ask(kShort);
    expectAnswer({});
    owner.reset();
    expectNothingMore();
    expectNoFile();
}

TEST_F(Portal, LeavesNoFileBehindWhereThePictureIsBroken)
{
    tree.add({"home/broken.png", "no picture"});
    portal->uri = QUrl::fromLocalFile(tree.path("home/broken.png")).toString();
    ask();
    expectAnswer({});
    EXPECT_FALSE(tree.exists("home/broken.png"));
}

TEST_F(Portal, MaySayNo)
{
    portal->answer = StandInPortal::Answer::No;
    ask();
    expectAnswer({});
}

TEST_F(Portal, MayBeMissing)
{
    portal.reset();
    ask();
    expectAnswer({});
}

TEST_F(Portal, MayAnswerUnderAPathOfItsOwn)
{
    portal->answer = StandInPortal::Answer::UnderAnotherPath;
    portal->delay = kShort;
    ask();
    expectAnswer(picture);
}

TEST_F(Portal, IsRefusedWhereItNamesNoPicture)
{
    tree.add({"home/notes.txt", "notes"});
    const QString uris[] = {"file:", "nonsense", "https://example.org/shot.png",
                            "file:///no/such.png",
                            QUrl::fromLocalFile(tree.path("home/notes.txt")).toString()};
    for (const QString& uri : uris) {
        answers.clear();
        portal->uri = uri;
        ask();
        expectAnswer({});
    }
    EXPECT_EQ(tree.content("home/notes.txt"), "notes");
}

TEST_F(Portal, HasNobodyToAnswerOnceTheOwnerIsGone)
{
    ask();
    owner.reset();
    expectNothingMore();
    EXPECT_TRUE(answers.empty());
}

TEST_F(Portal, AnswersTwoWhoAskOneAfterTheOther)
{
    ask();
    expectAnswer(picture);
    answers.clear();
    ask();
    expectAnswer(picture);
}
