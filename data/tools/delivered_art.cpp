#include "delivered_art.h"

#include "avi_writer.h"
#include "badges.h"
#include "files.h"
#include "icon_writer.h"
#include "indexed_picture.h"
#include "svg_drawing.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace tools {

namespace {

namespace fs = std::filesystem;

// Symbols of files whose content isn't read for their tile.
constexpr std::array kTileSymbols{"flashbg", "htmlbg", "mp3bg", "nofbg", "playbg", "vcddvdbg"};

constexpr std::array kSymbolSides{16, 24, 32, 48, 64, 128};
constexpr std::array kProgramSides{16, 24, 32, 48, 64, 128, 256};
constexpr std::array kBadgeSides{16, 24};

struct Scene {
    const char* drawing;
    const char* file; // in the picture folder
    int factor;       // of the size that the drawing states
};

constexpr std::array kScenes{Scene{"splash", "splash.png", 1}, Scene{"splash", "splash@2x.png", 2},
                             Scene{"about", "about.png", 1}, Scene{"about", "about@2x.png", 2}};

constexpr std::array kJpegPictures{
    Scene{"Copyfile", "Copyfile.jpg", 1}, Scene{"Copyfile", "Copyfile@2x.jpg", 2},
    Scene{"Movefile", "Movefile.jpg", 1}, Scene{"Movefile", "Movefile@2x.jpg", 2},
    Scene{"opcolse", "opcolse.jpg", 1},   Scene{"Opcolse-1", "Opcolse-1.jpg", 1}};
constexpr int kJpegQuality = 92;

// Title strips and the pictures of windows that are loaded as GIF files.
constexpr std::array kPalettePictures{Scene{"Titlebar", "Titlebar.gif", 1},
                                      Scene{"UserInterface", "UserInterface.gif", 1},
                                      Scene{"UserInterface", "UserInterface@2x.gif", 2},
                                      Scene{"WindowsStand", "WindowsStand.gif", 1},
                                      Scene{"WindowsStand", "WindowsStand@2x.gif", 2},
                                      Scene{"Search", "Search.gif", 1},
                                      Scene{"Searchgoogle", "Searchgoogle.gif", 1}};

constexpr QSize kClipSize(32, 24);
constexpr int kClipFrames = 24;
constexpr unsigned kClipFramesPerSecond = 10;
constexpr QRgb kClipGround = 0xFFE0E0E0;

// Drawings of a folder in the order of their names, so that every build reads them alike.
std::vector<fs::path> drawingsIn(const fs::path& folder)
{
    std::vector<fs::path> drawings;
    std::error_code missing; // an empty list, which the caller refuses
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, missing)) {
        if (entry.path().extension() == ".svg") {
            drawings.push_back(entry.path());
        }
    }
    std::sort(drawings.begin(), drawings.end());
    return drawings;
}

std::string densityName(const fs::path& drawing, int factor)
{
    const std::string stem = drawing.stem().string();
    return factor == 1 ? stem + ".png" : stem + "@" + std::to_string(factor) + "x.png";
}

bool deliverDensities(const fs::path& drawing, const fs::path& folder, int highest)
{
    for (int factor = 1; factor <= highest; ++factor) {
        const QImage image = drawSvgScaled(drawing, factor);
        if (!writeFile(folder / densityName(drawing, factor), encoded(image, "PNG"))) {
            return false;
        }
    }
    return true;
}

// All drawings of a folder, into the picture folder of the same name.
bool deliverAll(const Folders& folders, const char* name, int highest)
{
    const std::vector<fs::path> drawings = drawingsIn(folders.art / name);
    return !drawings.empty() &&
           std::all_of(drawings.begin(), drawings.end(), [&](const fs::path& drawing) {
               return deliverDensities(drawing, folders.images / name, highest);
           });
}

template<std::size_t Count>
bool deliverIcon(const fs::path& drawing, const std::array<int, Count>& sides, const fs::path& icon)
{
    std::vector<QImage> images;
    images.reserve(Count);
    for (const int side : sides) {
        images.push_back(drawSvg(drawing, QSize(side, side)));
    }
    return writeFile(icon, iconFile(images));
}

bool deliverBadges(const fs::path& folder)
{
    for (const Badge& badge : badges()) {
        std::vector<QImage> images;
        images.reserve(kBadgeSides.size());
        for (const int side : kBadgeSides) {
            images.push_back(drawBadge(badge, side));
        }
        if (!writeFile(folder / (std::string(badge.name) + ".ico"), iconFile(images))) {
            return false;
        }
    }
    return true;
}

std::string drawingName(const char* stem)
{
    return std::string(stem) + ".svg";
}

} // namespace

bool deliverToolbar(const Folders& folders)
{
    return deliverAll(folders, "toolbar", 3);
}

bool deliverExplorer(const Folders& folders)
{
    return deliverAll(folders, "explorer", 6);
}

bool deliverIcons(const Folders& folders)
{
    const bool symbols =
        std::all_of(kTileSymbols.begin(), kTileSymbols.end(), [&folders](const char* name) {
            return deliverIcon(folders.art / "tiles" / drawingName(name), kSymbolSides,
                               folders.images / (std::string(name) + ".ico"));
        });
    const fs::path program = folders.art / "vistara.svg";
    return symbols && deliverBadges(folders.images) &&
           deliverIcon(program, kProgramSides, folders.images / "vistara.ico") &&
           writeFile(folders.images / "vistara.png",
                     encoded(drawSvg(program, QSize(256, 256)), "PNG"));
}

bool deliverCursors(const Folders& folders)
{
    return deliverAll(folders, "cursors", 2);
}

bool deliverScenes(const Folders& folders)
{
    const fs::path drawings = folders.art / "scenes";
    const bool plain = std::all_of(kScenes.begin(), kScenes.end(), [&](const Scene& scene) {
        const QImage image = drawSvgScaled(drawings / drawingName(scene.drawing), scene.factor);
        return writeFile(folders.images / scene.file,
                         encoded(image.convertToFormat(QImage::Format_RGB32), "PNG"));
    });
    const bool jpegs =
        std::all_of(kJpegPictures.begin(), kJpegPictures.end(), [&](const Scene& scene) {
            const QImage image = drawSvgScaled(drawings / drawingName(scene.drawing), scene.factor);
            return writeFile(folders.images / scene.file, jpegFile(image, kJpegQuality));
        });
    return plain && jpegs &&
           std::all_of(kPalettePictures.begin(), kPalettePictures.end(), [&](const Scene& scene) {
               const auto picture =
                   indexed(drawSvgScaled(drawings / drawingName(scene.drawing), scene.factor));
               return picture && writeFile(folders.images / scene.file, gifFile(*picture));
           });
}

bool deliverClip(const Folders& folders)
{
    std::vector<QImage> frames;
    frames.reserve(kClipFrames);
    for (int frame = 0; frame < kClipFrames; ++frame) {
        frames.push_back(drawSvgTurned(folders.art / "scenes" / "aperture.svg", kClipSize,
                                       frame * 360.0 / kClipFrames, kClipGround));
    }
    return writeFile(folders.images / "AviMovie.avi", aviFile(frames, kClipFramesPerSecond));
}

} // namespace tools
