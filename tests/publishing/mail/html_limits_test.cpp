#include "publishing/mail/html_limits.h"

#include <QString>
#include <gtest/gtest.h>

using namespace mail;

TEST(HtmlLimits, LetPassWhatPeopleWrite)
{
    EXPECT_TRUE(isShowableHtml(u""));
    EXPECT_TRUE(isShowableHtml(QString("<p>A line of <b>some</b> words.</p>\n").repeated(20000)));
    EXPECT_TRUE(isShowableHtml(QString("<table><tr><td>x</td></tr></table>").repeated(1000)));
    EXPECT_TRUE(isShowableHtml(QStringLiteral("<img src=\"data:image/png;base64,%1\">")
                                   .arg(QString(30 << 20, QLatin1Char('A')))));
    EXPECT_TRUE(isShowableText(QString("A line of some words.\n").repeated(50000)));
}

TEST(HtmlLimits, StopWhatTakesAnEditorHours)
{
    EXPECT_FALSE(isShowableHtml(QString(100 << 20, QLatin1Char('x'))));
    EXPECT_FALSE(isShowableHtml(QString("<b>word</b> ").repeated(10000)));
    EXPECT_FALSE(isShowableHtml(QString("<table><tr><td>").repeated(20)));
    EXPECT_FALSE(isShowableHtml(QString("<DIV class=x>").repeated(5000)));
    EXPECT_FALSE(isShowableHtml(QString("<p>word").repeated(1000000)));
    EXPECT_FALSE(isShowableText(QString(1 << 20, QLatin1Char('x'))));
    EXPECT_FALSE(isShowableText(QString("line\n").repeated(2000000)));
}

TEST(HtmlLimits, StandTagsWithoutAnEnd)
{
    EXPECT_TRUE(isShowableHtml(u"<p"));
    EXPECT_TRUE(isShowableHtml(u"<"));
    EXPECT_TRUE(isShowableHtml(u"</table></table>>"));
}
