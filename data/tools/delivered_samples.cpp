#include "delivered_samples.h"

#include "delivered_art.h"
#include "files.h"
#include "icon_writer.h"
#include "indexed_picture.h"
#include "metafile_writers.h"
#include "poster.h"
#include "sample_writers.h"
#include "scenes.h"
#include "svg_drawing.h"

#include <QTransform>

#include <vector>

namespace tools {

namespace {

namespace fs = std::filesystem;

constexpr int kPhotoQuality = 88;
constexpr unsigned kTurnClockwise = 6;

bool deliverPhotographs(const fs::path& folder)
{
    // As a camera held upright stores it: lying on its side, with a note.
    const QImage lying = moonOverTheSea().transformed(QTransform().rotate(-90));
    return writeFile(folder / "Mountain dawn.jpg", jpegFile(mountainDawn(), kPhotoQuality)) &&
           writeFile(folder / "Lavender rows.jpg", jpegFile(lavenderRows(), kPhotoQuality)) &&
           writeFile(folder / "Birch wood.jpg", jpegFile(birchWood(), kPhotoQuality)) &&
           writeFile(folder / "Moon over the sea.jpg",
                     withOrientation(jpegFile(lying, kPhotoQuality), kTurnClockwise)) &&
           writeFile(folder / "Poppy field.bmp", encoded(poppyField(), "BMP"));
}

bool deliverTrueColour(const fs::path& folder)
{
    return writeFile(folder / "City at night.psd", psdFile(cityAtNight())) &&
           writeFile(folder / "Ringed planet.tga", tgaFile(ringedPlanet())) &&
           writeFile(folder / "Northern lights.pcx", pcxFile(northernLights())) &&
           writeFile(folder / "Sunset over hills.tif", tiffFile(paperHills()));
}

bool deliverIndexed(const fs::path& folder)
{
    const auto glass = indexed(stainedGlass());
    const auto dunes = indexed(desertDunes());
    const auto fruit = indexed(bowlOfFruit());
    const auto circles = indexed(circlesAndLines());
    return glass && dunes && fruit && circles &&
           writeFile(folder / "Stained glass.gif", gifFile(*glass)) &&
           writeFile(folder / "Desert dunes.pcx", pcxFile(*dunes)) &&
           writeFile(folder / "Bowl of fruit.lbm", iffFile(*fruit)) &&
           writeFile(folder / "Circles and lines.bbm", iffFile(*circles));
}

bool deliverSymbols(const fs::path& art, const fs::path& folder)
{
    std::vector<QImage> compass;
    for (const int side : {16, 32, 48, 128}) {
        compass.push_back(drawSvg(art / "samples" / "compass.svg", QSize(side, side)));
    }
    const QImage pencil = drawSvg(art / "samples" / "pencil.svg", QSize(32, 32));
    return writeFile(folder / "Compass.ico", iconFile(compass)) &&
           writeFile(folder / "Pencil.cur", cursorFile(pencil, QPoint(2, 29)));
}

} // namespace

bool deliverSamples(const Folders& folders)
{
    return deliverPhotographs(folders.samples) && deliverTrueColour(folders.samples) &&
           deliverIndexed(folders.samples) && deliverSymbols(folders.art, folders.samples) &&
           writeFile(folders.samples / "Sailing boat.wmf", wmfFile(sailingBoat())) &&
           writeFile(folders.samples / "Up in balloons.emf", emfFile(hotAirBalloons()));
}

} // namespace tools
