#include "native/native_fixture.h"

#include "core/browser_pane.h"
#include "core/constants.h"
#include "core/services.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "files/explorer/folder_tree.h"
#include "native/hand.h"
#include "platform/desktop/pump.h"
#include "platform/os/delivered_files.h"
#include "platform/os/profile.h"
#include "shell/program.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWindow>

namespace native {

namespace {

constexpr int kGlance = 10; // milliseconds
constexpr int kPatience = 60000;

Form1* mainWindow()
{
    return qobject_cast<Form1*>(core::windows().find(core::Window::Form1));
}

// The tree's event loop is the one that the script has to run in.
bool hasStarted()
{
    const core::BrowserPane* pane = core::services().browserPane;
    return mainWindow() != nullptr && files::folderTree().isOpen() && pane != nullptr &&
           (pane->isFirstFolderShown() || core::state().PictureWide);
}

// On Wayland no window knows where it is, but what its frame takes, and a maximised one ends where
// the screen does.
QPoint innerCorner(const QWidget& window)
{
    if (QGuiApplication::platformName() == QLatin1String("wayland")) {
        const QMargins frame = window.windowHandle()->frameMargins();
        const QSize screen = window.screen()->size();
        return {screen.width() - frame.right() - window.width(),
                screen.height() - frame.bottom() - window.height()};
    }
    return window.mapToGlobal(QPoint(0, 0));
}

} // namespace

void NativeTest::SetUp()
{
    smoke::addSamplePictures(tree);
    settings = {{"BestFit", "0"},           {"ObcBrowse", "1"},
                {"Panview", "1"},           {"Scrollshow", "0"},
                {"fastZoomshow", "1"},      {"InterfaceB", "True"},
                {"BrowserColor", "1"},      {"BrowserSize", "60"},
                {"EditorColor", "3158064"}, {"SpeciFolder", tree.path("pics")}};
}

void NativeTest::run(const std::function<void(Form1&)>& script)
{
    for (const auto& [key, value] : settings) {
        ASSERT_TRUE(
            platform::writeProfile(tree.path("app/config.ini"), core::kConfigSection, key, value));
    }
    platform::seedDeliveredFiles(QStringLiteral(VISTARA_DELIVERED), tree.path("app"));
    core::state() = {};
    platform::resetClosing();
    bool ran = false;
    QTimer poll;
    QElapsedTimer waited;
    waited.start();
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (!hasStarted() && waited.elapsed() < kPatience) {
            return;
        }
        poll.stop();
        if (hasStarted() && (core::state().PictureWide || tilesAppear(*mainWindow()))) {
            ran = true;
            script(*mainWindow());
        }
        if (Form1* open = mainWindow()) {
            open->close();
        }
    });
    poll.start(kGlance);
    shell::runProgram();
    platform::resetClosing();
    EXPECT_TRUE(ran) << "The program never came up.";
}

void NativeTest::inModalWindow(const std::function<void()>& open,
                               const std::function<void(QWidget&)>& work)
{
    bool ran = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        const QPointer<QWidget> window = QApplication::activeModalWidget();
        if (window == nullptr) {
            return;
        }
        poll.stop();
        EXPECT_TRUE(isUp(*window));
        work(*window);
        ran = true;
        if (window != nullptr) {
            window->close();
        }
    });
    poll.start(kGlance);
    open();
    EXPECT_TRUE(smoke::waitUntil([&ran] { return ran; })) << "No modal window came up.";
}

QRect NativeTest::onScreen(const QWidget& part)
{
    return {innerCorner(*part.window()) + part.mapTo(part.window(), QPoint(0, 0)), part.size()};
}

QPoint NativeTest::placeOf(const QWidget& part, QColor colour)
{
    const QRect area = onScreen(part);
    return smoke::boundsOf(smoke::screen(), area, colour).center() - area.topLeft();
}

bool NativeTest::tilesAppear(const Form1& form)
{
    return smoke::waitUntil([&form] {
        const QImage shot = smoke::screen();
        const QRect area = onScreen(tileArea(form));
        for (const QColor& colour : {smoke::kRed, smoke::kGreen, smoke::kBlue}) {
            if (smoke::boundsOf(shot, area, colour).isNull()) {
                return false;
            }
        }
        return true;
    });
}

bool NativeTest::tilesSettle(const Form1& form)
{
    constexpr int kEqualLooks = 20;
    QImage before;
    int equal = 0;
    return tilesAppear(form) && smoke::waitUntil([&] {
               const QImage now = smoke::screen().copy(onScreen(tileArea(form)));
               equal = now == before ? equal + 1 : 0;
               before = now;
               return equal == kEqualLooks;
           });
}

QWidget& NativeTest::pictureArea(const Form1& form)
{
    return part(form, "cpvPicScroll1");
}

QWidget& NativeTest::tileArea(const Form1& form)
{
    return part(form, "ThumbNailList1");
}

QWidget& NativeTest::part(const QWidget& window, const char* name)
{
    auto* found = window.findChild<QWidget*>(QString::fromLatin1(name));
    if (found == nullptr) {
        qFatal("There is no widget %s.", name);
    }
    return *found;
}

bool NativeTest::isUp(const QWidget& window)
{
    const QPointer<const QWidget> alive(&window);
    return smoke::waitUntil([&alive] {
        return alive != nullptr && alive->isVisible() &&
               alive->window()->windowHandle() != nullptr &&
               alive->window()->windowHandle()->isExposed();
    });
}

bool NativeTest::opens(const QMenu& menu)
{
    return smoke::waitUntil([&menu] { return QApplication::activePopupWidget() == &menu; }) &&
           isUp(menu);
}

void NativeTest::openByPath(const Form1& form, const QString& path)
{
    auto& field = dynamic_cast<QLineEdit&>(*part(form, "Xiala").findChild<QLineEdit*>());
    hand::click(field);
    field.selectAll();
    hand::type(field, path);
    hand::key(field, Qt::Key_Return);
}

QString NativeTest::stored(const char* key) const
{
    return platform::readProfile(tree.path("app/config.ini"), core::kConfigSection,
                                 QString::fromLatin1(key), core::kMissingValue);
}

} // namespace native
