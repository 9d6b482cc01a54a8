#pragma once

#include "thumbs/folder_step.h"
#include "thumbs/tile_grid.h"

#include <QPointer>

class ThumbNailList;

namespace thumbs {

// The screen's step: a tile for every file, painted into the list's pages. Tiles that another run
// has made meanwhile are left as they are.
class TileMaker : public FolderStep {
public:
    explicit TileMaker(ThumbNailList& list);

    std::optional<int> begin() override;
    [[nodiscard]] bool takes(const FileInRun& file) const override;
    [[nodiscard]] bool needsPicture(const FileInRun& file) const override;
    [[nodiscard]] std::optional<QSize> tileRoom() const override;
    [[nodiscard]] std::optional<QString> barText(const FileInRun& file) const override;
    void make(const FileInRun& file) override;
    void end() override;
    [[nodiscard]] std::optional<QString> closingText(int index, int count) const override;

private:
    void layOut();
    std::optional<int> beginDesign();
    std::optional<int> acceptFolder();
    void refuse(int pages);
    [[nodiscard]] TilePlace place(const FileInRun& file) const;
    [[nodiscard]] bool hasTile(const FileInRun& file) const;
    void turnTo(int page);
    void drawTile(const FileInRun& file);
    void drawPicture(const FileInRun& file, const TileBox& box, QSize fit);

    ThumbNailList& m_list;
    QPointer<ThumbNailList> m_alive;
    int m_pageIndex = 0;
};

} // namespace thumbs
