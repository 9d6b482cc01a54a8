#include "shell/preferences/options_window.h"

#include "core/constants.h"
#include "core/file_field.h"
#include "core/picture_display.h"
#include "core/services.h"
#include "core/settings.h"
#include "core/thumbnail_entries.h"
#include "core/viewer.h"
#include "core/window_names.h"
#include "files/text_list.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pointer.h"
#include "platform/os/paths.h"
#include "shell/preferences/folder_chooser_window.h"
#include "shell/preferences/thumbnail_choice.h"
#include "widgets/colour_swatch.h"
#include "widgets/scaled_picture.h"

#include <QButtonGroup>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QSlider>
#include <algorithm>
#include <cmath>

namespace {

constexpr int kOwnLookEntry = 1;
constexpr int kStandardEntry = 0;
constexpr base::Colour kResetColour = base::rgb(82, 109, 220);

const QString kSizeText = QStringLiteral("%1 x %1        Pixel");
const QString kClearedText = QStringLiteral("Clear sucess!");

QPixmap previewOf(bool ownLook, double ratio)
{
    const QString name = ownLook ? QStringLiteral("Images/UserInterface.gif")
                                 : QStringLiteral("Images/WindowsStand.gif");
    const auto picture = widgets::ScaledPicture::fromFile(platform::appFile(name));
    return QPixmap::fromImage(picture.forRatio(ratio));
}

QString recentPathsText(qsizetype count)
{
    switch (count) {
    case 0:
        return QStringLiteral("No path is remembered.");
    case 1:
        return QStringLiteral("One path is remembered.");
    default:
        return QStringLiteral("%1 paths are remembered.").arg(count);
    }
}

int nearestSizeEntry(int pixels)
{
    const double entries = static_cast<double>(pixels) / core::kThumbnailSizeStep;
    return static_cast<int>(std::lround(entries)) - 1;
}

} // namespace

OptionsForm::OptionsForm()
    : StripWindow(QStringLiteral("Preferences"))
    , m_thumbnails(std::make_shared<preferences::ThumbnailChoice>())
{
    setObjectName(core::windowName(core::Window::OptionsForm));
    buildControls();
    load();
    connectChanges();
}

OptionsForm::~OptionsForm() = default;

void OptionsForm::load()
{
    const int look = core::setting(core::kOwnLook) ? kOwnLookEntry : kStandardEntry;
    m_looks->button(look)->setChecked(true);
    m_titleColour->setColor(core::setting(core::kTitleColour).value_or(m_titleColour->Color()));
    m_viewerColour->setColor(core::setting(core::kViewerColour).value_or(m_viewerColour->Color()));
    m_specifolder->setText(core::setting(core::kStartFolder));
    loadThumbnails();
    showLook();
    showRecentPaths();
}

void OptionsForm::loadThumbnails()
{
    const auto [least, most] =
        std::pair(m_thumSize.slider->minimum(), m_thumSize.slider->maximum());
    const double size = core::setting(core::kThumbnailSize);
    m_thumSize.slider->setValue(static_cast<int>(std::clamp<double>(size, least, most)));
    m_thumColor.slider->setValue(core::setting(core::kThumbnailColours));
    showSize();
    showColours();
}

// Once the controls are filled, which is no change.
void OptionsForm::connectChanges()
{
    connect(m_looks, &QButtonGroup::idToggled, this, &OptionsForm::showLook);
    connect(m_thumSize.slider, &QSlider::valueChanged, this, &OptionsForm::takeSize);
    connect(m_thumColor.slider, &QSlider::valueChanged, this, &OptionsForm::takeColours);
}

bool OptionsForm::isOwnLook() const
{
    return m_looks->checkedId() == kOwnLookEntry;
}

void OptionsForm::showLook()
{
    m_preview->setPixmap(previewOf(isOwnLook(), devicePixelRatioF()));
    m_titleColour->setEnabled(!isOwnLook());
}

void OptionsForm::showRecentPaths()
{
    m_recentPaths->setText(recentPathsText(files::readPaths(files::kRecentPaths).size()));
}

void OptionsForm::showSize()
{
    m_thumSize.value->setText(kSizeText.arg(m_thumSize.slider->value()));
}

void OptionsForm::showColours()
{
    const auto entry = static_cast<std::size_t>(m_thumColor.slider->value());
    const QString name = QString::fromLatin1(core::kThumbnailColourNames[entry]);
    m_thumColor.value->setText(name);
    m_thumColor.slider->setAccessibleDescription(name);
}

// A drag, and a screen reader, may name a size between two entries.
void OptionsForm::takeSize(int pixels)
{
    const int entry = nearestSizeEntry(pixels);
    const int size = (entry + 1) * core::kThumbnailSizeStep;
    if (size != pixels) {
        m_thumSize.slider->setValue(size);
        return;
    }
    showSize();
    m_thumbnails->chooseSize(entry);
    applySoon();
}

void OptionsForm::takeColours(int entry)
{
    showColours();
    m_thumbnails->chooseColours(entry);
    applySoon();
}

// Lets events run, which may release the mouse and delete this window. So it waits until the
// slider's own handler has returned.
void OptionsForm::applySoon()
{
    QMetaObject::invokeMethod(
        qApp, [thumbnails = m_thumbnails] { thumbnails->apply(); }, Qt::QueuedConnection);
}

// Says so only where nothing is left.
void OptionsForm::clearRecentPaths()
{
    core::store(core::kRecentPathCount, 0);
    files::rewrite(files::kRecentPaths, QString());
    if (core::FileField* field = core::services().field) {
        field->refillRecentPaths();
    }
    showRecentPaths();
    if (files::readPaths(files::kRecentPaths).isEmpty()) {
        platform::dialogs().showMessage(kClearedText, core::kProgramName,
                                        platform::BoxIcon::Information);
    }
}

void OptionsForm::resetViewerColour()
{
    m_viewerColour->setColor(kResetColour);
    core::storeInWords(core::kViewerColour, kResetColour);
}

void OptionsForm::browse()
{
    const platform::PointerGuard hourglass;
    preferences::showFolderChooser(*m_specifolder);
}

void OptionsForm::save()
{
    core::store(core::kViewerColour, m_viewerColour->Color());
    const auto stored = core::setting(core::kViewerColour);
    if (core::PictureDisplay* display = core::services().display; display != nullptr && stored) {
        display->viewer().setBackColor(*stored);
    }
    core::store(core::kOwnLook, isOwnLook());
    if (!isOwnLook()) {
        core::store(core::kTitleColour, m_titleColour->Color());
    }
    core::store(core::kStartFolder, m_specifolder->text());
    close();
}
