#include "editing/scale_window.h"

#include "base/numbers.h"
#include "core/picture_display.h"
#include "core/services.h"
#include "core/state.h"
#include "core/window_names.h"
#include "editing/edit_steps.h"
#include "platform/desktop/pointer.h"
#include "platform/pictures/picture_box.h"
#include "platform/pictures/transforms.h"
#include "widgets/focus_field.h"
#include "widgets/form_builder.h"

#include <QCheckBox>
#include <QLabel>
#include <QSignalBlocker>
#include <cmath>
#include <optional>

namespace {

// Nothing for a text that is no number; fractions are numbers here.
std::optional<double> numberIn(const QLineEdit& field)
{
    bool isNumber = false;
    const double number = field.text().trimmed().toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// Sets one field after a change of the other, which must not answer in turn.
void follow(const QLineEdit& changed, QLineEdit& follower, int ownSide, int otherSide)
{
    const std::optional<double> length = numberIn(changed);
    if (!length) {
        return;
    }
    if (const auto other = editing::proportionalLength(*length, ownSide, otherSide)) {
        const QSignalBlocker quiet(follower);
        follower.setText(QString::number(*other));
    }
}

bool scaleViewerTo(QSize size)
{
    core::PictureDisplay* display = core::services().display;
    if (display == nullptr) {
        return false;
    }
    platform::PictureBox& box = display->Image1();
    const QImage scaled = platform::scaledTo(box.picture().flattened(), size);
    if (scaled.isNull()) {
        return false;
    }
    box.setPicture(platform::Picture(scaled));
    editing::showThroughWorkingFile(*display, box);
    return true;
}

} // namespace

std::optional<int> editing::proportionalLength(double length, int ownSide, int otherSide)
{
    if (ownSide == 0) {
        return std::nullopt;
    }
    return base::narrow32(base::roundHalfEven(length * otherSide / ownSide));
}

Form4::Form4()
    : StripWindow(QStringLiteral("Scale"))
{
    setObjectName(core::windowName(core::Window::Form4));
    buildControls();
    const core::State& state = core::state();
    m_original->setText(
        QStringLiteral("%1 x %2").arg(state.ResizeSourceWidth).arg(state.ResizeSourceHeight));
    m_width->setText(QString::number(state.ResizeSourceWidth));
    m_height->setText(QString::number(state.ResizeSourceHeight));
    m_keepProportions->setChecked(true);
    connect(m_width, &QLineEdit::textChanged, this, &Form4::followWidth);
    connect(m_height, &QLineEdit::textChanged, this, &Form4::followHeight);
}

void Form4::buildControls()
{
    widgets::FormBuilder form(*this);
    m_original = form.addCaptioned(new QLabel("Original size:"), new QLabel, "lblOriginal",
                                   "Size of the picture");
    m_width = form.addCaptioned(form.own(new QLabel("&Width:"), "lblWidth"),
                                new widgets::FocusField, "txtWidth");
    m_height = form.addCaptioned(form.own(new QLabel("&Height:"), "lblHeight"),
                                 new widgets::FocusField, "txtHeight");
    m_keepProportions = form.add(new QCheckBox("&Keep proportions"), "chkKeepProportions");
    form.addButtons({{"cmdOk", "&Ok", [this] { accept(); }, widgets::PressedBy::Return},
                     {"cmdCancel", "&Cancel", [this] { cancel(); }, widgets::PressedBy::Escape}});
}

void Form4::followWidth()
{
    if (m_keepProportions->isChecked()) {
        const core::State& state = core::state();
        follow(*m_width, *m_height, state.ResizeSourceWidth, state.ResizeSourceHeight);
    }
}

void Form4::followHeight()
{
    if (m_keepProportions->isChecked()) {
        const core::State& state = core::state();
        follow(*m_height, *m_width, state.ResizeSourceHeight, state.ResizeSourceWidth);
    }
}

void Form4::accept()
{
    const auto width = base::strictInteger(m_width->text().trimmed().toStdString());
    const auto height = base::strictInteger(m_height->text().trimmed().toStdString());
    if (!width || !height) {
        return;
    }
    const platform::PointerGuard hourglass;
    if (!scaleViewerTo(QSize(*width, *height))) {
        return;
    }
    core::state().ResizeSourceWidth = *width;
    core::state().ResizeSourceHeight = *height;
    core::state().ResizeCancelled = false;
    close();
}

void Form4::cancel()
{
    core::state().ResizeCancelled = true;
    close();
}
