#include "editing/frames/frame_window.h"

#include "core/picture_display.h"
#include "core/progress_strip.h"
#include "core/services.h"
#include "core/state.h"
#include "core/viewer.h"
#include "core/window_registry.h"
#include "core/working_files.h"
#include "editing/frames/frame_tiles.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/os/paths.h"
#include "platform/pictures/transfers.h"
#include "thumbs/thumbnail_list.h"
#include "widgets/chameleon_button.h"
#include "widgets/slider.h"
#include "widgets/title_strip.h"

#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QTimer>

using core::WorkingFile;
using frames::Composed;
using platform::OnFailure;
using platform::Picture;

namespace {

constexpr base::Colour kProgressColour = 0xE0E0E0;
constexpr base::Colour kProgressBackground = 0x606060;
constexpr base::Colour kStripAtRest = 0xE0E0E0;

// Shows the main window's progress strip while it lives.
class StripHold {
public:
    StripHold()
    {
        if (core::ProgressStrip* strip = core::services().progress) {
            strip->setBackground(kProgressBackground);
            strip->showStrip(true);
        }
    }
    ~StripHold()
    {
        if (core::ProgressStrip* strip = core::services().progress) {
            strip->setBackground(kStripAtRest);
            strip->showStrip(false);
        }
    }
    StripHold(const StripHold&) = delete;
    StripHold& operator=(const StripHold&) = delete;

    static void fill(double fraction)
    {
        if (core::ProgressStrip* strip = core::services().progress) {
            strip->fill(fraction, kProgressColour);
        }
    }
};

// The picture that comes out of a working file; the same one where the file can't be written.
Picture throughFile(WorkingFile file, const Picture& picture)
{
    return core::takenThrough(file, picture, OnFailure::Stop).value_or(picture);
}

// The name of its picture behind what its tiles are named by, as far as there is more.
QString nameOf(const QString& picturePath)
{
    const QString whole = QFileInfo(picturePath).completeBaseName().trimmed();
    const QString rest = whole.mid(frames::styleOf(picturePath).trimmed().size()).trimmed();
    return rest.isEmpty() ? whole : rest;
}

} // namespace

FrmBord::FrmBord()
    : StripWindow(QStringLiteral("Frame"))
    , m_ratio(devicePixelRatioF())
{
    setObjectName(core::windowName(core::Window::FrmBord));
    core::state().FrameWindowOpen = true;
    buildControls();
    takePicture();
    makePreviewSource();
    setUpSlider();
}

void FrmBord::takePicture()
{
    core::PictureDisplay* display = core::services().display;
    if (display == nullptr || display->viewer().Picture().isNothing()) {
        return;
    }
    display->Image1().setPicture(display->viewer().Picture());
    display->viewer().setPicture(throughFile(WorkingFile::BeforeEdit, display->Image1().picture()));
    m_screenPicOri.setPicture(display->viewer().Picture());
}

void FrmBord::makePreviewSource()
{
    const QImage& whole = m_screenPicOri.surface();
    const QSize room = m_preview->size() * m_ratio;
    const QSize size = frames::previewSize(whole.size(), room);
    if (!size.isEmpty()) {
        const Picture reduced(
            platform::stretched(whole, {0, 0, whole.width(), whole.height()}, size));
        m_picOriginal.setPicture(throughFile(WorkingFile::BeforeEdit, reduced));
        m_picRSetMode.setPicture(m_picOriginal.picture());
    }
    showPreview();
}

// The styles are read when the window stands on the screen: reading lets events run.
void FrmBord::showEvent(QShowEvent* event)
{
    StripWindow::showEvent(event);
    if (!m_stylesFilled) {
        m_stylesFilled = true;
        QTimer::singleShot(0, this, &FrmBord::fillStyles);
    }
}

void FrmBord::fillStyles()
{
    const QPointer<FrmBord> alive = this;
    m_list->setPath(frames::stylesFolder());
    if (m_list->path() == frames::stylesFolder()) {
        m_list->Makegallery();
    }
    if (alive != nullptr && m_list->tiles().empty()) {
        m_styleName->setText(QStringLiteral("There are no frames in the program's folder."));
    }
}

void FrmBord::chooseStyle(const QString& picturePath)
{
    m_style = frames::styleOf(picturePath);
    m_styleName->setText(nameOf(picturePath));
    changeThickness();
    redraw();
    m_buttons[0]->setEnabled(true);
}

void FrmBord::changeThickness()
{
    m_picRSetMode.setPicture(m_picOriginal.picture());
    showPreview();
    m_thickness = static_cast<std::int16_t>(m_frameChange->Value());
    m_changeValue->setText(QString::number(m_thickness));
}

void FrmBord::redraw()
{
    DrawFramePreview(m_thickness, m_style);
}

void FrmBord::DrawFramePreview(int thickness, const QString& style)
{
    m_picRSetMode.setPicture(m_picOriginal.picture());
    const frames::FrameMeasures measures = frames::previewMeasures(thickness, m_ratio);
    frames::FrameTiles tiles(style, measures.tile);
    // A preview without all of its tiles stays as far as it came.
    static_cast<void>(frames::drawFrame(m_picRSetMode.surface(), measures, tiles));
    showPreview();
}

void FrmBord::showPreview()
{
    QPixmap pixmap = QPixmap::fromImage(m_picRSetMode.surface());
    pixmap.setDevicePixelRatio(m_ratio);
    m_preview->setPixmap(pixmap);
}

// Works on a picture of its own: under the events that run meanwhile the window may go.
bool FrmBord::DrawFrameFinal(int thickness, const QString& style)
{
    const QPointer<FrmBord> alive = this;
    const StripHold strip;
    QImage framed = m_screenPicOri.surface();
    frames::FrameTiles tiles(style, thickness);
    const Composed outcome =
        frames::drawFrame(framed, frames::finalMeasures(thickness), tiles, [&](double fraction) {
            StripHold::fill(fraction);
            return platform::pump(alive) && alive->isVisible();
        });
    if (outcome == Composed::Stopped) {
        return false;
    }
    m_screenPicObj.setPicture(Picture(framed));
    return true;
}

void FrmBord::apply()
{
    m_buttons[0]->setEnabled(false); // events run while the frame is drawn
    const platform::PointerGuard hourglass;
    if (DrawFrameFinal(m_thickness, m_style)) {
        showResult();
        close();
    }
}

void FrmBord::showResult()
{
    core::PictureDisplay* display = core::services().display;
    if (display == nullptr || m_screenPicObj.picture().isNothing()) {
        return;
    }
    display->Image1().setPicture(display->viewer().Picture());
    // The frame is drawn without an Undo where there is no room for its file.
    static_cast<void>(core::saveAs(WorkingFile::BeforeEdit, display->Image1().picture()));
    if (const auto framed = core::writtenAs(WorkingFile::Picture, m_screenPicObj.drawnImage())) {
        display->viewer().setPicture(*framed);
    }
}

bool FrmBord::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_list && event->type() == QEvent::KeyPress) {
        return m_list->pressTileByKey(static_cast<QKeyEvent*>(event)->key());
    }
    return StripWindow::eventFilter(watched, event);
}

void FrmBord::closeEvent(QCloseEvent* event)
{
    m_list->ResetLoading();
    core::state().FrameWindowOpen = false;
    strip().clearPicture();
    platform::setPointer(platform::Pointer::Default);
    StripWindow::closeEvent(event);
}
