#pragma once

#include <QRect>
#include <QSize>
#include <cstdint>

// Where the parts of the control and its pages stand, as plain numbers in device-independent
// pixels.
namespace thumbs {

inline constexpr int kFrameMargin = 5; // kept around the sheet
inline constexpr int kPageTopMargin = 2 * kFrameMargin;
inline constexpr int kSheetMargin = 20;    // in its place where the pages are sheets for paper
inline constexpr int kSmallestFrame = 100; // in place of a negative width or height
inline constexpr int kLargestBarValue = 32767;

// The fixed sizes that the layout starts from.
struct FrameParts {
    int barHeight = 0;   // of the information bar
    int stripHeight = 0; // of the progress strip on the bar's lower edge
    int scrollWidth = 0;
    bool barVisible = true;
};

struct FrameLayout {
    QRect bar;
    QRect strip;
    QRect viewport;
    QRect scroll;
};

[[nodiscard]] FrameLayout layoutFrame(QSize control, const FrameParts& parts);

// The height that the sheet is raised to when the control resizes.
[[nodiscard]] int leastSheetHeight(int viewportHeight);

// The stack of pages on the sheet: equal pages below each other, and the sheet that carries them.
class PageStack {
public:
    // Lays out the first page for a viewport; the other pages are gone.
    void restart(QSize viewport, int topMargin = kPageTopMargin);

    // The same with a page size of its own: page left is relative to the sheet.
    void restart(QSize viewport, QSize page, int pageLeft, int topMargin);

    // A further page below the last one; sheet and scroll range follow.
    void addPage();

    void setPages(int count);

    // Sheet and scroll range for a viewport of another size; the pages keep theirs.
    void followViewport(QSize viewport);

    [[nodiscard]] int pages() const { return m_pages; }
    [[nodiscard]] QSize pageSize() const { return m_page; }
    [[nodiscard]] int topMargin() const { return m_topMargin; }
    [[nodiscard]] int pageLeft() const { return m_pageLeft; }
    [[nodiscard]] int pageTop(int page) const; // on the sheet; saturates
    [[nodiscard]] QRect pageRect(int page) const;

    // The page at a height of the sheet, or -1 between pages and outside.
    [[nodiscard]] int pageAt(int y) const;

    // The sheet is as wide as the viewport allows, whatever the pages on it are.
    [[nodiscard]] int sheetWidth() const { return m_sheetWidth; }
    [[nodiscard]] int sheetHeight() const { return m_sheetHeight; }
    void raiseSheet(int height);

    // The range of the scroll bar, 0 while the pages fit.
    [[nodiscard]] int scrollMaximum() const { return m_scrollMaximum; }

    // False for a page that no scroll value brings into sight.
    [[nodiscard]] bool isReachable(int page) const;

private:
    void followContent();

    QSize m_viewport;
    QSize m_page;
    int m_pageLeft = 0;
    int m_topMargin = kPageTopMargin;
    int m_pages = 1;
    int m_sheetWidth = 0;
    int m_sheetHeight = 0;
    int m_scrollMaximum = 0;
};

} // namespace thumbs
