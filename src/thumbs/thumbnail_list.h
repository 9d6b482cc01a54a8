#pragma once

#include "core/interfaces.h"
#include "platform/os/file_list.h"
#include "platform/pictures/picture.h"
#include "thumbs/loaded_picture.h"
#include "thumbs/page_sheet.h"
#include "thumbs/thumbnail_settings.h"
#include "thumbs/tile_grid.h"
#include "thumbs/tile_table.h"

#include <QWidget>
#include <functional>
#include <optional>
#include <span>

class QScrollBar;

namespace thumbs {

class InfoBar;
class PageViewport;

// What a run of the thumbnails leaves for the next step and for other runs. Runs may nest: a
// handler that runs while one yields can start another, and both work on these fields.
struct GalleryState {
    TileTable ThumbTable;
    TileGrid grid;         // CellWidth, CellHeight, and where the tiles stand
    int ThumbCellSize = 0; // the tile size of the public measures
    int PageColumns = 0;
    int ThumbsPerPage = 0;
    int PagesLoaded = 0; // counts up with every page made and isn't set back
    int runs = 0;        // begun so far; a run sees by it that another one has worked meanwhile
    bool IsLoading = false;
    bool CancelLoading = false; // the running loop stops at its next file
    bool IsPrintPreview = false;
    bool IsHtmlRun = false;
    bool IsPrinting = false;
};

} // namespace thumbs

namespace widgets {
class ProgressStrip;
}

// One folder as a stack of pages. A page is one bitmap that every tile of it is painted into;
// clicks are found in a table of tile boxes. Lengths are device-independent pixels.
class ThumbNailList : public QWidget, public thumbs::ThumbnailSettings {
    Q_OBJECT

public:
    // At design time a control shows a page of empty tiles and reads no file.
    enum class Use { RunTime, DesignTime };

    explicit ThumbNailList(QWidget* parent = nullptr, Use use = Use::RunTime);

    // The folder shown. Setting it starts a run only when AutoUpdateOnPathchange is true; a folder
    // that can't be read leaves the list.
    [[nodiscard]] QString path() const;
    void setPath(const QString& folder);

    // The same with a list that was read already, so that the folder isn't read twice. Files that
    // have come or gone since the last reading are seen even where the folder stays.
    void setPathFrom(const platform::FileList& list);

    // Whole tiles in the present viewport, and full pages of the present folder. They don't look at
    // the extra tile sizes, and a run may come to other numbers.
    int ThumbnailsPerPage();
    int ThumbnailPagesNeeded();

    // Makes all pages anew. Lets events run once per file; the control may be gone when it returns.
    void Makegallery();

    // Empties selection, table and pages, stops a running loop and leaves IsLoading set.
    void ResetLoading();

    // Fills a strip to value / maximum; nothing is drawn for a maximum of 0.
    static void Make_Gradient(core::ProgressStrip& target, double value, double maximum,
                              base::Colour barColor,
                              std::optional<base::Colour> backColor = std::nullopt);

    // Free memory of the system in percent. Nothing depends on it.
    [[nodiscard]] static int SystemResources();

    // Draws a sample album page in the page colours.
    void Html_Thumbnail_Preview();

    // Contact sheets. The layout is lent by the part of the program that prints.
    void PrintPreview();
    void PrintPicture();
    void setPrintLayout(std::function<void(ThumbNailList&)> layout);

    // The same as a press in the middle of a tile, which comes into sight, and as a double click.
    // Whoever listens may take the control away.
    void pressTile(int row);
    void doubleClickTile();
    // The row of the tile pressed last since the folder was shown, -1 for none.
    [[nodiscard]] int selectedTile() const;
    // The rows of the files that have their tile, ascending.
    [[nodiscard]] std::span<const int> tiles() const;

    // Decodes a file with the program's own readers into P_load, by way of WorkingFile::Picture.
    // One that is refused leaves P_load. A reader may show a box; the control may be gone
    // afterwards.
    void openPsd(const QString& path);

    void writeProperties(thumbs::PropertyBag& bag);
    void readProperties(const thumbs::PropertyBag& bag);

    // The parts that runs work with, those of albums and contact sheets too.
    [[nodiscard]] thumbs::GalleryState& state() { return m_state; }
    [[nodiscard]] const thumbs::GalleryState& state() const { return m_state; }
    [[nodiscard]] const thumbs::Selection& selection() const { return m_selection; }
    [[nodiscard]] thumbs::PageSheet& pages() { return m_sheet; }
    [[nodiscard]] platform::FileList& File1() { return m_files; }
    [[nodiscard]] thumbs::LoadedPicture& P_load() { return m_loaded; }
    [[nodiscard]] platform::Picture& fNX() { return m_badge; }
    [[nodiscard]] core::ProgressStrip& Gradient();
    [[nodiscard]] thumbs::PageViewport& viewport() { return *m_viewport; }
    [[nodiscard]] QScrollBar& V_Scroll() { return *m_scroll; }
    [[nodiscard]] QSize viewportSize() const;
    [[nodiscard]] bool isDesignTime() const { return m_use == Use::DesignTime; }

    [[nodiscard]] QString infoText() const;
    void setInfoText(const QString& text);

    // Gives the first page its place for the present viewport; further pages are gone.
    void layoutFirstPage();
    // Appends a page below the last one.
    void addPage();
    // Scroll bar and sheet as the stack of pages wants them.
    void followPages();
    // Sheet and scroll bar back to the top, where there is something to scroll.
    void showTop();
    // Brings what was painted in a box to the screen.
    void showTile(int page, const thumbs::TileBox& box);

signals:
    void ThumbClick(int index, const QString& fileName);
    void ThumbDblClick(int index, const QString& fileName);
    void ThumbPathChange(const QString& path);
    void HtmLGaleryCreated(bool done, int pictures, const QString& folder);
    void ThumbPageStatus(int thumbNailSize, int thumbsPerPage, int pages, int files);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void written(thumbs::WriteEffect effect) override;

private:
    void makeParts();
    void layoutParts();
    void takeFrameColour();
    void showInfoColours();
    void pathWritten();
    void followPathChange();
    void stopRunningLoop();
    void pressPage(int page, QPoint place);
    void doubleClickPage(int page);
    void bringIntoSight(const thumbs::TileRow& tile);
    void drawHighlight(int page, int row, base::Colour colour);
    [[nodiscard]] std::vector<thumbs::TileBox> tilesOfFirstPage() const;

    const Use m_use;
    thumbs::GalleryState m_state;
    thumbs::Selection m_selection;
    thumbs::PageSheet m_sheet;
    thumbs::LoadedPicture m_loaded;
    platform::Picture m_badge;
    platform::FileList m_files;
    std::function<void(ThumbNailList&)> m_printLayout;

    thumbs::InfoBar* m_infoBar = nullptr;
    widgets::ProgressStrip* m_strip = nullptr;
    thumbs::PageViewport* m_viewport = nullptr;
    QScrollBar* m_scroll = nullptr;
};
