#pragma once

#include "platform/devices/helper_scanners.h"
#include "platform/devices/scanners.h"
#include "support/temp_tree.h"

#include <QImage>
#include <QTest>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace test {

constexpr int kPatience = 120000; // milliseconds

// All that a session says, in order of its kind.
struct Heard {
    std::vector<std::vector<platform::ScanOption>> options;
    std::vector<int> rows;
    std::vector<int> rowsInAll;
    std::vector<QImage> images; // copies
    std::vector<platform::ScanFailure> failures;
};

// Scanners through the real helper program, in folders of the test's own.
class ScanTest : public testing::Test {
protected:
    // The library's test scanner, with lines of its configuration of another value.
    void configure(const std::map<std::string, std::string>& changes = {});

    void open(const std::string& scanner = "test:0");
    void set(platform::ScanRole role, double number) { session->set(role, {{}, number}); }
    void set(platform::ScanRole role, const std::string& word) { session->set(role, {word, 0}); }
    void setArea(double width, double height); // millimetres
    // Until the session has said something that ends the scan.
    void scan(platform::ScanKind kind = platform::ScanKind::Picture);
    [[nodiscard]] bool waitForEnd();
    [[nodiscard]] bool waitForOptions();
    void expectFailure(platform::ScanFailure why);
    [[nodiscard]] QImage image() const { return heard.images.empty() ? QImage() : heard.images[0]; }
    // What was heard so far no longer counts.
    void forget() { heard = {}; }

    // The answer of a search, and whether it failed.
    [[nodiscard]] std::optional<std::vector<platform::ScannerFacts>> found();
    std::optional<platform::ScanFailure> searchFailure;

    // The picture that the library's own program makes, at 8 bits a sample.
    [[nodiscard]] QImage scannedByScanimage(const QStringList& arguments);

    support::TempTree tree;
    std::unique_ptr<platform::HelperScanners> scanners =
        std::make_unique<platform::HelperScanners>();
    QObject owner;
    platform::ScannerSession* session = nullptr; // the owner's
    Heard heard;
};

void expectSamePixels(const QImage& image, const QImage& expected);

} // namespace test
