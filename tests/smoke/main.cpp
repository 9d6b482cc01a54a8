#include "smoke/screen.h"

#include <QApplication>
#include <gtest/gtest.h>

namespace {

// Keeps the screen at each test's first failure, beside the test program.
class FailureScreens : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& test) override
    {
        m_file = QStringLiteral(VISTARA_SCREENS "/%1.png").arg(QLatin1String(test.name()));
    }

    void OnTestPartResult(const testing::TestPartResult& result) override
    {
        if (result.failed() && !m_file.isEmpty()) {
            smoke::screen().save(m_file);
            m_file.clear();
        }
    }

    QString m_file;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new FailureScreens); // which owns it
    return RUN_ALL_TESTS();
}
