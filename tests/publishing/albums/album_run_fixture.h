#pragma once

#include "core/window_registry.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "publishing/albums/album_run.h"
#include "publishing/albums/pane_with_thumbnails.h"
#include "publishing/albums/windows.h"
#include "support/fake_desktop.h"
#include "support/fake_dialogs.h"
#include "support/fake_main_window.h"
#include "support/memory_config_store.h"
#include "support/temp_tree.h"

#include <QCoreApplication>
#include <QImage>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

// The thumbnails of a pane that shows a folder "pics" of the home folder, whose album goes to
// "home/Web/pics". The words are English.
class AlbumRunTest : public testing::Test {
protected:
    AlbumRunTest()
    {
        albums::registerWindows();
        m_tree.add({"home/pics/"});
        m_pane.resize(500, 500);
        list().resize(500, 500);
        list().setLanguage(0);
        m_pane.show();
        QObject::connect(
            &list(), &ThumbNailList::HtmLGaleryCreated, &list(),
            [this](bool done, int files, const QString& index) {
                m_told.append(
                    QStringLiteral("%1 %2 %3").arg(static_cast<int>(done)).arg(files).arg(index));
            });
    }
    ~AlbumRunTest() override
    {
        m_yield.stop();
        platform::resetClosing();
        core::windows().unload(core::Window::frmWebRelease);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    ThumbNailList& list() { return m_pane.thumbnails; }
    thumbs::GalleryState& state() { return list().surface().state; }

    void addPicture(const std::string& name, QRgb colour = qRgb(200, 30, 30),
                    QSize size = {300, 200}, const char* format = nullptr)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        m_tree.add({name});
        ASSERT_TRUE(image.save(m_tree.path(name), format, 95)) << name;
    }

    // A GIF file of one pixel.
    void addGif(const std::string& name)
    {
        static const char kGif[] =
            "GIF89a\1\0\1\0\200\0\0\377\0\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;";
        m_tree.add({name, std::string(kGif, sizeof kGif - 1)});
    }

    void showFolder(const std::string& folder = "home/pics")
    {
        list().setPath(m_tree.path(folder));
    }

    // The album of the folder, below the home folder.
    void run(const std::string& folder = "home/pics")
    {
        showFolder(folder);
        MakeHtmlGallery(list(), m_tree.path("home"));
    }

    // Calls a function at every yield of a run.
    void atEveryYield(std::function<void()> handler)
    {
        m_yield.setInterval(0);
        QObject::connect(&m_yield, &QTimer::timeout, &m_yield, std::move(handler));
        m_yield.start();
    }

    // The names below a folder of the tree, in order.
    [[nodiscard]] QStringList namesIn(const std::string& folder) const
    {
        QStringList names;
        std::error_code missing;
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(m_tree.native(folder), missing)) {
            if (entry.is_regular_file()) {
                names.append(platform::fromNative(
                    std::filesystem::relative(entry.path(), m_tree.native(folder)).native()));
            }
        }
        names.sort();
        return names;
    }

    [[nodiscard]] QString page(const std::string& name) const
    {
        return QString::fromLatin1(m_tree.content("home/Web/pics/" + name));
    }
    [[nodiscard]] QImage picture(const std::string& name) const
    {
        return QImage::fromData(QByteArray::fromStdString(m_tree.content("home/Web/pics/" + name)));
    }
    [[nodiscard]] int rows() const { return static_cast<int>(page("index.htm").count("<tr>")); }
    [[nodiscard]] bool isClosed() const { return page("index.htm").endsWith("</Html>\r\n"); }

    // Whatever a run shows or holds is gone.
    void expectAllGivenBack()
    {
        EXPECT_FALSE(state().IsHtmlRun);
        EXPECT_FALSE(state().IsLoading);
        EXPECT_FALSE(state().CancelLoading);
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        EXPECT_FALSE(m_main.gradient.shown);
        EXPECT_FALSE(list().findChild<QWidget*>("Gradient")->isVisible());
        EXPECT_EQ(list().findChild<QWidget*>("ThumbPage_album"), nullptr);
        EXPECT_FALSE(m_tree.exists("app/Tmp.bmp"));
    }

    support::TempTree m_tree;
    support::MemoryConfigStore m_config;
    support::FakeMainWindow m_main;
    support::FakeDialogs m_dialogs;
    support::FakeDesktop m_desktop;
    PaneWithThumbnails m_pane{nullptr};
    QTimer m_yield;
    QStringList m_told; // by the event
};
