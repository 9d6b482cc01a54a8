#pragma once

#include <QTreeView>
#include <functional>

class QDropEvent;

namespace files {

class ExplorerView;

// Who is told of dragging in the views.
class DragPartner {
public:
    enum class Over { Enter = 0, Leave = 1, Move = 2 };

    virtual ~DragPartner() = default;

    // The user drags what is selected. Comes back when the drag has ended.
    virtual void beginDrag(ExplorerView& view) = 0;

    // These accept the event, or don't.
    virtual void dragOver(ExplorerView& view, QDropEvent& event, Over over) = 0;
    virtual void dropped(ExplorerView& view, QDropEvent& event) = 0;

    virtual void dragLeft(ExplorerView& view) = 0;
};

// What the explorer's two views have in common: how an item looks, and whom dragging concerns.
class ExplorerView : public QTreeView {
public:
    struct Look {
        bool isRowSelected = false;       // the highlight reaches beyond the text
        bool hidesIdleSelection = false;  // without the focus nothing looks selected
        bool marksItemUnderMouse = false; // as a link
    };

    // The partner outlives the view.
    ExplorerView(DragPartner& partner, QWidget* parent);

    void setLook(const Look& look);
    [[nodiscard]] const Look& look() const { return m_look; }

    // While it gets the focus an item becomes the current one and ceases to be; it was never
    // chosen.
    [[nodiscard]] bool isTakingFocus() const { return m_isTakingFocus; }

    // While the mouse makes an item the current one and selects it, until pressed() is told.
    [[nodiscard]] bool isTakingPress() const { return m_isTakingPress; }

protected:
    // Draws an item in a place of the viewport.
    void paintItem(QPainter& painter, const QModelIndex& index, const QRect& rect) const;
    [[nodiscard]] bool looksSelected(const QModelIndex& index) const;

    void initViewItemOption(QStyleOptionViewItem* option) const override;
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    [[nodiscard]] bool hasFocusWithin() const;
    [[nodiscard]] QStyle::State stateOf(const QModelIndex& index) const;
    [[nodiscard]] bool isUnderMouse(const QModelIndex& index) const;
    [[nodiscard]] bool isCutShort(const QModelIndex& index) const;
    void showWholeText(const QHelpEvent& event);

    DragPartner& m_partner;
    Look m_look;
    bool m_isTakingFocus = false;
    bool m_isTakingPress = false;
};

} // namespace files
