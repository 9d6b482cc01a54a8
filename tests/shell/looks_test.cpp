#include "base/twips.h"
#include "core/constants.h"
#include "core/status_bar.h"
#include "platform/os/paths.h"
#include "shell/menus.h"
#include "shell/running_program.h"
#include "shell/toolbars.h"
#include "viewer/picture_viewer.h"
#include "widgets/chameleon_button.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

namespace {

constexpr QRgb kMenuGrey = 0xFFE0E0E0;

constexpr std::array kSmallWindows{
    core::Window::frmMailSender, core::Window::frmConfig,   core::Window::frmAbout,
    core::Window::frmMsg,        core::Window::fastZoom,    core::Window::Favorties,
    core::Window::FavortiesModi, core::Window::frmSaveJPGc, core::Window::FrmSwitch,
    core::Window::Form4,         core::Window::Form5rf,     core::Window::Movefile,
    core::Window::OptionsForm,   core::Window::FilePreivew, core::Window::FrmBord,
    core::Window::frmWebRelease,
};

QPalette darkPalette()
{
    QPalette palette(QColor(0x31, 0x36, 0x3B), QColor(0x2A, 0x2E, 0x32));
    palette.setColor(QPalette::Base, QColor(0x1B, 0x1E, 0x20));
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::ButtonText, Qt::white);
    return palette;
}

// The application's palette for the length of a test.
class ScopedPalette {
public:
    explicit ScopedPalette(const QPalette& palette)
        : m_before(QApplication::palette())
    {
        QApplication::setPalette(palette);
    }
    ~ScopedPalette() { QApplication::setPalette(m_before); }

private:
    QPalette m_before;
};

QImage painted(QWidget& widget)
{
    widget.ensurePolished();
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

// The share of a widget's pixels that have a colour.
double shareOf(const QImage& image, QRgb colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixel(x, y) == colour ? 1 : 0;
        }
    }
    return static_cast<double>(count) / (image.width() * image.height());
}

void expectGreyMenus(Form1& form)
{
    EXPECT_GT(shareOf(painted(*form.menus().bar()), kMenuGrey), 0.8);
    const QList<QMenu*> menus = form.findChildren<QMenu*>();
    EXPECT_GT(menus.size(), 10);
    for (QMenu* menu : menus) {
        if (menu->isEmpty()) {
            continue;
        }
        menu->resize(menu->sizeHint());
        const QImage image = painted(*menu);
        EXPECT_GT(shareOf(image, kMenuGrey), 0.6) << menu->objectName().toStdString();
        EXPECT_EQ(image.pixel(3, 2), kMenuGrey) << menu->objectName().toStdString();
    }
}

QRect onScreen(const QWidget& widget)
{
    return {widget.mapToGlobal(QPoint()), widget.size()};
}

// Each text of a window that has less room than it needs.
QStringList clippedTexts(const QWidget& window)
{
    QStringList clipped;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        const QString text =
            label->buddy() == nullptr ? label->text() : label->text().remove(QLatin1Char('&'));
        if (!label->isHidden() && !label->wordWrap() &&
            label->width() < label->fontMetrics().horizontalAdvance(text)) {
            clipped += text;
        }
    }
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        const QString text = QString(button->text()).remove(QLatin1Char('&'));
        if (!button->isHidden() && !text.isEmpty() &&
            button->width() < button->fontMetrics().horizontalAdvance(text)) {
            clipped += text;
        }
    }
    return clipped;
}

class LooksTest : public testing::Test {
protected:
    RunningProgram program;
};

} // namespace

TEST_F(LooksTest, PaintsTheMenuBarAndAllMenusInOneGrey)
{
    program.run([](Form1& form) { expectGreyMenus(form); });
}

TEST_F(LooksTest, KeepsTheMenusGreyInADarkTheme)
{
    const ScopedPalette dark(darkPalette());
    program.run([](Form1& form) { expectGreyMenus(form); });
}

