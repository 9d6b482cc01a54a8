#include "acquire/acquire_window.h"

#include "acquire/picture_source.h"
#include "core/help.h"
#include "core/picture_display.h"
#include "core/services.h"
#include "core/window_names.h"
#include "platform/desktop/clipboard.h"
#include "platform/desktop/pointer.h"
#include "viewer/picture_viewer.h"
#include "widgets/form_builder.h"
#include "widgets/title_strip.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

namespace {

constexpr int kViewerWidth = 480; // pixels
constexpr int kViewerHeight = 360;
constexpr std::int16_t kAnyPixels = 0;

// The three parts of the sentence are labels of their own, which bring their blanks.
QHBoxLayout* instruction(widgets::FormBuilder& form)
{
    auto* sentence = new QHBoxLayout;
    sentence->setSpacing(0);
    sentence->addWidget(form.own(new QLabel("Click on "), "Label1"));
    QLabel* emphasis = form.own(new QLabel("Input"), "Label2");
    QFont font = emphasis->font();
    font.setBold(true);
    emphasis->setFont(font);
    sentence->addWidget(emphasis);
    sentence->addWidget(form.own(new QLabel(" to input you digital picture."), "Label3"));
    sentence->addStretch();
    return sentence;
}

} // namespace

Acquire::Acquire()
    : StripWindow(QStringLiteral("Acquire"))
{
    setObjectName(core::windowName(core::Window::Acquire));
    strip().setObjectName("Picture1");
    buildControls();
    m_viewer->setBestFitMode(true);
    if (core::PictureDisplay* display = core::services().display) {
        m_viewer->setBackColor(display->viewer().BackColor());
    }
    platform::setPointer(platform::Pointer::Default);
}

void Acquire::buildControls()
{
    widgets::FormBuilder form(*this);
    auto* top = new QHBoxLayout;
    content().addLayout(top);
    top->addLayout(instruction(form), 1);
    QPushButton* source = form.own(new QPushButton("&Source..."), "Command1");
    QPushButton* input = form.own(new QPushButton("&Input..."), "Command2");
    top->addWidget(source);
    top->addWidget(input);
    connect(source, &QPushButton::clicked, this, &Acquire::chooseSource);
    connect(input, &QPushButton::clicked, this, &Acquire::acquirePicture);
    m_viewer = form.add(new cpvPicViewer, "cpvPiScroll1", "Acquired picture", 1);
    m_viewer->setHost(this);
    m_viewer->setMinimumSize(kViewerWidth, kViewerHeight);
    form.addButtons({{"Ok", "&Ok", [this] { accept(); }, widgets::PressedBy::Return},
                     {"Cancel", "&Cancel", [this] { close(); }, widgets::PressedBy::Escape},
                     {"Help", "&Help", [] { core::openHelp(); }}});
    input->setFocus();
}

void Acquire::chooseSource()
{
    const QPointer<Acquire> alive = this;
    const int result = acquire::pictureSource().selectImageSource(this);
    if (alive != nullptr) {
        m_lastResult = result;
    }
}

void Acquire::acquirePicture()
{
    const QPointer<Acquire> alive = this;
    const platform::PointerGuard hourglass;
    const int result = acquire::pictureSource().acquireToClipboard(this, kAnyPixels);
    if (alive != nullptr) {
        m_lastResult = result;
        m_viewer->setPicture(platform::clipboardPicture().value_or(platform::Picture()));
    }
}

void Acquire::accept()
{
    if (core::PictureDisplay* display = core::services().display) {
        display->viewer().setPicture(m_viewer->Picture());
    }
    close();
}
