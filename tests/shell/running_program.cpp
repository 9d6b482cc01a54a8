#include "shell/running_program.h"

#include "core/browser_pane.h"
#include "core/services.h"
#include "core/state.h"
#include "files/explorer/folder_tree.h"
#include "platform/desktop/pump.h"
#include "platform/os/file_list.h"
#include "platform/os/profile.h"
#include "platform/pictures/picture_saver.h"
#include "shell/menus.h"
#include "shell/program.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>

namespace {

constexpr int kPatience = 20000; // milliseconds
constexpr int kGlance = 5;

const QString kSection = QStringLiteral("QUILLPOST");

class StubWindow : public QWidget {
public:
    StubWindow(QString name, QStringList& shown)
        : m_name(std::move(name))
        , m_shown(shown)
    {
    }

private:
    void showEvent(QShowEvent* /*event*/) override { m_shown.append(m_name); }

    QString m_name;
    QStringList& m_shown;
};

Form1* mainWindow()
{
    return qobject_cast<Form1*>(core::windows().find(core::Window::Form1));
}

} // namespace

RunningProgram::RunningProgram()
    : tree({{"pics/"}, {"app/Images/"}}, support::TempTree::Medium::Memory)
{
    const struct {
        const char* name;
        int width;
        Qt::GlobalColor colour;
    } pictures[] = {{"a.bmp", 40, Qt::red}, {"b.bmp", 50, Qt::green}, {"c.bmp", 60, Qt::blue}};
    for (const auto& picture : pictures) {
        QImage image(picture.width, 30, QImage::Format_RGB32);
        image.fill(picture.colour);
        EXPECT_TRUE(platform::savePicture(platform::Picture(image),
                                          tree.path(std::string("pics/") + picture.name)));
    }
    config = {{QStringLiteral("SpeciFolder"), tree.path("pics")},
              {QStringLiteral("ObcBrowse"), QStringLiteral("1")},
              {QStringLiteral("Panview"), QStringLiteral("1")},
              {QStringLiteral("Scrollshow"), QStringLiteral("0")},
              {QStringLiteral("fastZoomshow"), QStringLiteral("1")}};
    desktop.area = QRect(0, 0, 1600, 900);
}

RunningProgram::~RunningProgram()
{
    core::windows().onUnload({});
    for (const core::Window window : m_stubs) {
        core::windows().unload(window);
        core::windows().add(window, [] { return nullptr; });
    }
    platform::resetClosing();
    core::state() = {};
}

void RunningProgram::run(const std::function<void(Form1&)>& script)
{
    for (const auto& [key, value] : config) {
        EXPECT_TRUE(platform::writeProfile(tree.path("app/config.ini"), kSection, key, value));
    }
    core::state() = {};
    platform::resetClosing();
    core::windows().onUnload(
        [this](core::Window window) { unloaded.append(core::windowName(window)); });
    bool scriptRan = false;
    QTimer poll;
    QElapsedTimer waited;
    waited.start();
    QObject::connect(&poll, &QTimer::timeout, [&] {
        Form1* form = mainWindow();
        const core::BrowserPane* pane = core::services().browserPane;
        const bool ready = form != nullptr && files::folderTree().isOpen() && pane != nullptr &&
                           (pane->isFirstFolderShown() || !core::state().BrowserShown);
        if (!ready && waited.elapsed() < kPatience) {
            return;
        }
        poll.stop();
        if (ready) {
            scriptRan = true;
            script(*form);
        }
        if (Form1* open = mainWindow()) {
            open->close();
        }
    });
    poll.start(kGlance);
    QTimer modal;
    QObject::connect(&modal, &QTimer::timeout, [this] { serveModal(); });
    modal.start(kGlance);
    shell::runProgram([this](const QString& step) { steps.append(step); });
    EXPECT_TRUE(scriptRan) << "the program never came up";
}

void RunningProgram::serveModal()
{
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr) {
        return;
    }
    modals.append(window->objectName());
    if (onModal) {
        onModal(*window);
    }
    window->close();
}

QString RunningProgram::stored(const char* key) const
{
    return platform::readProfile(tree.path("app/config.ini"), kSection, QString::fromLatin1(key),
                                 QStringLiteral("ERROR"));
}

QString RunningProgram::picture(const char* name) const
{
    return tree.path(std::string("pics/") + name);
}

bool RunningProgram::waitFor(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > kPatience) {
            return false;
        }
        QApplication::processEvents(QEventLoop::AllEvents, kGlance);
    }
    return true;
}

void RunningProgram::stubWindow(core::Window window)
{
    core::windows().add(window,
                        [this, window] { return new StubWindow(core::windowName(window), shown); });
    m_stubs.push_back(window);
}

void RunningProgram::pressKey(Form1& form, int key, Qt::KeyboardModifiers modifiers,
                              const QString& text)
{
    QWidget* viewer = form.findChild<QWidget*>(QStringLiteral("iDst"));
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QApplication::sendEvent(viewer, &event);
    }
}

void RunningProgram::click(QWidget& widget)
{
    const QPointF place(widget.rect().center());
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const bool pressed = type == QEvent::MouseButtonPress;
        QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton,
                          pressed ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }
}

platform::FileList& RunningProgram::File1()
{
    return core::services().browserPane->File1();
}

QAction& RunningProgram::entry(Form1& form, const char* array, int index)
{
    return *form.menus().entry(QString::fromLatin1(array), index);
}

void RunningProgram::trigger(Form1& form, const char* array, int index)
{
    entry(form, array, index).trigger();
}
