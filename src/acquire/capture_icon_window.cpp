#include "acquire/capture_icon_window.h"

#include "acquire/capture_start.h"
#include "core/window_registry.h"
#include "widgets/form_builder.h"

#include <QPushButton>

using acquire::Leave;

namespace {

const QString kTip = QStringLiteral("Double click to capture image, right click for options!");
const QString kTitle = QStringLiteral("Screen Capture");

std::vector<platform::TrayEntry> trayEntries()
{
    std::vector<platform::TrayEntry> entries;
    for (const auto& [command, caption] : acquire::kCaptureEntries) {
        entries.push_back({command, QString::fromLatin1(caption)});
    }
    return entries;
}

} // namespace

frmCaputreN::frmCaputreN()
    : StripWindow(kTitle)
{
    // The main window, which the others belong to, is minimised while this one is needed.
    setParent(nullptr, windowFlags() | Qt::WindowStaysOnTopHint);
    setObjectName(core::windowName(core::Window::frmCaputreN));
    buildControls();
    addIcon();
}

void frmCaputreN::buildControls()
{
    widgets::FormBuilder form(*this);
    const auto add = [&](const char* caption, const char* name, int command) {
        auto* const button = form.add(new QPushButton(QString::fromLatin1(caption)), name);
        connect(button, &QPushButton::clicked, this, [this, command] { run(command); });
        return button;
    };
    QPushButton* const capture = add("Capture &Image", "cmdImage", acquire::kCaptureImageEntry);
    add("Capture &Web Color", "cmdColor", acquire::kCaptureColourEntry);
    setKeyButtons(capture, add("E&xit", "cmdExit", acquire::kExitEntry));
}

void frmCaputreN::addIcon()
{
    m_icon =
        platform::tray().add({kTip, trayEntries(), [this] { run(acquire::kCaptureImageEntry); },
                              [this](int command) { run(command); }});
}

void frmCaputreN::run(int command)
{
    if (command == acquire::kCaptureImageEntry) {
        acquire::startCapture(this, Leave::Hidden);
    } else if (command == acquire::kCaptureColourEntry) {
        acquire::startColourPicker(this, Leave::Hidden);
    } else if (command == acquire::kExitEntry) {
        core::windows().unload(core::Window::frmCaputreN);
    }
}

void acquire::showCaptureIcon()
{
    const auto* const icon =
        dynamic_cast<frmCaputreN*>(core::windows().load(core::Window::frmCaputreN));
    if (icon != nullptr && !icon->isInTray()) {
        core::windows().show(core::Window::frmCaputreN);
    }
}
