#include "scan_helper/scan_fixture.h"

#include <QProcess>
#include <cmath>

namespace test {

namespace {

std::map<std::string, std::string> plainConfiguration()
{
    return {{"number_of_devices", "2"},
            {"mode", "Gray"},
            {"depth", "8"},
            {"resolution_min", "1.0"},
            {"resolution_max", "1200.0"},
            {"resolution_quant", "1.0"},
            {"geometry_min", "0.0"},
            {"geometry_max", "200.0"},
            {"geometry_quant", "1.0"},
            {"tl_x", "0.0"},
            {"tl_y", "0.0"},
            {"br_x", "80.0"},
            {"br_y", "100.0"},
            {"test-picture", "\"Color pattern\""}};
}

// A number of a PNM file's head, behind blanks and comments.
int headNumber(const QByteArray& file, qsizetype& at)
{
    while (at < file.size() && (std::isspace(file[at]) != 0 || file[at] == '#')) {
        at = file[at] == '#' ? file.indexOf('\n', at) : at + 1;
    }
    int number = 0;
    for (; at < file.size() && std::isdigit(file[at]) != 0; ++at) {
        number = number * 10 + (file[at] - '0');
    }
    return number;
}

// Bits, grey or colours, samples of 16 bits with the highest byte first.
QImage imageOfPnm(const QByteArray& file)
{
    qsizetype at = 2;
    const char kind = file.size() > 2 ? file[1] : '0';
    const int width = headNumber(file, at);
    const int height = headNumber(file, at);
    const int most = kind == '4' ? 1 : headNumber(file, at);
    ++at;
    const int samples = kind == '6' ? 3 : 1;
    const int bytes = most > 255 ? 2 : 1;
    const qsizetype line = kind == '4' ? (width + 7) / 8 : qsizetype(width) * samples * bytes;
    if (file.size() < at + line * height) {
        return {};
    }
    const auto* pixels = reinterpret_cast<const uchar*>(file.constData()) + at;
    const auto sampleAt = [&](int x, int y, int sample) {
        if (kind == '4') {
            return (pixels[y * line + x / 8] >> (7 - x % 8) & 1) != 0 ? 0 : 255;
        }
        const uchar* bytesOfIt = pixels + y * line + (qsizetype(x) * samples + sample) * bytes;
        return bytes == 1 ? int(bytesOfIt[0])
                          : int(std::lround((bytesOfIt[0] * 256 + bytesOfIt[1]) / 257.0));
    };
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(
                x, y,
                qRgb(sampleAt(x, y, 0), sampleAt(x, y, samples / 2), sampleAt(x, y, samples - 1)));
        }
    }
    return image;
}

} // namespace

void expectSamePixels(const QImage& image, const QImage& expected)
{
    ASSERT_FALSE(expected.isNull());
    ASSERT_EQ(image.size(), expected.size());
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            ASSERT_EQ(image.pixel(x, y), expected.pixel(x, y)) << "at " << x << ", " << y;
        }
    }
}

void ScanTest::configure(const std::map<std::string, std::string>& changes)
{
    auto lines = plainConfiguration();
    for (const auto& [name, value] : changes) {
        lines[name] = value;
    }
    std::string text;
    for (const auto& [name, value] : lines) {
        text += name + " " + value + "\n";
    }
    tree.add({"sane/dll.d/", ""});
    tree.add({"sane/dll.conf", "test\n"});
    tree.add({"sane/test.conf", text});
    tree.setVariable("SANE_CONFIG_DIR", tree.native("sane"));
}

void ScanTest::open(const std::string& scanner)
{
    delete session;
    forget();
    session = scanners->open(scanner, &owner);
    using Session = platform::ScannerSession;
    QObject::connect(session, &Session::optionsRead, &owner,
                     [this](const auto& options) { heard.options.push_back(options); });
    QObject::connect(session, &Session::progressed, &owner, [this](int soFar, int inAll) {
        heard.rows.push_back(soFar);
        heard.rowsInAll.push_back(inAll);
    });
    QObject::connect(session, &Session::scanned, &owner,
                     [this](const QImage& scanned) { heard.images.push_back(scanned.copy()); });
    QObject::connect(session, &Session::failed, &owner,
                     [this](platform::ScanFailure why) { heard.failures.push_back(why); });
}

void ScanTest::setArea(double width, double height)
{
    set(platform::ScanRole::Left, 0);
    set(platform::ScanRole::Top, 0);
    set(platform::ScanRole::Right, width);
    set(platform::ScanRole::Bottom, height);
}

bool ScanTest::waitForEnd()
{
    return QTest::qWaitFor([this] { return !heard.images.empty() || !heard.failures.empty(); },
                           kPatience);
}

bool ScanTest::waitForOptions()
{
    return QTest::qWaitFor([this] { return !heard.options.empty() || !heard.failures.empty(); },
                           kPatience) &&
           heard.failures.empty();
}

void ScanTest::scan(platform::ScanKind kind)
{
    session->scan(kind);
    ASSERT_TRUE(waitForEnd());
}

void ScanTest::expectFailure(platform::ScanFailure why)
{
    EXPECT_TRUE(heard.images.empty());
    ASSERT_EQ(heard.failures.size(), 1U);
    EXPECT_EQ(heard.failures[0], why);
}

std::optional<std::vector<platform::ScannerFacts>> ScanTest::found()
{
    std::optional<std::vector<platform::ScannerFacts>> answer;
    platform::ScannerSearch* search = scanners->search(&owner);
    QObject::connect(search, &platform::ScannerSearch::found, &owner,
                     [&answer](const auto& scannersFound) { answer = scannersFound; });
    QObject::connect(search, &platform::ScannerSearch::failed, &owner,
                     [this](platform::ScanFailure why) { searchFailure = why; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return answer || searchFailure; }, kPatience));
    delete search;
    return answer;
}

QImage ScanTest::scannedByScanimage(const QStringList& arguments)
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(VISTARA_DEFERRED_ENDS));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral("scanimage"),
                  QStringList{QStringLiteral("-d"), QStringLiteral("test:0"),
                              QStringLiteral("--format=pnm")} +
                      arguments);
    EXPECT_TRUE(process.waitForFinished(kPatience));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return imageOfPnm(process.readAllStandardOutput());
}

} // namespace test
