#include <QApplication>
#include <gtest/gtest.h>

// Where a font lacks a character, Qt leaves behind what it asked the font library for.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig";
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
