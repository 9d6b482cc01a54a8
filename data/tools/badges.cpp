#include "badges.h"

#include "pixel_letters.h"

#include <QPainter>
#include <QPainterPath>

#include <array>

namespace tools {

namespace {

constexpr QRgb kBlue = 0xFF2A6BD6;
constexpr QRgb kGreen = 0xFF1C8A57;
constexpr QRgb kViolet = 0xFF7450CF;
constexpr QRgb kAmber = 0xFFC4760C;
constexpr QRgb kCoral = 0xFFCC4230;
constexpr QRgb kSlate = 0xFF55657E;

// Blue for bitmaps, green for photographs, violet for animated and sounding files, amber for
// drawings and symbols, coral for films, slate for what the program decodes itself.
constexpr std::array kBadges{
    Badge{"bmp", "BMP", kBlue},   Badge{"jpg", "JPG", kGreen}, Badge{"gif", "GIF", kViolet},
    Badge{"ico", "ICO", kAmber},  Badge{"wmf", "WMF", kAmber}, Badge{"psd", "PSD", kSlate},
    Badge{"pcx", "PCX", kSlate},  Badge{"tga", "TGA", kSlate}, Badge{"lbm", "LBM", kSlate},
    Badge{"bbm", "BBM", kSlate},  Badge{"html", "HTM", kBlue}, Badge{"swf", "SWF", kCoral},
    Badge{"mpeg", "MPG", kCoral}, Badge{"avi", "AVI", kCoral}, Badge{"asf", "ASF", kCoral},
    Badge{"vcd", "VCD", kCoral},  Badge{"dvd", "DVD", kCoral}, Badge{"mp3", "MP3", kViolet},
    Badge{"noName", "#", kAmber}, Badge{"nof", "?", kSlate},
};

struct Metrics {
    int margin; // around the letters, in pixels
    qreal corner;
};

template<std::size_t Rows, std::size_t Count>
const PixelLetter<Rows>* find(const std::array<PixelLetter<Rows>, Count>& letters, char wanted)
{
    for (const PixelLetter<Rows>& letter : letters) {
        if (letter.letter == wanted) {
            return &letter;
        }
    }
    return nullptr;
}

// Only the corner that points into the tile is round; the others sit in the tile's own corner.
void drawTag(QPainter& painter, QSizeF size, qreal corner, QRgb colour)
{
    QPainterPath tag;
    tag.moveTo(0, 0);
    tag.lineTo(size.width(), 0);
    tag.lineTo(size.width(), size.height() - corner);
    tag.quadTo(size.width(), size.height(), size.width() - corner, size.height());
    tag.lineTo(0, size.height());
    tag.closeSubpath();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(tag.translated(1, 1), QColor(0, 0, 0, 70));
    painter.fillPath(tag, QColor::fromRgba(colour));
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(QRectF(0, 0, size.width(), 1), QColor(255, 255, 255, 60));
}

template<std::size_t Rows, std::size_t Count>
QImage drawLabel(const Badge& badge, int side, const Metrics& metrics,
                 const std::array<PixelLetter<Rows>, Count>& letters)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QImage text(image.size(), image.format());
    text.fill(Qt::transparent);
    int x = metrics.margin;
    for (const char* character = badge.label; *character != '\0'; ++character) {
        const PixelLetter<Rows>* letter = find(letters, *character);
        if (letter == nullptr) {
            continue;
        }
        for (std::size_t row = 0; row < Rows; ++row) {
            for (std::size_t column = 0; column < letter->rows[row].size(); ++column) {
                if (letter->rows[row][column] == '#') {
                    text.setPixel(x + static_cast<int>(column),
                                  metrics.margin + static_cast<int>(row), 0xFFFFFFFF);
                }
            }
        }
        x += static_cast<int>(letter->rows[0].size()) + 1;
    }
    QPainter painter(&image);
    const QSizeF tag(x - 1 + metrics.margin, static_cast<int>(Rows) + 2 * metrics.margin);
    drawTag(painter, tag, metrics.corner, badge.colour);
    painter.drawImage(0, 0, text);
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

std::span<const Badge> badges()
{
    return kBadges;
}

QImage drawBadge(const Badge& badge, int side)
{
    if (side < 24) {
        return drawLabel(badge, side, {2, 3}, kSmallLetters);
    }
    return drawLabel(badge, side, {3, 4}, kLargeLetters);
}

} // namespace tools
