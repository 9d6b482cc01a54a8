#include "editing/jpeg_window.h"

#include "base/numbers.h"
#include "core/window_registry.h"
#include "core/working_files.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/os/files.h"
#include "widgets/form_builder.h"

#include <QLineEdit>
#include <QPointer>
#include <QSlider>
#include <algorithm>

using platform::JpegPreview;

namespace {

constexpr int kFirstQuality = 80;
constexpr int kSliderMaximum = 100;
constexpr int kLargeChange = 5;
constexpr int kPathWidth = 340;
constexpr int kQualityWidth = 60;

} // namespace

void editing::showJpegWindow(const QString& outputPath)
{
    QWidget* const loaded = core::windows().load(core::Window::frmSaveJPGc);
    if (auto* window = qobject_cast<frmSaveJPGc*>(loaded)) {
        window->setOutputPath(outputPath);
        core::windows().show(core::Window::frmSaveJPGc, core::ShowMode::Modal);
    }
}

frmSaveJPGc::frmSaveJPGc()
    : StripWindow(QStringLiteral("JPEG Options"))
    , m_preview(std::make_shared<JpegPreview>(core::workingFile(core::WorkingFile::Save),
                                              core::workingFile(core::WorkingFile::JpegPreview)))
{
    setObjectName(core::windowName(core::Window::frmSaveJPGc));
    buildControls();
    connect(m_slider, &QSlider::valueChanged, this, &frmSaveJPGc::convertAtSlider);
    connect(m_qualitys, &QLineEdit::textChanged, this, &frmSaveJPGc::takeTypedQuality);
    m_slider->setValue(kFirstQuality);
    platform::setPointer(platform::Pointer::Default);
}

void frmSaveJPGc::buildControls()
{
    widgets::FormBuilder form(*this);
    widgets::FormBuilder qualityRow = form.addRow();
    qualityRow.addText("Quality");
    m_qualitys = qualityRow.add(new QLineEdit, "Qualitys", "Quality as a number");
    m_qualitys->setFixedWidth(kQualityWidth);
    qualityRow.addStretch();
    m_slider = form.add(new QSlider(Qt::Horizontal), "Slider1", "Quality");
    m_slider->setRange(0, kSliderMaximum);
    m_slider->setPageStep(kLargeChange);
    m_slider->setSingleStep(1);
    widgets::FormBuilder ends = form.addRow();
    ends.addText("Small File");
    ends.addStretch();
    ends.addText("Big File");
    form.addText("Output Filename");
    m_outputPath = form.add(new QLineEdit, "OutputPath", "Output file name");
    m_outputPath->setMinimumWidth(kPathWidth);
    form.addButtons({{"Command1_0", "&Ok", [this] { accept(); }, widgets::PressedBy::Return},
                     {"Command1_1", "&Cancel", [this] { cancel(); }, widgets::PressedBy::Escape}});
}

void frmSaveJPGc::setOutputPath(const QString& path)
{
    m_outputPath->setText(path);
}

int frmSaveJPGc::quality() const
{
    return std::clamp(m_slider->value(), 1, kSliderMaximum);
}

void frmSaveJPGc::convertAtSlider()
{
    const QPointer<frmSaveJPGc> alive(this);
    const std::shared_ptr<JpegPreview> preview = m_preview;
    // A window that isn't on screen yet has no slider to keep moving.
    const JpegPreview::LetEventsRun letEventsRun =
        isVisible() ? JpegPreview::LetEventsRun([this] { return platform::pump(this); })
                    : JpegPreview::LetEventsRun();
    const JpegPreview::Outcome outcome = preview->request(quality(), letEventsRun);
    if (alive != nullptr && outcome == JpegPreview::Outcome::Converted) {
        // Its own change handling finds the slider there already.
        m_qualitys->setText(QString::number(m_slider->value()));
    }
}

void frmSaveJPGc::takeTypedQuality(const QString& text)
{
    if (const auto number = base::strictInteger(text.toStdString())) {
        m_slider->setValue(*number);
    }
}

void frmSaveJPGc::accept()
{
    m_preview->finishNow();
    const QPointer<frmSaveJPGc> alive(this);
    platform::dialogs().showMessage(m_outputPath->text(), QString(), platform::BoxIcon::None);
    if (alive == nullptr || platform::isClosing()) {
        return;
    }
    const platform::PointerGuard hourglass;
    const int result =
        BMPToJPG(core::workingFile(core::WorkingFile::Save), m_outputPath->text(), quality());
    if ((result & 0xFFFF) == 0) {
        close();
    }
}

void frmSaveJPGc::cancel()
{
    close();
    platform::removeFile(core::workingFile(core::WorkingFile::JpegPreview));
}

void frmSaveJPGc::closeEvent(QCloseEvent* event)
{
    m_preview->stop();
    StripWindow::closeEvent(event);
}
