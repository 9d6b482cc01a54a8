#include "thumbs/frame_layout.h"

#include <gtest/gtest.h>

using thumbs::FrameLayout;
using thumbs::FrameParts;
using thumbs::layoutFrame;
using thumbs::PageStack;

namespace {

constexpr FrameParts kParts{20, 3, 16, true};

} // namespace

TEST(FrameLayout, PutsTheViewportUnderTheBar)
{
    const FrameLayout layout = layoutFrame({300, 500}, kParts);
    EXPECT_EQ(layout.viewport, QRect(0, 20, 284, 480));
    EXPECT_EQ(layout.scroll, QRect(284, 20, 16, 480));
    EXPECT_EQ(layout.bar, QRect(0, 0, 300, 20));
    EXPECT_EQ(layout.strip, QRect(0, 17, 300, 3));
}

TEST(FrameLayout, TakesTheWholeHeightWithoutTheBar)
{
    const FrameLayout layout = layoutFrame({300, 500}, {20, 3, 16, false});
    EXPECT_EQ(layout.viewport, QRect(0, 0, 284, 500));
    EXPECT_EQ(layout.scroll, QRect(284, 0, 16, 500));
}

TEST(FrameLayout, PutsAHundredInPlaceOfNegativeLengths)
{
    const FrameLayout layout = layoutFrame({10, 15}, kParts);
    EXPECT_EQ(layout.viewport, QRect(0, 20, 100, 100));
    EXPECT_EQ(layout.bar.width(), 116);
}

TEST(FrameLayout, KnowsTheLeastHeightOfTheSheet)
{
    EXPECT_EQ(thumbs::leastSheetHeight(500), 487);
    EXPECT_EQ(thumbs::kFrameMargin, 5);
    EXPECT_EQ(thumbs::kPageTopMargin, 10);
}

TEST(PageStack, SizesPagesByTheViewport)
{
    PageStack stack;
    stack.restart({270, 620});
    EXPECT_EQ(stack.pageRect(0), QRect(0, 10, 260, 600));
    EXPECT_EQ(stack.sheetHeight(), 619);
    EXPECT_EQ(stack.scrollMaximum(), 0);
    EXPECT_EQ(stack.pages(), 1);
}

TEST(PageStack, HangsPagesBelowEachOther)
{
    PageStack stack;
    stack.restart({270, 620});
    stack.addPage();
    EXPECT_EQ(stack.pageRect(1), QRect(0, 620, 260, 600));
    EXPECT_EQ(stack.sheetHeight(), 1230);
    EXPECT_EQ(stack.scrollMaximum(), 605);
    stack.addPage();
    EXPECT_EQ(stack.pageTop(2), 1230);
    EXPECT_EQ(stack.scrollMaximum(), 1215);
}

TEST(PageStack, NeedsNoBarWhileThePagesFit)
{
    PageStack stack;
    stack.restart({270, 620}, {100, 200}, 0, 10);
    stack.addPage();
    EXPECT_EQ(stack.scrollMaximum(), 0);
    EXPECT_EQ(stack.sheetHeight(), 619);
    stack.addPage();
    EXPECT_EQ(stack.scrollMaximum(), 15); // content 640
}

TEST(PageStack, KeepsTheWidthOfTheSheetForPagesOfAnother)
{
    PageStack stack;
    stack.restart({270, 620});
    EXPECT_EQ(stack.sheetWidth(), 260);
    stack.restart({270, 620}, {100, 200}, 80, 20);
    EXPECT_EQ(stack.sheetWidth(), 260);
    EXPECT_EQ(stack.pageRect(0), QRect(80, 20, 100, 200));
}

TEST(PageStack, LimitsTheBarToSixteenBits)
{
    PageStack stack;
    stack.restart({270, 620});
    while (stack.pages() < 80) {
        stack.addPage();
    }
    EXPECT_EQ(stack.scrollMaximum(), 32767);
    EXPECT_TRUE(stack.isReachable(53));
    EXPECT_FALSE(stack.isReachable(79));
}

TEST(PageStack, FindsThePageAtAHeight)
{
    PageStack stack;
    stack.restart({270, 620});
    stack.addPage();
    EXPECT_EQ(stack.pageAt(9), -1);
    EXPECT_EQ(stack.pageAt(10), 0);
    EXPECT_EQ(stack.pageAt(609), 0);
    EXPECT_EQ(stack.pageAt(610), -1);
    EXPECT_EQ(stack.pageAt(620), 1);
    EXPECT_EQ(stack.pageAt(1230), -1);
}

TEST(PageStack, CountsPagesWithoutASize)
{
    PageStack stack;
    stack.restart({20, 20});
    EXPECT_EQ(stack.pageSize(), QSize(10, 0));
    for (int i = 0; i < 5000; ++i) {
        stack.addPage();
    }
    EXPECT_EQ(stack.pages(), 5001);
    EXPECT_EQ(stack.pageAt(40), -1);
}

TEST(PageStack, SurvivesHeightsBeyondThirtyTwoBits)
{
    PageStack stack;
    stack.restart({2000, 2000000});
    stack.setPages(3000);
    stack.addPage();
    EXPECT_GT(stack.pageTop(3000), 0);
    EXPECT_EQ(stack.scrollMaximum(), 32767);
}

TEST(PageStack, FollowsAViewportOfAnotherSize)
{
    thumbs::PageStack stack;
    stack.followViewport({270, 620}); // before any page is laid out
    EXPECT_EQ(stack.scrollMaximum(), 0);
    stack.restart({270, 620});
    stack.followViewport({270, 300});
    EXPECT_EQ(stack.scrollMaximum(), 620 - 300 - 5);
    EXPECT_EQ(stack.sheetHeight(), 620);
    EXPECT_EQ(stack.pageSize(), QSize(260, 600));
    stack.followViewport({270, 900});
    EXPECT_EQ(stack.scrollMaximum(), 0);
    EXPECT_EQ(stack.sheetHeight(), 899);
    stack.followViewport({270, 700});
    EXPECT_EQ(stack.sheetHeight(), 899); // never lower
    stack.addPage();
    EXPECT_EQ(stack.scrollMaximum(), 1230 - 700 - 5);
}
