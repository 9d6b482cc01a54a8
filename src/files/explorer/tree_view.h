#pragma once

#include "files/explorer/explorer_view.h"

#include <QPersistentModelIndex>

namespace files {

// The view of the folder tree.
class TreeView : public ExplorerView {
public:
    TreeView(DragPartner& partner, QWidget* parent);

    // The node on which something dragged would drop; none for an index that isn't valid.
    void setDropHighlight(const QModelIndex& index);
    [[nodiscard]] QModelIndex dropHighlight() const { return m_dropHighlight; }

    // With it a click opens its branch alone: what the one before had opened is closed, unless it
    // leads to the new one, and a second click closes it again.
    void setSingleBranch(bool single);
    void clickBranch(const QModelIndex& index);

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPersistentModelIndex m_dropHighlight;
    QPersistentModelIndex m_branch; // opened by the last click
    bool m_isSingleBranch = false;
};

} // namespace files
