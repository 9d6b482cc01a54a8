#include "smoke/screen.h"

#include <QApplication>
#include <gtest/gtest.h>

namespace {

// Keeps the screen at each test's first failure, beside the test program.
class FailureScreens : public testing::EmptyTestEventListener {
    void OnTestPartResult(const testing::TestPartResult& result) override
    {
        const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
        if (!result.failed() || test == nullptr || m_kept == test->name()) {
            return;
        }
        m_kept = test->name();
        smoke::screen().save(QStringLiteral(VISTARA_SCREENS "/%1.png").arg(m_kept));
    }

    QString m_kept;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new FailureScreens); // which owns it
    return RUN_ALL_TESTS();
}