TEST_F(LooksTest, KeepsTheMenusGreyWhenTheThemeChanges)
{
    program.run([](Form1& form) {
        const ScopedPalette dark(darkPalette());
        QApplication::processEvents();
        expectGreyMenus(form);
    });
}

TEST_F(LooksTest, OpensThePanViewInsideTheViewer)
{
    program.run([](Form1& form) {
        form.Smallfrm();
        const auto* panView = form.findChild<QWidget*>(QStringLiteral("frmPanView"));
        ASSERT_NE(panView, nullptr);
        EXPECT_TRUE(onScreen(form.cpvPicScroll1()).contains(onScreen(*panView)));
    });
}

TEST_F(LooksTest, OpensTheZoomToolOverTheViewerAndLeavesItWhereItIsPut)
{
    program.run([](Form1& form) {
        form.fastZoomshow();
        QWidget* tool = core::windows().find(core::Window::fastZoom);
        ASSERT_NE(tool, nullptr);
        EXPECT_TRUE(onScreen(form.cpvPicScroll1()).contains(onScreen(*tool)));
        tool->move(17, 23);
        form.fastZoomshow();
        form.fastZoomshow();
        EXPECT_EQ(tool->pos(), QPoint(17, 23));
    });
}

TEST_F(LooksTest, ClipsNoTextInAnyWindow)
{
    program.run([&](Form1& form) {
        form.setXiala(program.picture("a.bmp"));
        form.goEnter();
        EXPECT_EQ(clippedTexts(*form.menus().bar()->window()), QStringList());
        for (const core::Window which : kSmallWindows) {
            const std::string name = core::windowName(which).toStdString();
            QWidget* window = core::windows().load(which);
            ASSERT_NE(window, nullptr) << name;
            window->show();
            QApplication::processEvents();
            EXPECT_EQ(clippedTexts(*window), QStringList()) << name;
            core::windows().unload(which);
        }
    });
}

TEST_F(LooksTest, HoldsTheUsualTextsOfTheStatusBar)
{
    program.run([](Form1& form) {
        form.StateBar().setPanel(core::Panel::Zoom, QStringLiteral("      1500%"));
        form.StateBar().setPanel(core::Panel::Width, QStringLiteral("32767      Pixel"));
        form.StateBar().setPanel(core::Panel::Height, QStringLiteral("32767      Pixel"));
        form.StateBar().setPanel(core::Panel::FileSize, QStringLiteral("1023.99 Kb     "));
        QApplication::processEvents();
        EXPECT_EQ(clippedTexts(form), QStringList());
    });
}

// The picture of the about window holds the name; without it the name is a text.
TEST_F(LooksTest, NamesTheProgramOnceInTheAboutWindow)
{
    program.run([](Form1& /*form*/) {
        const auto names = [] {
            QWidget* about = core::windows().load(core::Window::frmAbout);
            int count = 0;
            for (const QLabel* label : about->findChildren<QLabel*>()) {
                count += label->text() == core::kProgramName ? 1 : 0;
            }
            core::windows().unload(core::Window::frmAbout);
            return count;
        };
        EXPECT_EQ(names(), 1);
        QImage picture(480, 160, QImage::Format_RGB32);
        picture.fill(Qt::black);
        ASSERT_TRUE(picture.save(platform::appFile(QStringLiteral("Images/about.png"))));
        EXPECT_EQ(names(), 0);
    });
}

