#pragma once

#include "core/progress_strip.h"
#include "platform/os/file_list.h"
#include "publishing/albums/album_names.h"
#include "publishing/albums/album_run_pages.h"
#include "publishing/albums/album_run_pictures.h"
#include "publishing/albums/album_run_texts.h"
#include "publishing/albums/scratch_page.h"
#include "thumbs/folder_step.h"
#include "thumbs/loaded_picture.h"

#include <QPointer>
#include <QShortcut>
#include <vector>

class ThumbNailList;

namespace albums {

// The strip of the list and the main window's as one, of which either may go.
class RunStrips : public core::ProgressStrip {
public:
    explicit RunStrips(ThumbNailList& list)
        : m_list(&list)
    {
    }

    void showStrip(bool visible) override;
    void setBackground(base::Colour colour) override;
    void fill(double fraction, base::Colour colour) override;

private:
    [[nodiscard]] std::vector<core::ProgressStrip*> strips() const;

    QPointer<ThumbNailList> m_list;
};

// What an album is made with; it holds for the whole run.
struct AlbumPlan {
    AlbumFolders folders;
    MasterTexts texts;
    PageMode mode;
    JpegWay jpeg;
    bool endsAtEscape = true; // with the files done so far
};

// The album's step: a thumbnail, a full picture and a row of the master page for every file, and
// when there are no more, the pages. It stays with the files of the folder that it began with, so
// that the user may look at others meanwhile. A cancel gives the album of the files done so far.
class AlbumStep : public thumbs::FolderStep {
public:
    AlbumStep(ThumbNailList& list, AlbumPlan plan);
    // Nothing is left behind but the album, and this is whole even where the list has gone.
    ~AlbumStep() override;

    [[nodiscard]] thumbs::HostHold hold() const override;
    [[nodiscard]] const platform::FileList* files() const override { return &m_files; }
    [[nodiscard]] core::ProgressStrip* strip() const override;
    std::optional<int> begin() override;
    [[nodiscard]] bool takes(const thumbs::FileInRun& file) const override;
    [[nodiscard]] bool needsPicture(const thumbs::FileInRun& file) const override;
    [[nodiscard]] std::optional<QSize> tileRoom() const override;
    [[nodiscard]] std::optional<QString> barText(const thumbs::FileInRun& file) const override;
    void makeReadyToLoad() override;
    void make(const thumbs::FileInRun& file) override;
    [[nodiscard]] bool workOn() override;
    void end() override;
    [[nodiscard]] std::optional<QString> closingText(int index, int count) const override;
    void finished() override;

private:
    [[nodiscard]] NameRules nameRules() const;
    void watchEscape();
    void drawThumbnail();
    void saveThumbnail(const AlbumNames& names);
    void saveFullPicture(const thumbs::FileInRun& file, const AlbumNames& names);
    void addRow(const thumbs::FileInRun& file, const AlbumNames& names);
    void showStage(RunStage stage, int number, int count);
    void clearAway();

    ThumbNailList& m_list;
    QPointer<ThumbNailList> m_alive;
    const platform::FileList m_files;
    const JpegWay m_jpeg;
    const bool m_endsAtEscape;
    AlbumRunPages m_pages;
    int m_pagesWritten = 0;
    thumbs::LoadedPicture m_loaded = {{}, {0, 0}}; // of the file before, whatever other runs load
    mutable RunStrips m_strips;
    // Children of others, and gone with them.
    QPointer<ScratchPage> m_scratch;
    QPointer<QShortcut> m_escape;
};

} // namespace albums
