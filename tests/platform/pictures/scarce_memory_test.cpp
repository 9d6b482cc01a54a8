// Files of a large picture while the system has no memory for some of what they need.

#include "platform/pictures/gif_export.h"
#include "platform/pictures/test_images.h"
#include "support/scarce_memory.h"
#include "support/temp_tree.h"

using support::ScarceMemory;

namespace {

// More of them than a table holds.
QImage manyColours()
{
    return test::imageOf(1400, 1100,
                         [](int x, int y) { return qRgb(x & 255, y & 255, (x * y) & 255); });
}

} // namespace

TEST(ScarceMemoryTest, MakesAWholeGifOrNone)
{
    const support::TempTree tree;
    const QString path = tree.path("app/out.gif");
    const platform::Picture picture(manyColours());
    for (int given = 0;; ++given) {
        SCOPED_TRACE(given);
        tree.remove("app/out.gif");
        bool saved = false;
        bool refused = false;
        {
            const ScarceMemory scarce(given, ScarceMemory::Refusal::FromThenOn);
            saved = platform::writeGif(picture, path);
            refused = ScarceMemory::hasRefused();
        }
        EXPECT_EQ(saved, tree.exists("app/out.gif"));
        if (!refused) {
            EXPECT_TRUE(saved);
            EXPECT_GT(given, 2);
            break;
        }
    }
}