TEST_F(LooksTest, KeepsTheMarkOfATogglesButtonClearOfItsPicture)
{
    constexpr QRgb kMark = 0xFF9999CC;
    constexpr int kBestFit = 15;
    constexpr int kBrowse = 13;
    QImage picture(24, 24, QImage::Format_ARGB32); // with the margin that the delivered ones have
    picture.fill(Qt::transparent);
    QPainter(&picture).fillRect(2, 2, 20, 20, Qt::blue);
    program.run([&](Form1& form) {
        for (const int index : {kBestFit, kBrowse}) {
            chameleonButton& button = *form.toolbars().button(index);
            button.setPictureNormal(picture);
            button.setButtonType(5);
            for (const bool pressed : {false, true}) {
                if (pressed) {
                    QMouseEvent press(QEvent::MouseButtonPress, QPointF(16, 16), QPointF(16, 16),
                                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
                    QApplication::sendEvent(&button, &press);
                }
                const QImage image = painted(button);
                QRect mark;
                for (int y = 0; y < image.height(); ++y) {
                    for (int x = 0; x < image.width(); ++x) {
                        mark = image.pixel(x, y) == kMark ? mark.united({x, y, 1, 1}) : mark;
                    }
                }
                EXPECT_EQ(mark.size(), QSize(2, 10)) << index << pressed;
                const QRgb face = image.pixel(3, image.height() - 4);
                for (int y = mark.top(); y <= mark.bottom(); ++y) {
                    EXPECT_EQ(image.pixel(mark.left() - 1, y), face) << index << pressed << y;
                }
            }
        }
    });
}

TEST_F(LooksTest, ShowsAPictureWithEachRecentPath)
{
    QImage picture(24, 24, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    program.run([&](Form1& form) {
        ASSERT_TRUE(QDir().mkpath(platform::appFile(QStringLiteral("Images/toolbar"))));
        ASSERT_TRUE(
            picture.save(platform::appFile(QStringLiteral("Images/toolbar/stoplight.png"))));
        form.addRecentPath(program.picture("a.bmp"));
        const auto* field = form.findChild<QComboBox*>(QStringLiteral("Xiala"));
        ASSERT_EQ(field->count(), 1);
        EXPECT_FALSE(field->itemIcon(0).isNull());
        const QImage light = field->itemIcon(0).pixmap(16, 16).toImage();
        EXPECT_EQ(light.pixelColor(8, 8), QColor(Qt::red));
    });
}

TEST_F(LooksTest, KeepsTheAboutWindowAboveTheMainOne)
{
    program.run([](Form1& form) {
        RunningProgram::trigger(form, "CmdAbout", -1);
        QPointer<QWidget> about = core::windows().find(core::Window::frmAbout);
        ASSERT_NE(about, nullptr);
        EXPECT_TRUE(about->isWindow());
        EXPECT_EQ(about->parentWidget()->window(), &form);
        EXPECT_EQ(about->windowHandle()->transientParent(), form.windowHandle());
        QTest::keyClick(about->focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(core::windows().isLoaded(core::Window::frmAbout));
    });
}

TEST_F(LooksTest, PressesTheMainButtonOfEveryWindowByReturn)
{
    const struct {
        core::Window window;
        const char* button;
    } kMainButtons[] = {{core::Window::frmAbout, "cmdOk"},
                        {core::Window::frmMsg, "Ok"},
                        {core::Window::Favorties, "Addok"},
                        {core::Window::FavortiesModi, "cmdClose"},
                        {core::Window::frmSaveJPGc, "Command1_0"},
                        {core::Window::FrmSwitch, "Command1"},
                        {core::Window::Form4, "cmdOk"},
                        {core::Window::Form5rf, "Command1"},
                        {core::Window::frmConfig, "cmdOk"},
                        {core::Window::Movefile, "Command1"},
                        {core::Window::OptionsForm, "chameleonButton2"}};
    program.run([&](Form1& /*form*/) {
        for (const auto& [which, buttonName] : kMainButtons) {
            const QString name = core::windowName(which);
            QWidget* window = core::windows().load(which);
            ASSERT_NE(window, nullptr) << qPrintable(name);
            window->show();
            QApplication::processEvents();
            auto* button = window->findChild<QAbstractButton*>(QString::fromLatin1(buttonName));
            ASSERT_NE(button, nullptr) << qPrintable(name);
            ASSERT_NE(window->focusWidget(), nullptr) << qPrintable(name);
            const QSignalSpy clicks(button, &QAbstractButton::clicked);
            const QPointer<QWidget> alive = window;
            QTest::keyClick(window->focusWidget(), Qt::Key_Return);
            EXPECT_EQ(clicks.count(), 1) << qPrintable(name);
            if (alive != nullptr) {
                core::windows().unload(which);
            }
        }
    });
}
