#pragma once

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

namespace support {

// What a PDF tool prints, or writes with "-" for its file.
inline QByteArray toolOutput(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    process.start(tool, arguments);
    EXPECT_TRUE(process.waitForFinished(120000)) << tool.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

// A page of a PDF file, counted from 1, as it looks at that many pixels in an inch.
inline QImage pageOf(const QString& pdf, int page, int dotsPerInch)
{
    const QString number = QString::number(page);
    return QImage::fromData(
        toolOutput(QStringLiteral("pdftoppm"),
                   {QStringLiteral("-png"), QStringLiteral("-r"), QString::number(dotsPerInch),
                    QStringLiteral("-f"), number, QStringLiteral("-l"), number, pdf}));
}

// The value behind a name such as "Pages" or "Page size".
inline QString pdfFact(const QString& pdf, const QString& name)
{
    const QString facts = QString::fromUtf8(toolOutput(QStringLiteral("pdfinfo"), {pdf}));
    for (const QString& line : facts.split(QLatin1Char('\n'))) {
        if (line.startsWith(name + QLatin1Char(':'))) {
            return line.mid(name.size() + 1).trimmed();
        }
    }
    return {};
}

// Millimetres of the first page, as whole numbers.
inline QSize paperOf(const QString& pdf)
{
    const QRegularExpression sizes(QStringLiteral("^([0-9.]+) x ([0-9.]+) pts"));
    const auto found = sizes.match(pdfFact(pdf, QStringLiteral("Page size")));
    constexpr double kMillimetresInPoint = 25.4 / 72;
    return {qRound(found.captured(1).toDouble() * kMillimetresInPoint),
            qRound(found.captured(2).toDouble() * kMillimetresInPoint)};
}

struct EmbeddedImage {
    QSize size;
    QString encoding; // "jpeg", or "image" for one without loss
};

inline QList<EmbeddedImage> imagesOf(const QString& pdf)
{
    const QString table =
        QString::fromUtf8(toolOutput(QStringLiteral("pdfimages"), {QStringLiteral("-list"), pdf}));
    constexpr int kHeading = 2;
    constexpr int kWidth = 3;
    constexpr int kHeight = 4;
    constexpr int kEncoding = 8;
    QList<EmbeddedImage> images;
    for (const QString& line : table.split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(kHeading)) {
        const QStringList cells = line.simplified().split(QLatin1Char(' '));
        images.append({{cells[kWidth].toInt(), cells[kHeight].toInt()}, cells[kEncoding]});
    }
    return images;
}

// Whether a part of a page is of one colour, but for what the rounding to pixels does at its edges.
inline void expectColour(const QImage& page, const QRect& part, QColor colour)
{
    const QRect inside = part.adjusted(2, 2, -2, -2);
    ASSERT_TRUE(page.rect().contains(inside)) << page.width() << " x " << page.height();
    constexpr int kTolerance = 4;
    const auto differs = [](int a, int b) { return std::abs(a - b) > kTolerance; };
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            const QColor found = page.pixelColor(x, y);
            ASSERT_FALSE(differs(found.red(), colour.red()) ||
                         differs(found.green(), colour.green()) ||
                         differs(found.blue(), colour.blue()))
                << x << ", " << y << " is " << found.name().toStdString() << ", not "
                << colour.name().toStdString();
        }
    }
}

} // namespace support
