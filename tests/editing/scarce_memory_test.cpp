// Edits of a large picture while the system has no memory for some of what they need.

#include "core/working_files.h"
#include "editing/clipboard_commands.h"
#include "editing/edit_fixture.h"
#include "editing/edit_steps.h"
#include "editing/image_commands.h"
#include "platform/desktop/clipboard.h"
#include "platform/pictures/large_image.h"
#include "platform/pictures/transforms.h"
#include "support/scarce_memory.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <array>

using support::ScarceMemory;

namespace {

constexpr int kWidth = 1400;
constexpr int kHeight = 1100;

QImage large()
{
    return test::imageOf(kWidth, kHeight,
                         [](int x, int y) { return qRgb(x & 255, y & 255, (x * y) & 255); });
}

// The same with a transparent corner, which takes a copy to be drawn over white.
QImage translucent()
{
    QImage image = large().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    image.setPixel(0, 0, qRgba(0, 0, 0, 0));
    return image;
}

class ScarceMemoryTest : public EditTest {
protected:
    using Edit = std::function<void()>;

    // Runs an edit again and again, refusing one piece of memory later each time, until it gets all
    // that it asks for. The picture is the old or the new one, and the new one in the end.
    void tryAll(const QImage& before, const QImage& after, const Edit& edit)
    {
        for (const auto refusal : {ScarceMemory::Refusal::One, ScarceMemory::Refusal::FromThenOn}) {
            int given = 0;
            while (tryOnce(before, after, edit, given, refusal) && !HasFailure()) {
                ++given;
            }
            EXPECT_GT(given, 0) << "nothing was asked for";
        }
    }

    // Holds on to what earlier pictures left to be used again.
    static std::array<QImage, 2> takeSpareMemory()
    {
        const QSize size(kWidth, kHeight);
        return {platform::unsetImage(size, QImage::Format_RGB32),
                platform::unsetImage(size, QImage::Format_RGB32)};
    }

private:
    // Whether memory was refused.
    bool tryOnce(const QImage& before, const QImage& after, const Edit& edit, int given,
                 ScarceMemory::Refusal refusal)
    {
        SCOPED_TRACE(given);
        form.viewer().setPicture(platform::Picture(before));
        form.Image1().setPicture({});
        EXPECT_TRUE(form.Image1().resize(1, 1));
        const auto nothingSpare = takeSpareMemory();
        bool refused = false;
        {
            const ScarceMemory scarce(given, refusal);
            edit();
            refused = ScarceMemory::hasRefused();
        }
        const QImage now = shown();
        const QImage flatBefore = platform::Picture(before).flattened();
        EXPECT_TRUE(now == after || (refused && now == flatBefore));
        EXPECT_FALSE(exists("Images/Temp.bmp"));
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        return refused;
    }
};

} // namespace

TEST_F(ScarceMemoryTest, LeavesFlipsAndMirrorsAPictureToReturnTo)
{
    for (const QImage& image : {large(), translucent()}) {
        const QImage flat = platform::Picture(image).flattened();
        tryAll(image, platform::flippedTopToBottom(flat), [this] { editing::optImage(form, 2); });
        tryAll(image, platform::flippedLeftToRight(flat), [this] { editing::optImage(form, 3); });
        tryAll(image, platform::mirrored(flat, platform::Half::Left),
               [this] { editing::optImage(form, 4); });
        tryAll(image, platform::mirrored(flat, platform::Half::Right),
               [this] { editing::optImage(form, 5); });
    }
}

TEST_F(ScarceMemoryTest, LeavesAScaleItsPicture)
{
    const QImage image = large();
    const QSize size(kWidth - 100, kHeight - 100);
    tryAll(image, platform::scaledTo(image, size), [this, size] {
        QTimer::singleShot(0, qApp, [size] {
            QWidget* window = core::windows().find(core::Window::Form4);
            ASSERT_NE(window, nullptr);
            window->findChild<QAbstractButton*>("chkKeepProportions")->setChecked(false);
            window->findChild<QLineEdit*>("txtWidth")->setText(QString::number(size.width()));
            window->findChild<QLineEdit*>("txtHeight")->setText(QString::number(size.height()));
            window->findChild<QPushButton*>("cmdOk")->click();
            window->close(); // it stays open when it couldn't scale
        });
        editing::optImage(form, 7);
    });
}

TEST_F(ScarceMemoryTest, LeavesPasteAndUndoThePictureBefore)
{
    const QImage other = translucent();
    ASSERT_TRUE(platform::setClipboardPicture(platform::Picture(large())));
    tryAll(test::filled(kWidth, kHeight, qRgb(1, 2, 3)), large(),
           [this] { editing::pastePicture(form, form); });
    ASSERT_TRUE(core::saveAs(core::WorkingFile::BeforeEdit, platform::Picture(large())));
    tryAll(other, large(), [this] { editing::undo(form); });
}

TEST_F(ScarceMemoryTest, CutsNothingThatTheClipboardDidNotTake)
{
    const platform::Picture picture(translucent());
    const QImage flat = picture.flattened();
    bool refused = true;
    for (int given = 0; refused; ++given) {
        SCOPED_TRACE(given);
        platform::clearClipboard();
        form.viewer().setPicture(picture);
        const auto nothingSpare = takeSpareMemory();
        {
            const ScarceMemory scarce(given, ScarceMemory::Refusal::FromThenOn);
            editing::cutPicture(form);
            refused = ScarceMemory::hasRefused();
        }
        const auto taken = platform::clipboardPicture();
        EXPECT_TRUE(shown() == flat || (taken && taken->flattened() == flat));
        EXPECT_TRUE(refused || shown().isNull());
        EXPECT_TRUE(refused || given > 0);
    }
}
