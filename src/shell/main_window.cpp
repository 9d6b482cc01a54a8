#include "shell/main_window.h"

#include "base/twips.h"
#include "core/browser_pane.h"
#include "core/constants.h"
#include "core/picture_required.h"
#include "core/services.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "files/display_pipeline.h"
#include "files/text_list.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/pointer.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_loader.h"
#include "shell/commands.h"
#include "shell/cool_bar.h"
#include "shell/file_name_field.h"
#include "shell/kept_maximised.h"
#include "shell/menus.h"
#include "shell/side_activation.h"
#include "shell/status_bar.h"
#include "shell/toolbars.h"
#include "viewer/picture_viewer.h"
#include "viewer/zoom_tool_window.h"
#include "widgets/avi.h"
#include "widgets/chameleon_button.h"
#include "widgets/first_touch.h"
#include "widgets/key_codes.h"
#include "widgets/progress_strip.h"

#include <QAction>
#include <QCursor>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QPushButton>
#include <QTimer>

namespace {

constexpr int kFirstFavourite = 1; // indexes of the entries that lists add to their menus
constexpr int kFirstEditor = 4;
constexpr int kSlideButton = 7;

void showFavouriteAt(Form1& form, int place)
{
    form.showFavourite(place);
}

void startEditorAt(Form1& form, int place)
{
    form.startListedEditor(place);
}

} // namespace

Form1::Form1()
{
    setObjectName(core::windowName(core::Window::Form1));
    setWindowTitle(core::kProgramName);
    setAccessibleName(core::kProgramName);
    takeRoles();
    m_touch = std::make_unique<widgets::FirstTouch>(*this);
    m_maximised = std::make_unique<shell::KeptMaximised>(*this);
    buildControls();
}

void Form1::watchPane(QWidget* pane, std::function<void()> paneActive)
{
    m_activation->setPane(pane, std::move(paneActive));
}

void Form1::takeRoles()
{
    core::Services& services = core::services();
    services.display = this;
    services.field = this;
    services.menus = this;
    services.workArea = this;
}

Form1::~Form1()
{
    core::Services& services = core::services();
    if (services.display != this) {
        return;
    }
    services.display = nullptr;
    services.field = nullptr;
    services.menus = nullptr;
    services.progress = nullptr;
    services.workArea = nullptr;
}

void Form1::buildControls()
{
    m_menus = std::make_unique<shell::Menus>(
        *this, [this](const shell::MenuRow& row) { runCommand(row.need, row.run, row.index); });
    m_client = new QWidget(this);
    m_client->setObjectName(QStringLiteral("workArea"));
    m_viewer = new cpvPicViewer(m_client);
    m_viewer->setObjectName(QStringLiteral("cpvPicScroll1"));
    m_viewer->setAccessibleName(QStringLiteral("Picture"));
    m_coolBar = new shell::CoolBar(m_client);
    m_toolbars = std::make_unique<shell::Toolbars>(
        *m_coolBar,
        [this](const shell::ButtonRow& row) { runCommand(row.need, row.run, row.index); },
        [this](const shell::KeyButtonRow& row) { runCommand(row.need, row.run, shell::kNoIndex); });

    m_coolBar->setBand(shell::CoolBar::Band::Commands, m_toolbars->commands());
    buildFieldBand();
    m_coolBar->setBand(shell::CoolBar::Band::Keys, m_toolbars->keys());
    connect(m_coolBar, &shell::CoolBar::heightChanged, this, [this] {
        if (core::state().BrowserShown && core::services().browserPane != nullptr) {
            core::services().browserPane->ThumResize();
        }
    });
    m_aviHost = new QWidget(m_coolBar);
    m_aviHost->setObjectName(QStringLiteral("AviHost"));
    m_aviHost->setAccessibleName(QStringLiteral("Animation"));
    m_aviHost->resize(kAviSize);

    buildStrip();

    m_pipeline = std::make_unique<files::DisplayPipeline>();
    m_activation = std::make_unique<shell::SideActivation>(*this, [this] { becameActive(); });
    connectViewer();
    connectColourMenu();
}

void Form1::buildFieldBand()
{
    m_fieldBand = new QWidget(m_coolBar);
    m_fieldBand->setObjectName(QStringLiteral("Band2"));
    auto* row = new QHBoxLayout(m_fieldBand);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    m_xiala = new shell::FileNameField(m_fieldBand);
    auto* go = new QPushButton(QStringLiteral("Go"), m_fieldBand);
    go->setObjectName(QStringLiteral("goEnter"));
    go->setAccessibleName(QStringLiteral("Open the file named in the field"));
    go->setFixedWidth(44);
    row->addWidget(m_xiala, 1);
    row->addWidget(go);
    connect(m_xiala, &shell::FileNameField::entered, this,
            [this] { openFromField(&Form1::goEnter); });
    connect(m_xiala, &shell::FileNameField::chosen, this,
            [this] { openFromField(&Form1::clickXiala); });
    connect(go, &QPushButton::clicked, this, [this] { openFromField(&Form1::goEnter); });
    m_coolBar->setBand(shell::CoolBar::Band::FileName, m_fieldBand);
}

void Form1::buildStrip()
{
    m_picture4 = new QWidget(m_client);
    m_picture4->setObjectName(QStringLiteral("Picture4"));
    m_stateBar = new shell::PanelBar(m_picture4);
    m_stateBar->setObjectName(QStringLiteral("StateBar"));
    m_gradient = new widgets::ProgressStrip(m_picture4);
    m_gradient->setObjectName(QStringLiteral("Gradient"));
    m_gradient->setAccessibleName(QStringLiteral("Progress"));
    core::services().progress = m_gradient;
}

