#include "thumbs/pane/browser_pane.h"

#include "base/twips.h"
#include "core/browser_pane.h"
#include "core/constants.h"
#include "core/file_field.h"
#include "core/main_menus.h"
#include "core/services.h"
#include "core/settings.h"
#include "core/state.h"
#include "core/thumbnail_entries.h"
#include "core/window_names.h"
#include "core/work_area.h"
#include "files/explorer/folder_tree.h"
#include "platform/os/paths.h"
#include "platform/os/registry.h"
#include "thumbs/pane/pane_splitter.h"
#include "thumbs/thumbnail_list.h"
#include "widgets/chameleon_button.h"
#include "widgets/first_touch.h"
#include "widgets/title_strip.h"

#include <QPointer>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <cmath>

using base::pixelsFromTwips;
using base::twipsFromPixels;

namespace {

constexpr int kFirstFolderButton = 1; // those that go with the folder's files
constexpr int kLastFolderButton = 7;
constexpr int kOtherSizeEntry = 1;
constexpr double kEntryLimit = 1000; // no menu is that long; settings may be any number

// The menu entry for a stored size; sizes that are no multiple of ten have one of their own.
int sizeEntry(double stored)
{
    const double entries = stored / core::kThumbnailSizeStep;
    const bool whole = entries == std::trunc(entries);
    return whole ? static_cast<int>(std::clamp(entries, -kEntryLimit, kEntryLimit)) - 1
                 : kOtherSizeEntry;
}

} // namespace

frmThumbnaillist::frmThumbnaillist(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(core::windowName(core::Window::frmThumbnaillist));
    setAccessibleName("Browser");
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_touch = std::make_unique<widgets::FirstTouch>(*this);
    m_files.setPattern(core::kPicturePattern);
    // Where the files stay when the folder to start with is missing.
    m_files.setPath(platform::appPath());
    m_files.onPathChange([this] { File1_PathChange(); });
    makeParts();
    resize(pixelsFromTwips(thumbs::kPaneDefaultWidth), height());
}

frmThumbnaillist::~frmThumbnaillist()
{
    unloadPane();
}

void frmThumbnaillist::load()
{
    m_title->applyLook();
    core::services().browserPane = this;
    readThumbnailSettings();
}

void frmThumbnaillist::readThumbnailSettings()
{
    if (core::MainMenus* menus = core::services().menus) {
        menus->ThumbNailSize(sizeEntry(core::setting(core::kThumbnailSize)));
        menus->ThumbNailColor(core::setting(core::kThumbnailColours));
    }
}

void frmThumbnaillist::treeSelected(const QString& folder)
{
    core::state().CurrentFolder = folder;
    PathChange();
}

void frmThumbnaillist::activated()
{
    m_activationPending = true;
    startWhenReady();
}

void frmThumbnaillist::applyPath(const QString& folder)
{
    files::FolderTree& tree = files::folderTree();
    if (tree.isOpen()) {
        tree.select(folder);
    } else {
        treeSelected(folder);
    }
}

void frmThumbnaillist::PathChange()
{
    QString folder = core::state().CurrentFolder;
    if (!m_pathKnown) {
        const QString stored = core::setting(core::kStartFolder);
        if (!m_startFolder.isEmpty()) {
            folder = m_startFolder;
        } else if (!stored.isEmpty()) {
            folder = stored;
        }
    }
    m_pathKnown = true;
    m_tileChosen = false;
    const core::FileField* before = core::services().field;
    const QString shownBefore = before == nullptr ? QString() : before->Xiala();
    const QPointer<frmThumbnaillist> alive = this;
    followFolder(folder);
    if (alive == nullptr) {
        return;
    }
    // A file that was shown while the pages were made stays in the field: commands act on it.
    core::FileField* field = core::services().field;
    if (field != nullptr && !m_tileChosen && field->Xiala() == shownBefore) {
        field->setXiala(m_files.path());
    }
    startWhenReady();
}

// The folder that the files stand on at first is no change for them when it is chosen.
void frmThumbnaillist::followFolder(const QString& folder)
{
    const QPointer<frmThumbnaillist> alive = this;
    const bool isReadable = m_files.setPath(folder);
    if (alive != nullptr && isReadable && m_list->path() != m_files.path()) {
        File1_PathChange();
    }
}

