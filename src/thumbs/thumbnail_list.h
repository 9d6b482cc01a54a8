#pragma once

#include "core/progress_strip.h"
#include "thumbs/run_surface.h"
#include "thumbs/thumbnail_settings.h"

#include <QWidget>
#include <functional>
#include <optional>
#include <span>

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
    // The same for a list that was read already; the path property stays as it is.
    void makeGalleryOf(const platform::FileList& list);

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
    // Presses the tile that a key (of Qt::Key) leads to; false where it leads to none. The control
    // itself listens to the pointer only, so its host passes the keys on.
    bool pressTileByKey(int key);
    // The row of the tile pressed last since the folder was shown, -1 for none.
    [[nodiscard]] int selectedTile() const;
    // The rows of the files that have their tile, ascending.
    [[nodiscard]] std::span<const int> tiles() const;

    // Decodes a file with the program's own readers into P_load, by way of WorkingFile::Picture.
    // One that is refused leaves P_load. A reader may show a box; the control may be gone
    // afterwards.
    void openPsd(const QString& path);

    void writeProperties(core::PropertyBag& bag);
    void readProperties(const core::PropertyBag& bag);

    // Ends the run under way, if there is one, at its next file.
    void stopRunningLoop();

    // What runs work on.
    [[nodiscard]] thumbs::RunSurface& surface() { return m_surface; }
    [[nodiscard]] const thumbs::Selection& selection() const { return m_selection; }
    // Where the tiles of the last run stand.
    [[nodiscard]] const thumbs::TileGrid& grid() const { return m_surface.state.grid; }
    // The tile of a row, null for none.
    [[nodiscard]] const thumbs::TileRow* tile(int row) const;
    [[nodiscard]] bool isDesignTime() const { return m_use == Use::DesignTime; }

signals:
    void ThumbClick(int index, const QString& fileName);
    void ThumbDblClick(int index, const QString& fileName);
    void ThumbPathChange(const QString& path);
    // An album of so many files is on the disk, with its first page at the path.
    void HtmLGaleryCreated(bool done, int files, const QString& index);
    void ThumbPageStatus(int thumbNailSize, int thumbsPerPage, int pages, int files);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void written(thumbs::WriteEffect effect) override;

private:
    void nameParts();
    void connectParts();
    void layoutParts();
    void showInfoColours();
    void pathWritten();
    void followPathChange();
    void pressPage(int page, QPoint place);
    void doubleClickPage(int page);
    void bringIntoSight(const thumbs::TileRow& tile);
    void drawHighlight(int page, int row, base::Colour colour);
    [[nodiscard]] std::vector<thumbs::TileBox> tilesOfFirstPage() const;

    const Use m_use;
    thumbs::RunSurface m_surface;
    thumbs::Selection m_selection;
    std::function<void(ThumbNailList&)> m_printLayout;
};
