#include "core/working_files.h"

#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/picture_saver.h"

#include <array>
#include <cstddef>

namespace core {

namespace {

enum class AtEnd { Goes, Stays }; // when the program ends

struct WorkingFileRow {
    WorkingFile file;
    const char* name;
    AtEnd atEnd;
};

// In the order of the files. The last two stay only where their command couldn't come to its end.
constexpr std::array kRows{
    WorkingFileRow{WorkingFile::BeforeEdit, "Frametemp.bmp", AtEnd::Goes},
    WorkingFileRow{WorkingFile::Picture, "temp.bmp", AtEnd::Goes},
    WorkingFileRow{WorkingFile::Unwritten, "Temp2.bmp", AtEnd::Goes},
    WorkingFileRow{WorkingFile::Transform, "Images/Temp.bmp", AtEnd::Goes},
    WorkingFileRow{WorkingFile::Save, "saveTemp.bmp", AtEnd::Stays},
    WorkingFileRow{WorkingFile::JpegPreview, "saveJpgTemp.jpg", AtEnd::Stays},
    WorkingFileRow{WorkingFile::AlbumPage, "Tmp.bmp", AtEnd::Stays},
    WorkingFileRow{WorkingFile::Wallpaper, "Wallpaper.bmp", AtEnd::Stays},
};

constexpr bool standInOrder()
{
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        if (kRows[i].file != static_cast<WorkingFile>(i)) {
            return false;
        }
    }
    return kRows.back().file == WorkingFile::Wallpaper;
}
static_assert(standInOrder());

} // namespace

QString workingFile(WorkingFile file)
{
    return platform::appFile(QString::fromLatin1(kRows[static_cast<std::size_t>(file)].name));
}

bool saveAs(WorkingFile file, const platform::Picture& picture)
{
    return platform::savePicture(picture, workingFile(file));
}

std::optional<platform::Picture> takenThrough(WorkingFile file, const platform::Picture& picture,
                                              platform::OnFailure onFailure)
{
    if (!saveAs(file, picture) && onFailure == platform::OnFailure::Stop) {
        return std::nullopt;
    }
    return platform::loadPicture(workingFile(file));
}

std::optional<platform::Picture> writtenAs(WorkingFile file, const platform::Picture& picture)
{
    const platform::Picture plain(picture.flattened());
    return saveAs(file, plain) ? std::optional(plain) : std::nullopt;
}

void removeWorkingFiles()
{
    for (const WorkingFileRow& row : kRows) {
        if (row.atEnd == AtEnd::Goes) {
            platform::removeFile(workingFile(row.file));
        }
    }
}

} // namespace core