void Form1::connectViewer()
{
    m_viewer->setHost(this);
    connectKeys();
    const auto pressed = [this](int button) {
        if (button == widgets::kRightButton) {
            openRightMenu(QCursor::pos());
        }
    };
    connect(m_viewer, &cpvPicViewer::MouseDown, this, pressed);
    connect(m_viewer, &cpvPicViewer::MouseDownBack, this, pressed);
    connect(m_viewer, &cpvPicViewer::Zoom, this, [this] {
        m_stateBar->setPanel(core::Panel::Zoom, viewer::zoomReadout(m_viewer->ZoomFactor()));
    });
}

void Form1::connectColourMenu()
{
    // Opening the submenu keeps the picture for Undo, as every entry of the Image menu does first.
    // A box can't open over an open menu, so it waits until that has gone.
    const QMenu* menu = m_menus->menu(QStringLiteral("optColor"));
    connect(menu, &QMenu::aboutToShow, this, [this] {
        if (m_viewer->PictureExists()) {
            shell::commands::editImage(*this, 0);
        }
    });
    connect(menu, &QMenu::aboutToHide, this, [this] {
        if (!m_viewer->PictureExists()) {
            QTimer::singleShot(0, this, &core::reportNoPicture);
        }
    });
}

void Form1::runCommand(shell::Need need, shell::Handler handler, int index)
{
    if (m_unloaded) {
        return;
    }
    platform::setPointer(platform::Pointer::HourGlass);
    const bool canRun = need == shell::Need::Nothing || core::requirePicture(viewer());
    if (canRun && handler != nullptr) {
        handler(*this, index);
    }
    if (!m_unloaded) {
        m_viewer->giveFocus();
    }
    platform::setPointer(platform::Pointer::Default);
}

QWidget* Form1::showWindow(core::Window window, bool modal)
{
    if (!core::windows().hasFactory(window)) {
        return nullptr;
    }
    return core::windows().show(window, modal ? core::ShowMode::Modal : core::ShowMode::Modeless);
}

void Form1::addRecentPath(const QString& path)
{
    files::addPath(files::kRecentPaths, path);
    refillRecentPaths();
}

void Form1::refillListMenus()
{
    refillFavourites();
    refillEditors();
}

void Form1::refillRecentPaths()
{
    m_xiala->setRecentPaths(files::readPaths(files::kRecentPaths));
}

void Form1::refillFavourites()
{
    m_listPath.clear();
    QStringList names;
    for (const auto& [name, path] : files::readNamed(files::kFavourites)) {
        names.append(name);
        m_listPath.append(path);
    }
    const QString menu = QStringLiteral("mnuFav");
    m_menus->setListEntries(menu, menu, kFirstFavourite, names, [this](int index) {
        runCommand(shell::Need::Nothing, &showFavouriteAt, index - kFirstFavourite + 1);
    });
}

void Form1::refillEditors()
{
    QStringList names;
    for (const auto& [name, path] : files::readNamed(files::kEditors)) {
        names.append(name);
    }
    const QString menu = QStringLiteral("Dip");
    m_menus->setListEntries(menu, menu, kFirstEditor, names, [this](int index) {
        runCommand(shell::Need::Picture, &startEditorAt, index - kFirstEditor + 1);
    });
}

// A favourite that is no picture, such as a folder, leaves the viewer as it was.
void Form1::showFavourite(int place)
{
    if (const auto picture = platform::loadPicture(m_listPath.value(place - 1))) {
        m_viewer->setPicture(*picture);
    }
}

void Form1::setMenuState(bool enabled)
{
    struct Block {
        const char* array;
        std::initializer_list<int> indexes;
    };
    const Block blocks[] = {
        {"optView", {0, 1, 12, 13, 15}}, {"optEdit", {0, 2, 4, 5, 7, 8, 10}}, {"optTools", {0, 1}}};
    for (const Block& block : blocks) {
        for (const int index : block.indexes) {
            m_menus->entry(QString::fromLatin1(block.array), index)->setEnabled(enabled);
        }
    }
    for (const int index : {5, 6, 7, 8, 10, 11}) {
        m_toolbars->button(index)->setEnabled(enabled);
    }
}

void Form1::popUpFolderTools(const QPoint& screenPosition)
{
    m_menus->menu(QStringLiteral("optToolsFile"))->popup(screenPosition);
}

void Form1::pressSlideButton(bool pressed)
{
    m_toolbars->button(kSlideButton)->setValue(pressed);
}

void Form1::setDir2(const QString& folder)
{
    m_dir2 = folder;
}

void Form1::rebuildSizeText()
{
    SizeText = QStringLiteral("Size: ") + QString::number(m_viewer->PictureWidth()) +
               QLatin1Char('x') + QString::number(m_viewer->PictureHeight());
}

void Form1::Propers(const QString& path)
{
    platform::setPointer(platform::Pointer::Default);
    platform::desktop().showProperties(path, this);
}

QString Form1::Xiala() const
{
    return m_xiala->currentText();
}

void Form1::setXiala(const QString& text)
{
    m_xiala->setEditText(text);
}

core::Viewer& Form1::viewer()
{
    return *m_viewer;
}

core::StatusBar& Form1::StateBar()
{
    return *m_stateBar;
}

bool Form1::isChecked(const char* array, int index) const
{
    return m_menus->entry(QString::fromLatin1(array), index)->isChecked();
}

void Form1::setChecks(const char* first, int firstIndex, const char* second, int secondIndex,
                      bool on)
{
    m_menus->entry(QString::fromLatin1(first), firstIndex)->setChecked(on);
    if (second != nullptr) {
        m_menus->entry(QString::fromLatin1(second), secondIndex)->setChecked(on);
    }
}
