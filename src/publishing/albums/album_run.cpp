#include "publishing/albums/album_run.h"

#include "core/browser_pane.h"
#include "core/constants.h"
#include "core/services.h"
#include "core/settings.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "publishing/albums/album_setup_window.h"
#include "publishing/albums/album_step.h"
#include "thumbs/folder_run.h"
#include "thumbs/pane_thumbnails.h"
#include "thumbs/thumbnail_list.h"
#include "widgets/progress_strip.h"

using albums::AlbumFolders;
using albums::AlbumPlan;

namespace {

// Below the title of every album: whom to write to about the program that made it.
const QString kContactLine = QStringLiteral(R"(<a href="mailto:albums@vistara.example">Email</a>)");

// Marks a list for as long as an album of its folder is made.
class AlbumMark {
public:
    explicit AlbumMark(ThumbNailList& list)
        : m_list(&list)
        , m_before(list.surface().state.isAlbumMade)
    {
        list.surface().state.isAlbumMade = true;
    }
    ~AlbumMark()
    {
        if (m_list != nullptr) {
            m_list->surface().state.isAlbumMade = m_before;
        }
    }
    AlbumMark(const AlbumMark&) = delete;
    AlbumMark& operator=(const AlbumMark&) = delete;

private:
    const QPointer<ThumbNailList> m_list;
    const bool m_before;
};

void takeTexts(thumbs::GalleryState& state, const QString& sideText, const QString& subTitle)
{
    if (!sideText.isEmpty()) {
        state.AlbumSideText = sideText;
    }
    if (!subTitle.isEmpty()) {
        state.AlbumSubTitle = subTitle;
    }
}

void beginAlbum(ThumbNailList& list)
{
    list.surface().Gradient.showStrip(true);
    list.surface().state.IsHtmlRun = true;
}

void giveUp(ThumbNailList& list)
{
    list.surface().Gradient.showStrip(false);
    list.surface().state.IsHtmlRun = false;
}

// In every language. The album is made without what would have gone there.
void tellNotMade(const QString& album)
{
    platform::dialogs().showMessage(QStringLiteral("Kan direcory : ") + album +
                                        QStringLiteral("\nNiet maken"),
                                    core::kProgramName, platform::BoxIcon::None);
}

// The setup window may have to be loaded first, which sets the size of the thumbnails.
AlbumPlan planFor(ThumbNailList& list, const AlbumFolders& folders)
{
    const albums::AlbumSetup setup = albums::albumSetup();
    const thumbs::GalleryState& state = list.surface().state;
    const bool classic = core::setting(core::kClassic);
    AlbumPlan plan;
    plan.folders = folders;
    plan.texts = {setup.title, state.AlbumSubTitle, state.AlbumSideText};
    plan.mode = {list.Language(), classic ? albums::Writing::Plain : albums::Writing::Encoded};
    plan.jpeg = {setup.quality, classic};
    plan.endsAtEscape = !classic;
    return plan;
}

// What the run would have put back if its list were still there.
void giveBackWithoutList()
{
    platform::setPointer(platform::Pointer::Default);
    if (core::ProgressStrip* const strip = core::services().progress) {
        strip->showStrip(false);
    }
}

} // namespace

void MakeHtmlGallery(ThumbNailList& list, const QString& root, const QString& sideText,
                     const QString& subTitle)
{
    const QPointer<ThumbNailList> alive(&list);
    const AlbumMark mark(list);
    beginAlbum(list);
    takeTexts(list.surface().state, sideText, subTitle);
    const AlbumFolders folders = albums::albumFolders(root, list.path());
    if (!platform::makeFolder(folders.web)) {
        giveUp(list);
        return;
    }
    if (!platform::makeFolder(folders.originals)) {
        tellNotMade(folders.album);
        if (alive == nullptr || platform::isClosing()) {
            return;
        }
    }
    albums::AlbumStep step(list, planFor(list, folders));
    thumbs::FolderRun(list, step).run();
    if (alive == nullptr) {
        giveBackWithoutList();
    }
}

void albums::createAlbum()
{
    ThumbNailList* const list = thumbs::paneThumbnails();
    if (list == nullptr || list->path().isEmpty() || list->surface().state.isAlbumMade) {
        return;
    }
    MakeHtmlGallery(*list, platform::drivePrefix(list->path()), {}, kContactLine);
    core::BrowserPane* const pane = core::services().browserPane;
    if (pane != nullptr && !platform::isClosing()) {
        pane->rebuildThumbnails();
    }
}
