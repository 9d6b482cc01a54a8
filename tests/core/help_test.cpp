#include "core/help.h"

#include "support/fake_desktop.h"
#include "support/temp_tree.h"

#include <gtest/gtest.h>

TEST(Help, OpensTheDeliveredBook)
{
    const support::TempTree tree;
    const support::FakeDesktop desktop;
    core::openHelp();
    EXPECT_EQ(desktop.opened, QStringList(tree.path("app/HelpDocuments.chm")));
}
