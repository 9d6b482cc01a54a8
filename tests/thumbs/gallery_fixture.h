#pragma once

#include "support/fake_dialogs.h"
#include "support/fake_main_window.h"
#include "support/temp_tree.h"
#include "thumbs/page_viewport.h"
#include "thumbs/thumbnail_list.h"

#include <QImage>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

// Colours as the program numbers them, red in the lowest byte.
inline constexpr base::Colour kRed = 0x0000FF;
inline constexpr base::Colour kGreen = 0x00FF00;
inline constexpr base::Colour kBlue = 0xFF0000;

// A list at size 60 in a viewport of 270 x 620: pages of 260 x 600 with three columns and eight
// rows, the first tile at 18, 0 to 88, 70.
class GalleryTest : public testing::Test {
protected:
    GalleryTest()
    {
        m_tree.add({"pics/"});
        m_tree.add({"app/Images/"});
        m_list.show();
        setViewport(270, 620);
    }

    void setViewport(int width, int height)
    {
        m_list.resize(500, 500);
        const QSize around = m_list.size() - m_list.surface().viewportSize();
        m_list.resize(QSize(width, height) + around);
    }

    // A picture of one colour; the format is told by its name for Qt.
    void addPicture(const std::string& name, base::Colour colour, QSize size = {100, 100},
                    const char* format = "BMP")
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(qRgb(static_cast<int>(base::redOf(colour)),
                        static_cast<int>(base::greenOf(colour)),
                        static_cast<int>(base::blueOf(colour))));
        ASSERT_TRUE(image.save(m_tree.path(name), format, 100)) << name;
    }

    void addFiles(const std::string& folder, int count)
    {
        for (int k = 0; k < count; ++k) {
            m_tree.add({folder + "/f" + std::to_string(1000 + k) + ".swf", "x"});
        }
    }

    void runFolder(const std::string& folder = "pics")
    {
        m_list.setPath(m_tree.path(folder));
        m_list.Makegallery();
    }

    [[nodiscard]] base::Colour at(int x, int y, int page = 0)
    {
        return m_list.surface().pages.point(page, x, y);
    }

    [[nodiscard]] const thumbs::TileRow* row(int index) { return m_list.tile(index); }

    [[nodiscard]] int filledRows()
    {
        int count = 0;
        for (int k = 0; k < m_list.surface().state.ThumbTable.rows(); ++k) {
            count += row(k) != nullptr ? 1 : 0;
        }
        return count;
    }

    // Calls a function at every yield of a run.
    void atEveryYield(std::function<void()> handler)
    {
        m_yield.setInterval(0);
        QObject::connect(&m_yield, &QTimer::timeout, &m_yield, std::move(handler));
        m_yield.start();
    }

    support::TempTree m_tree;
    support::FakeMainWindow m_main;
    support::FakeDialogs m_dialogs;
    ThumbNailList m_list;
    QTimer m_yield;
};
