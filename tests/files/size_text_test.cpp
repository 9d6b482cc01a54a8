#include "files/size_text.h"

#include <QLocale>
#include <clocale>
#include <gtest/gtest.h>

namespace {

struct Case {
    qint64 bytes;
    const char* text;
};

constexpr Case kCases[] = {
    {0, "0 Bytes"},          {1023, "1023 Bytes"},
    {1024, "1024 Bytes"},    {1025, "1.00 Kb"},
    {1536, "1.5 Kb"},        {2048, "2 Kb"},
    {1535, "1.49 Kb"},       {1048575, "1023.99 Kb"},
    {1048576, "1 Mb"},       {5000000000, "4768.37 Mb"},
    {1073741824, "1024 Mb"},
};

} // namespace

TEST(SizeText, CutsTheFractionToTwoDigits)
{
    for (const Case& test : kCases) {
        EXPECT_EQ(files::sizeText(test.bytes).toStdString(), test.text);
    }
}

TEST(SizeText, KeepsThePointInEveryLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Dutch, QLocale::Netherlands));
    std::setlocale(LC_ALL, "nl_NL.UTF-8");
    EXPECT_EQ(files::sizeText(1536), QStringLiteral("1.5 Kb"));
    EXPECT_EQ(files::sizeText(1048575), QStringLiteral("1023.99 Kb"));
    std::setlocale(LC_ALL, "C.UTF-8");
    QLocale::setDefault(before);
}
