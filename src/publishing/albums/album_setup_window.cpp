#include "publishing/albums/album_setup_window.h"

#include "base/numbers.h"
#include "core/help.h"
#include "core/window_registry.h"
#include "thumbs/pane_thumbnails.h"
#include "thumbs/thumbnail_list.h"
#include "widgets/focus_field.h"
#include "widgets/form_builder.h"
#include "widgets/window_parts.h"

#include <QComboBox>
#include <QLabel>
#include <QShowEvent>
#include <cmath>

namespace {

constexpr int kSizes = 20;
constexpr int kSizeStep = 10;  // pixels
constexpr int kFirstSize = 16; // an entry
constexpr int kMostQuality = 100;
constexpr int kTitleWidth = 260;
const QString kFirstQuality = QStringLiteral("80");
const QString kFirstTitle = QStringLiteral(" Web Page");

QString sizeText(int pixels)
{
    return QStringLiteral("%1 + %1 Pixel").arg(pixels);
}

// An entry counts from 0 and its text from 10, so that each sets ten pixels less than it says.
void setAlbumSize(int entry)
{
    if (ThumbNailList* const thumbnails = thumbs::paneThumbnails()) {
        thumbnails->setHtml_ThumbnailSize(entry * kSizeStep);
    }
}

bool isQuality(const QString& text)
{
    const double value = base::leadingNumber(text.toStdString());
    return !text.isEmpty() && value >= 0 && value <= kMostQuality;
}

} // namespace

albums::AlbumSetup albums::albumSetup()
{
    QWidget* const loaded = core::windows().load(core::Window::frmWebRelease);
    const auto* const window = qobject_cast<frmWebRelease*>(loaded);
    return window != nullptr ? window->setup() : AlbumSetup{};
}

frmWebRelease::frmWebRelease()
    : StripWindow(QStringLiteral("Album Steup..."))
{
    setObjectName(core::windowName(core::Window::frmWebRelease));
    buildControls();
    connect(m_size, &QComboBox::currentIndexChanged, this, &setAlbumSize);
    startFromDefaults();
}

void frmWebRelease::buildControls()
{
    widgets::FormBuilder form(*this);
    m_size = form.addCaptioned(new QLabel("Web Images &Size:"), new QComboBox, "WebSize",
                               "Size of the pictures in the list of an album");
    widgets::nameDropDown(*m_size, m_size->accessibleName());
    for (int k = 1; k <= kSizes; ++k) {
        m_size->addItem(sizeText(k * kSizeStep));
    }
    m_quality = form.addCaptioned(new QLabel("Web Images &Quality:"), new widgets::FocusField,
                                  "WebQuality", "Quality of the pictures, from 0 to 100");
    m_title = form.addCaptioned(new QLabel("Web Page &Title:"), new widgets::FocusField, "WebTitle",
                                "Title of the album");
    m_title->setMinimumWidth(kTitleWidth);
    form.addButtons({{"Ok", "&Ok", [this] { accept(); }, widgets::PressedBy::Return},
                     {"Cancel", "&Cancel", [this] { close(); }, widgets::PressedBy::Escape},
                     {"Help", "&Help", [] { core::openHelp(); }}});
}

void frmWebRelease::startFromDefaults()
{
    m_size->setCurrentIndex(kFirstSize);
    setAlbumSize(kFirstSize);
    m_quality->setText(kFirstQuality);
    m_title->setText(kFirstTitle);
}

albums::AlbumSetup frmWebRelease::setup() const
{
    // The leading digits count and no fraction.
    const auto quality = base::narrow32(
        base::roundHalfEven(std::trunc(base::leadingNumber(m_quality->text().toStdString()))));
    return {m_title->text().trimmed(), quality.value_or(0)};
}

// Stays without a word while the quality is none.
void frmWebRelease::accept()
{
    if (isQuality(m_quality->text())) {
        hide();
    }
}

void frmWebRelease::showEvent(QShowEvent* event)
{
    if (!event->spontaneous()) {
        startFromDefaults();
    }
    StripWindow::showEvent(event);
}
