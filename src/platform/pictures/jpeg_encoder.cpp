#include "platform/pictures/jpeg_encoder.h"

#include <algorithm>
#include <bit>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <jpeglib.h>

namespace platform {

namespace {

// Colours keep their full resolution from here on, so that drawings and text look right.
constexpr int kFullColourQuality = 90;

constexpr std::size_t kFirstRoom = std::size_t{64} * 1024;

constexpr J_COLOR_SPACE kPixelOrder =
    std::endian::native == std::endian::little ? JCS_EXT_BGRX : JCS_EXT_XRGB;

} // namespace

// The library reports an error by a call that mustn't return, so every call into it goes through
// guarded(), which such an error leaves by a jump. No object that needs destroying may live
// between.
struct JpegEncoder::State {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    jpeg_destination_mgr destination{};
    std::jmp_buf onError{};
    // The file so far. Memory of C, because it grows below the library.
    unsigned char* file = nullptr;
    std::size_t room = 0;
    std::size_t size = 0;
    bool failed = false;
    bool finished = false;

    ~State()
    {
        jpeg_destroy_compress(&info);
        std::free(file);
    }

    template<typename Step> bool guarded(Step step)
    {
        if (failed || setjmp(onError) != 0) {
            failed = true;
            return false;
        }
        step();
        return true;
    }

    // Makes room behind the bytes that stand and hands it to the library.
    bool grow()
    {
        const std::size_t larger = room == 0 ? kFirstRoom : room * 2;
        void* memory = std::realloc(file, larger);
        if (memory == nullptr) {
            return false;
        }
        file = static_cast<unsigned char*>(memory);
        destination.next_output_byte = file + room;
        destination.free_in_buffer = larger - room;
        room = larger;
        return true;
    }

    static void leave(j_common_ptr info) { std::longjmp(of(info).onError, 1); }
    static void stayQuiet(j_common_ptr) {}
    static void growOrLeave(j_compress_ptr info)
    {
        if (!of(info).grow()) {
            leave(reinterpret_cast<j_common_ptr>(info));
        }
    }
    static boolean takeFullBuffer(j_compress_ptr info)
    {
        growOrLeave(info);
        return TRUE;
    }
    static void takeLastBytes(j_compress_ptr info)
    {
        State& state = of(info);
        state.size = state.room - state.destination.free_in_buffer;
    }

    template<typename Info> static State& of(Info* info)
    {
        return *static_cast<State*>(info->client_data);
    }
};

JpegEncoder::JpegEncoder(const QImage& image, int quality)
    : m_image(image.convertToFormat(QImage::Format_RGB32))
    , m_quality(std::clamp(quality, 1, 100))
    , m_state(std::make_unique<State>())
{
    jpeg_compress_struct& info = m_state->info;
    info.err = jpeg_std_error(&m_state->errors);
    info.client_data = m_state.get();
    m_state->errors.error_exit = State::leave;
    m_state->errors.output_message = State::stayQuiet;
    m_state->destination.init_destination = State::growOrLeave;
    m_state->destination.empty_output_buffer = State::takeFullBuffer;
    m_state->destination.term_destination = State::takeLastBytes;
    const bool fits =
        !m_image.isNull() && m_image.width() <= kLongestSide && m_image.height() <= kLongestSide;
    m_state->failed = !fits;
    m_state->guarded([&] {
        jpeg_create_compress(&info);
        info.dest = &m_state->destination;
        info.image_width = static_cast<JDIMENSION>(m_image.width());
        info.image_height = static_cast<JDIMENSION>(m_image.height());
        info.input_components = 4;
        info.in_color_space = kPixelOrder;
        jpeg_set_defaults(&info);
        jpeg_set_quality(&info, m_quality, TRUE);
        if (m_quality >= kFullColourQuality) {
            info.comp_info[0].h_samp_factor = 1;
            info.comp_info[0].v_samp_factor = 1;
        }
        jpeg_start_compress(&info, TRUE);
    });
}

JpegEncoder::~JpegEncoder() = default;

JpegEncoder::Progress JpegEncoder::encodeRows(int count)
{
    const int end = std::min<int>(m_image.height(), m_nextRow + std::max(count, 1));
    const bool encoded = m_state->guarded([&] {
        for (; m_nextRow < end; ++m_nextRow) {
            // The library only reads the row, though its type doesn't say so.
            JSAMPROW row = const_cast<JSAMPROW>(m_image.constScanLine(m_nextRow));
            jpeg_write_scanlines(&m_state->info, &row, 1);
        }
        if (m_nextRow == m_image.height() && !m_state->finished) {
            jpeg_finish_compress(&m_state->info);
            m_state->finished = true;
        }
    });
    if (!encoded) {
        return Progress::Failed;
    }
    return m_state->finished ? Progress::Done : Progress::MoreRows;
}

bool JpegEncoder::encodeAll()
{
    return encodeRows(m_image.height()) == Progress::Done;
}

std::span<const std::byte> JpegEncoder::bytes() const
{
    if (!m_state->finished) {
        return {};
    }
    return std::as_bytes(std::span(m_state->file, m_state->size));
}

} // namespace platform
