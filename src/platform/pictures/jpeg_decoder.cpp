#include "platform/pictures/jpeg_decoder.h"

#include "platform/pictures/large_image.h"
#include "platform/pictures/orientation.h"

#include <QIODevice>
#include <algorithm>
#include <array>
#include <bit>
#include <csetjmp>
#include <cstdio>
#include <jerror.h>
#include <jpeglib.h>
#include <vector>

namespace platform {

namespace {

constexpr std::size_t kInputBytes = std::size_t(1) << 16;
// Rows that are decoded before the next look at the error state, and placed at once when turned.
constexpr int kBandRows = 16;
// Encoders write about ten scans. A file can hold thousands of empty ones, each of which costs a
// pass over the whole picture.
constexpr int kMostScans = 40;
constexpr unsigned kLargestSegment = 0xFFFF;
constexpr int kEighths = 8;

constexpr J_COLOR_SPACE kPixelOrder =
    std::endian::native == std::endian::little ? JCS_EXT_BGRA : JCS_EXT_ARGB;

quint32 colourOfInk(unsigned cyan, unsigned magenta, unsigned yellow, unsigned black)
{
    const auto mixed = [black](unsigned ink) { return (ink * black + 127U) / 255U; };
    return 0xFF000000U | mixed(cyan) << 16U | mixed(magenta) << 8U | mixed(yellow);
}

// Four ink bytes a pixel become colours in place. What Adobe's programs write is stored as the
// light that each ink leaves, everybody else stores the amount of ink.
void convertInks(quint32* pixels, std::size_t count, bool storesLight)
{
    const unsigned flip = storesLight ? 0U : 255U;
    uchar* inks = reinterpret_cast<uchar*>(pixels);
    for (std::size_t i = 0; i < count; ++i, inks += 4) {
        pixels[i] = colourOfInk(inks[0] ^ flip, inks[1] ^ flip, inks[2] ^ flip, inks[3] ^ flip);
    }
}

} // namespace

// The library reports an error by a call that mustn't return, so every call into it goes through
// guarded(), which such an error leaves by a jump. No object that needs destroying may live
// between.
struct JpegDecoder::State {
    jpeg_decompress_struct info{};
    jpeg_error_mgr errors{};
    jpeg_source_mgr source{};
    jpeg_progress_mgr progress{};
    std::jmp_buf onError{};
    QIODevice* device = nullptr;
    std::array<JOCTET, kInputBytes> input{};
    Orientation orientation;
    bool failed = false;

