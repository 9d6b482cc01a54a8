#include "core/picture_required.h"

#include "support/fake_dialogs.h"
#include "support/fake_main_window.h"

#include <gtest/gtest.h>

namespace {

class PictureRequired : public testing::Test {
protected:
    support::FakeMainWindow m_form;
    support::FakeDialogs m_dialogs;
};

} // namespace

TEST_F(PictureRequired, SaysSoWhereTheViewerHasNone)
{
    EXPECT_FALSE(core::requirePicture(m_form.viewer()));
    const support::FakeDialogs::Box box{"No picture to process.", "Vistara",
                                        platform::BoxIcon::Information};
    EXPECT_EQ(m_dialogs.boxes, std::vector{box});
}

TEST_F(PictureRequired, SaysNothingWhereItHasOne)
{
    m_form.fakeViewer.pictureExists = true;
    EXPECT_TRUE(core::requirePicture(m_form.viewer()));
    EXPECT_TRUE(m_dialogs.boxes.empty());
}
