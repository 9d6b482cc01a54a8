#include "base/twips.h"
#include "core/constants.h"
#include "platform/paths.h"
#include "shell/menus.h"
#include "shell/running_program.h"
#include "viewer/picture_viewer.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <gtest/gtest.h>

namespace {

constexpr QRgb kMenuGrey = 0xFFE0E0E0;

const char* const kWindowNames[] = {"frmAbout",      "frmMsg",      "fastZoom",  "Favorties",
                                    "FavortiesModi", "frmSaveJPGc", "FrmSwitch", "Form4"};

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
        if (!label->isHidden() && !label->wordWrap() &&
            label->width() < label->fontMetrics().horizontalAdvance(label->text())) {
            clipped += label->text();
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
        QWidget* tool = core::windows().find(QStringLiteral("fastZoom"));
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
        for (const char* name : kWindowNames) {
            QWidget* window = core::windows().load(QString::fromLatin1(name));
            ASSERT_NE(window, nullptr) << name;
            window->show();
            QApplication::processEvents();
            EXPECT_EQ(clippedTexts(*window), QStringList()) << name;
            core::windows().unload(QString::fromLatin1(name));
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
            QWidget* about = core::windows().load(QStringLiteral("frmAbout"));
            int count = 0;
            for (const QLabel* label : about->findChildren<QLabel*>()) {
                count += label->text() == core::kProgramName ? 1 : 0;
            }
            core::windows().unload(QStringLiteral("frmAbout"));
            return count;
        };
        EXPECT_EQ(names(), 1);
        QImage picture(480, 160, QImage::Format_RGB32);
        picture.fill(Qt::black);
        ASSERT_TRUE(picture.save(platform::appFile(QStringLiteral("Images/about.png"))));
        EXPECT_EQ(names(), 0);
    });
}
