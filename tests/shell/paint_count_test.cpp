#include "core/state.h"
#include "shell/running_program.h"
#include "viewer/picture_viewer.h"

#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>
#include <map>

namespace {

constexpr int kQuietMs = 40; // without a paint, after which a step counts as done

// Writes down every paint of some widgets and of what lies in them, with their places in the window
// at that moment.
class PaintRecorder : public QObject {
public:
    PaintRecorder(const QWidget& window, std::vector<QWidget*> roots)
        : m_window(window)
        , m_roots(std::move(roots))
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Paint || !watched->isWidgetType()) {
            return false;
        }
        auto* widget = static_cast<QWidget*>(watched);
        for (const QWidget* root : m_roots) {
            if (widget == root || root->isAncestorOf(widget)) {
                m_paints[widget].push_back(placeOf(*widget));
            }
        }
        return false;
    }

    // Does something and lets events run until nothing is painted any more.
    void record(const std::function<void()>& step)
    {
        m_paints.clear();
        step();
        std::size_t before = 0;
        do {
            before = total();
            QTest::qWait(kQuietMs);
        } while (total() != before);
    }

    [[nodiscard]] int count(QWidget& widget) const
    {
        const auto found = m_paints.find(&widget);
        return found == m_paints.end() ? 0 : static_cast<int>(found->second.size());
    }

    // Every part is painted once at the most, and only where it stays.
    void expectSinglePass(const char* step) const
    {
        for (const auto& [widget, places] : m_paints) {
            const std::string name = std::string(step) + ": " + widget->metaObject()->className() +
                                     ' ' + widget->objectName().toStdString();
            EXPECT_LE(places.size(), 1U) << name;
            for (const QRect& place : places) {
                EXPECT_EQ(place, placeOf(*widget)) << name;
            }
        }
    }

private:
    [[nodiscard]] QRect placeOf(const QWidget& widget) const
    {
        return {widget.mapTo(&m_window, QPoint()), widget.size()};
    }

    [[nodiscard]] std::size_t total() const
    {
        std::size_t sum = 0;
        for (const auto& [widget, places] : m_paints) {
            sum += places.size();
        }
        return sum;
    }

    const QWidget& m_window;
    std::vector<QWidget*> m_roots;
    std::map<QWidget*, std::vector<QRect>> m_paints;
};

class PaintCountTest : public testing::Test {
protected:
    // Runs a script with a picture larger than the viewer, once everything stands still.
    void run(const std::function<void(Form1&, PaintRecorder&)>& script)
    {
        program.run([&](Form1& form) {
            QImage image(3000, 2000, QImage::Format_RGB32);
            image.fill(Qt::darkCyan);
            form.viewer().setPicture(platform::Picture(image));
            PaintRecorder recorder(form, {&form.cpvPicScroll1(), &pane()});
            recorder.record([] {});
            script(form, recorder);
        });
    }

    static QWidget& pane() { return *core::windows().find(core::Window::frmThumbnaillist); }

    static QWidget& picture(Form1& form)
    {
        return *form.findChild<QWidget*>(QStringLiteral("iDst"));
    }

    RunningProgram program;
};

} // namespace

TEST_F(PaintCountTest, SwitchingTheModePaintsViewerAndPaneOnce)
{
    run([](Form1& form, PaintRecorder& recorder) {
        for (const char* const way : {"to picture mode", "to browse mode", "back", "again"}) {
            recorder.record([&] { RunningProgram::trigger(form, "optTools", 3); });
            recorder.expectSinglePass(way);
            EXPECT_EQ(recorder.count(picture(form)), 1) << way;
            EXPECT_EQ(recorder.count(pane()), core::state().BrowserShown ? 1 : 0) << way;
        }
    });
}

TEST_F(PaintCountTest, TogglingABandPaintsViewerAndPaneOnceAtTheMost)
{
    for (const QSize& screen : {QSize(1600, 900), QSize(900, 700)}) {
        program.desktop.area = QRect(QPoint(), screen);
        run([&](Form1& form, PaintRecorder& recorder) {
            for (const int entry : {4, 5, 4, 5, 5, 4, 5, 4}) {
                const int before = form.coolBarHeightTwips();
                recorder.record([&] { RunningProgram::trigger(form, "optTools", entry); });
                recorder.expectSinglePass("band");
                const int expected = form.coolBarHeightTwips() == before ? 0 : 1;
                EXPECT_EQ(recorder.count(picture(form)), expected) << entry;
            }
        });
    }
}

TEST_F(PaintCountTest, ResizingTheWindowPaintsViewerAndPaneOnce)
{
    run([this](Form1& form, PaintRecorder& recorder) {
        for (const QSize& size :
             {QSize(1400, 800), QSize(900, 700), QSize(640, 480), QSize(1600, 900)}) {
            // The window takes the normal state for a moment and fills the screen again.
            program.desktop.area = QRect(QPoint(), size);
            recorder.record([&] { form.resize(size / 2); });
            recorder.expectSinglePass("resize");
            EXPECT_EQ(recorder.count(picture(form)), 1) << size.width();
            EXPECT_EQ(recorder.count(pane()), 1) << size.width();
            EXPECT_EQ(form.size(), size);
        }
    });
}

TEST_F(PaintCountTest, SwitchingBestFitPaintsTheViewerOnce)
{
    run([](Form1& form, PaintRecorder& recorder) {
        for (const char* const way : {"on", "off"}) {
            recorder.record([&] { RunningProgram::trigger(form, "optView", 3); });
            recorder.expectSinglePass(way);
            EXPECT_EQ(recorder.count(picture(form)), 1) << way;
        }
    });
}

TEST_F(PaintCountTest, SwitchingPanViewAndZoomToolPaintsTheViewerOnceAtTheMost)
{
    run([](Form1& form, PaintRecorder& recorder) {
        for (const int entry : {11, 15, 11, 15, 11, 11}) {
            recorder.record([&] { RunningProgram::trigger(form, "optView", entry); });
            recorder.expectSinglePass("tool window");
            EXPECT_EQ(recorder.count(pane()), 0) << entry;
        }
    });
}

TEST_F(PaintCountTest, AnOpenPanViewAndZoomToolMakeNoFurtherPaints)
{
    run([this](Form1& form, PaintRecorder& recorder) {
        form.Smallfrm();
        form.fastZoomshow();
        recorder.record([] {});
        for (int twice = 0; twice < 2; ++twice) {
            recorder.record([&] { RunningProgram::trigger(form, "optTools", 3); });
            recorder.expectSinglePass("mode");
            EXPECT_EQ(recorder.count(picture(form)), 1);
            const int width = twice == 0 ? 1200 : 1600;
            program.desktop.area = QRect(0, 0, width, 900);
            recorder.record([&] { form.resize(width / 2, 450); });
            recorder.expectSinglePass("resize");
            EXPECT_EQ(recorder.count(picture(form)), 1);
        }
    });
}