void frmThumbnaillist::File1_PathChange()
{
    core::state().FirstActivate = true;
    enableButtons(false);
    if (core::WorkArea* area = core::services().workArea) {
        area->setDir2(m_files.path());
    }
    // Nobody waits for tiles in a hidden pane; they are made when it is shown.
    const bool putOff = !isVisible() && m_list->AutoUpdateOnPathchange();
    m_runWhenShown = m_runWhenShown || putOff;
    if (putOff) {
        m_list->setAutoUpdateOnPathchange(false);
    }
    const QPointer<frmThumbnaillist> alive = this;
    m_list->setPathFrom(m_files);
    if (alive == nullptr) {
        return;
    }
    m_list->setAutoUpdateOnPathchange(true);
    // The folder that holds now: another one may have been chosen while the pages were made.
    const QString folder = m_files.path();
    platform::saveSetting("Locations", "drive", platform::drivePrefix(folder));
    platform::saveSetting("Locations", "Path", folder);
    enableButtons(true);
}

// The first folder is known before the pane may run, and the pane may be active before it is. Most
// desktops have given the window its size by the time it stands on the screen.
void frmThumbnaillist::startWhenReady()
{
    if (m_activationServed || !m_activationPending || !m_pathKnown || !isVisible() ||
        !window()->windowHandle()->isExposed()) {
        return;
    }
    m_activationServed = true;
    QTimer::singleShot(0, this, &frmThumbnaillist::serveFirstActivation);
}

void frmThumbnaillist::serveFirstActivation()
{
    if (!isVisible()) {
        m_activationServed = false;
        return;
    }
    ThumResize();
    const core::FileField* field = core::services().field;
    const QString folder = field == nullptr ? m_files.path() : field->Xiala();
    m_firstFolderShown = true;
    m_runWhenShown = false;
    m_roomChanged = false;
    const QPointer<frmThumbnaillist> alive = this;
    m_list->setAutoUpdateOnPathchange(true); // still off where the folder to start with is missing
    m_list->setPath(folder);
    if (alive == nullptr) {
        return;
    }
    followWindow();
    if (alive == nullptr) {
        return;
    }
    m_firstRunEnded = true;
    enableButtons(false);
    enableButtons(true);
}

// Others have their last word about the size later. Pages that nobody has touched yet are then made
// again for that size, even where it is the one that they were made for: in between they were
// moved.
void frmThumbnaillist::followWindow()
{
    if (m_following) {
        return;
    }
    m_following = true;
    const QPointer<frmThumbnaillist> alive = this;
    while (!m_touch->hasCome() && isVisible() && m_roomChanged) {
        m_roomChanged = false;
        rebuildThumbnails();
        if (alive == nullptr) {
            return;
        }
    }
    m_following = false;
}

void frmThumbnaillist::setSplitterEnabled(bool enabled)
{
    m_splitter->setEnabled(enabled);
}

void frmThumbnaillist::rebuildThumbnails()
{
    if (!m_firstFolderShown) {
        return;
    }
    if (!isVisible()) {
        m_runWhenShown = true;
        return;
    }
    const QString place = m_files.fileName();
    m_files.refresh();
    m_files.select(place);
    m_list->makeGalleryOf(m_files);
}

void frmThumbnaillist::stopThumbnails()
{
    m_list->stopRunningLoop();
}

void frmThumbnaillist::setThumbnailSize(int pixels)
{
    m_list->setThumbNailSize(pixels);
}

void frmThumbnaillist::setColourPreset(int preset)
{
    m_list->setThumbPageColorPresets(preset);
}

int frmThumbnaillist::thumbnailPagesNeeded()
{
    return m_list->ThumbnailPagesNeeded();
}

int frmThumbnaillist::thumbnailsPerPage()
{
    return m_list->ThumbnailsPerPage();
}

int frmThumbnaillist::widthTwips() const
{
    return twipsFromPixels(width());
}

void frmThumbnaillist::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    window()->installEventFilter(this);
    window()->windowHandle()->installEventFilter(this);
    activated();
    if (m_runWhenShown && m_firstFolderShown) {
        m_runWhenShown = false;
        QTimer::singleShot(0, this, &frmThumbnaillist::rebuildThumbnails);
    }
}

void frmThumbnaillist::closeEvent(QCloseEvent* event)
{
    unloadPane();
    QWidget::closeEvent(event);
}

void frmThumbnaillist::unloadPane()
{
    if (core::services().browserPane != this) {
        return;
    }
    m_title->clearPicture();
    m_list->setAutoUpdateOnPathchange(false);
    core::services().browserPane = nullptr;
}

void frmThumbnaillist::enableButtons(bool enabled)
{
    for (int index = kFirstFolderButton; index <= kLastFolderButton; ++index) {
        Tbmenub(index).setEnabled(enabled);
    }
}
