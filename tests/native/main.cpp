#include "core/constants.h"
#include "smoke/screen.h"

#include <QApplication>
#include <gtest/gtest.h>

namespace {

// Keeps the screen at each test's first failure, beside the test program.
class FailureScreens : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& test) override
    {
        m_file = QStringLiteral(VISTARA_SCREENS "/%1-%2.png")
                     .arg(QGuiApplication::platformName(), QLatin1String(test.name()));
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

// Asked for by the leak checker where there is one. Qt's windows leave an object of the Wayland
// library behind, 80 bytes each, that nobody here can reach.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libwayland-client";
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName(core::kProgramName);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::UnitTest::GetInstance()->listeners().Append(new FailureScreens); // which owns it
    return RUN_ALL_TESTS();
}