    explicit State(QIODevice& from);
    ~State() { jpeg_destroy_decompress(&info); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    template<typename Step> bool guarded(Step step)
    {
        if (failed || setjmp(onError) != 0) {
            failed = true;
            return false;
        }
        step();
        return true;
    }

    bool readHeader();
    bool start(QSize stored);
    QImage readPicture();
    // Rows that could be read.
    int readUpright(QImage& image);
    int readTurned(QImage& image);
    int readRows(JSAMPROW* rows, int count);

    static State& of(j_common_ptr info) { return *static_cast<State*>(info->client_data); }
    static void leave(j_common_ptr info) { std::longjmp(of(info).onError, 1); }
    static void stayQuiet(j_common_ptr) {}
    static void ignore(j_decompress_ptr) {}
    static boolean fill(j_decompress_ptr info);
    static void skip(j_decompress_ptr info, long count);
    static void watch(j_common_ptr info);
};

JpegDecoder::State::State(QIODevice& from)
    : device(&from)
{
    info.err = jpeg_std_error(&errors);
    errors.error_exit = leave;
    errors.output_message = stayQuiet;
    info.client_data = this;
    source.init_source = ignore;
    source.fill_input_buffer = fill;
    source.skip_input_data = skip;
    source.resync_to_restart = jpeg_resync_to_restart;
    source.term_source = ignore;
    progress.progress_monitor = watch;
}

// Behind the last byte of the file stands an end marker for ever, so that a short file is decoded
// as far as it goes.
boolean JpegDecoder::State::fill(j_decompress_ptr info)
{
    State& state = of(reinterpret_cast<j_common_ptr>(info));
    const qint64 count =
        state.device->read(reinterpret_cast<char*>(state.input.data()), qint64(kInputBytes));
    if (count <= 0) {
        state.input[0] = 0xFF;
        state.input[1] = JPEG_EOI;
        WARNMS(info, JWRN_JPEG_EOF);
    }
    state.source.next_input_byte = state.input.data();
    state.source.bytes_in_buffer = count > 0 ? std::size_t(count) : 2;
    return TRUE;
}

void JpegDecoder::State::skip(j_decompress_ptr info, long count)
{
    jpeg_source_mgr& source = *info->src;
    auto left = std::size_t(std::max(count, 0L));
    while (left > source.bytes_in_buffer) {
        left -= source.bytes_in_buffer;
        const int warnings = int(info->err->num_warnings);
        fill(info);
        if (info->err->num_warnings != warnings) {
            return;
        }
    }
    source.next_input_byte += left;
    source.bytes_in_buffer -= left;
}

void JpegDecoder::State::watch(j_common_ptr info)
{
    if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > kMostScans) {
        leave(info);
    }
}

bool JpegDecoder::State::readHeader()
{
    const bool read = guarded([this] {
        jpeg_create_decompress(&info);
        info.src = &source;
        info.progress = &progress;
        jpeg_save_markers(&info, JPEG_APP0 + 1, kLargestSegment);
        jpeg_read_header(&info, TRUE);
    });
    if (!read) {
        return false;
    }
    for (const auto* marker = info.marker_list; marker != nullptr; marker = marker->next) {
        const Orientation told = Orientation::fromExif(
            std::as_bytes(std::span(marker->data, std::size_t(marker->data_length))));
        if (!told.isUpright()) {
            orientation = told;
            break;
        }
    }
    return true;
}

// Chooses the fraction for a stored size to cover and reads up to the first row.
bool JpegDecoder::State::start(QSize stored)
{
    const auto covers = [](unsigned natural, unsigned eighths, int wanted) {
        return (std::uint64_t(natural) * eighths + kEighths - 1) / kEighths >=
               std::uint64_t(std::max(wanted, 1));
    };
    unsigned eighths = 1;
    while (eighths < kEighths && !(covers(info.image_width, eighths, stored.width()) &&
                                   covers(info.image_height, eighths, stored.height()))) {
        ++eighths;
    }
    const bool isInk = info.jpeg_color_space == JCS_CMYK || info.jpeg_color_space == JCS_YCCK;
    return guarded([&] {
        info.scale_num = eighths;
        info.scale_denom = kEighths;
        info.out_color_space = isInk ? JCS_CMYK : kPixelOrder;
        info.do_fancy_upsampling = eighths == kEighths ? TRUE : FALSE;
        jpeg_start_decompress(&info);
    });
}

int JpegDecoder::State::readRows(JSAMPROW* rows, int count)
{
    const auto before = info.output_scanline;
    guarded([&] {
        int done = 0;
        while (done < count) {
            done += int(jpeg_read_scanlines(&info, rows + done, JDIMENSION(count - done)));
        }
    });
    return int(info.output_scanline - before);
}

int JpegDecoder::State::readUpright(QImage& image)
{
    const qsizetype line = image.bytesPerLine();
    uchar* bits = image.bits();
    int y = 0;
    while (y < image.height() && !failed) {
        std::array<JSAMPROW, kBandRows> rows{};
        const int count = std::min(kBandRows, image.height() - y);
        for (int i = 0; i < count; ++i) {
            rows[std::size_t(i)] = bits + (y + i) * line;
        }
        y += readRows(rows.data(), count);
    }
    return y;
}

int JpegDecoder::State::readTurned(QImage& image)
{
    const std::size_t width = info.output_width;
    const int height = int(info.output_height);
    const bool isInk = info.out_color_space == JCS_CMYK;
    std::vector<quint32> band(width * kBandRows);
    std::array<JSAMPROW, kBandRows> rows{};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i] = reinterpret_cast<JSAMPROW>(band.data() + i * width);
    }
    int y = 0;
    while (y < height && !failed) {
        const int count = readRows(rows.data(), std::min(kBandRows, height - y));
        if (isInk) {
            convertInks(band.data(), width * std::size_t(count), info.saw_Adobe_marker != 0);
        }
        orientation.placeRows(image, band.data(), y, count);
        y += count;
    }
    return y;
}

QImage JpegDecoder::State::readPicture()
{
    const QSize stored(int(info.output_width), int(info.output_height));
    QImage image = unsetImage(orientation.applied(stored), QImage::Format_RGB32);
    if (image.isNull()) {
        return {};
    }
    const bool direct = orientation.isUpright() && info.out_color_space != JCS_CMYK;
    const int rows = direct ? readUpright(image) : readTurned(image);
    if (rows == 0) {
        return {};
    }
    if (rows < stored.height()) {
        const std::vector<quint32> grey(std::size_t(stored.width()), 0xFF808080U);
        for (int y = rows; y < stored.height(); ++y) {
            orientation.placeRows(image, grey.data(), y, 1);
        }
    }
    return image;
}

JpegDecoder::JpegDecoder(QIODevice& device)
    : m_state(std::make_unique<State>(device))
{
    // A file that ends with its header holds no picture.
    m_state->failed =
        !m_state->readHeader() || (m_state->source.bytes_in_buffer == 0 && device.atEnd());
}

JpegDecoder::~JpegDecoder() = default;

QSize JpegDecoder::naturalSize() const
{
    if (m_state->failed) {
        return {};
    }
    return m_state->orientation.applied(
        QSize(int(m_state->info.image_width), int(m_state->info.image_height)));
}

QImage JpegDecoder::decode(QSize covered)
{
    if (!m_state->start(m_state->orientation.applied(covered))) {
        return {};
    }
    return m_state->readPicture();
}

} // namespace platform
