#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStringList>
#include <gtest/gtest.h>
#include <thread>

namespace support {

// What the queue of with_cups.sh has put on paper since this began.
class PrintedJobs {
public:
    PrintedJobs()
        : m_before(all())
    {
    }

    // The files of the documents in the order of their jobs, once there are so many; events run
    // meanwhile.
    [[nodiscard]] QStringList waitFor(qsizetype count) const
    {
        constexpr qint64 kPatience = 60000;
        QElapsedTimer passed;
        passed.start();
        while (now().size() < count && passed.elapsed() < kPatience) {
            QCoreApplication::processEvents();
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        EXPECT_EQ(now().size(), count);
        return now();
    }
    [[nodiscard]] QStringList now() const
    {
        QStringList jobs = all();
        for (const QString& old : m_before) {
            jobs.removeOne(old);
        }
        return jobs;
    }

    // The service's words on the job of a document.
    static QString optionsOf(const QString& pdf)
    {
        return besides(pdf, QStringLiteral(".options"));
    }
    static QString titleOf(const QString& pdf) { return besides(pdf, QStringLiteral(".title")); }

private:
    static QString besides(const QString& pdf, const QString& ending)
    {
        QFile file(pdf.chopped(4) + ending);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll()).trimmed();
    }
    static QStringList all()
    {
        const QDir folder(qEnvironmentVariable("VISTARA_PRINTED"));
        EXPECT_TRUE(folder.exists()) << "not run by with_cups.sh";
        QStringList files;
        for (const QString& name : folder.entryList({QStringLiteral("*.pdf")})) {
            files.append(folder.filePath(name));
        }
        const auto numberOf = [](const QString& path) {
            return QFileInfo(path).baseName().toInt();
        };
        std::sort(files.begin(), files.end(), [numberOf](const QString& a, const QString& b) {
            return numberOf(a) < numberOf(b);
        });
        return files;
    }

    QStringList m_before;
};

} // namespace support
