// What the properties do to the two views.
#include "files/explorer/ctl_explorer.h"
#include "widgets/pointer_shapes.h"

#include <QHeaderView>
#include <array>

namespace {

constexpr std::int16_t kArrangedLeft = 1; // icons fill columns

// A number that isn't known shows a list, which needs the least room.
files::ListMode modeOf(std::int16_t view)
{
    constexpr std::array kModes{files::ListMode::LargeIcons, files::ListMode::SmallIcons,
                                files::ListMode::List, files::ListMode::Report};
    const bool isKnown = view >= 0 && view < static_cast<std::int16_t>(kModes.size());
    return isKnown ? kModes[static_cast<std::size_t>(view)] : files::ListMode::List;
}

} // namespace

void ctlExplorer::written(const QString& name)
{
    applyToViews();
    if (name == u"Style") {
        layoutViews();
    }
    const bool isFilter = name == u"Style" || name == u"Filter";
    if (isFilter || (name == u"ShowFolders" && isList())) {
        RefreshView();
    } else if (name.startsWith(u"Sort")) {
        sortRows();
    }
    emit PropertyChanged(name);
}

void ctlExplorer::applyToViews()
{
    applyToView(m_treeView);
    applyToView(m_listView);
    applyToTree();
    applyToList();
    applyPointer();
}

void ctlExplorer::applyToView(files::ExplorerView& view)
{
    const auto triggers =
        m_values.LabelEdit == 0
            ? QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed
            : QAbstractItemView::EditTriggers(QAbstractItemView::NoEditTriggers);
    view.setEnabled(m_values.Enabled);
    view.setFrameShape(m_values.BorderStyle == 0 ? QFrame::NoFrame : QFrame::StyledPanel);
    view.setEditTriggers(triggers);
    view.setFont(m_values.Font.value<QFont>());
}

void ctlExplorer::applyToTree()
{
    m_treeModel.setCheckBoxes(m_values.CheckBoxes);
    m_treeView.setLook({.isRowSelected = m_values.FullRowSelect});
    m_treeView.setSingleBranch(m_values.SingleSel);
}

void ctlExplorer::applyToList()
{
    using files::ListFlow;
    m_listModel.setCheckBoxes(m_values.CheckBoxes);
    m_listModel.setFullRows(m_values.FullRowSelect);
    m_listView.setLook({.isRowSelected = m_values.FullRowSelect,
                        .hidesIdleSelection = m_values.HideSelection,
                        .marksItemUnderMouse = m_values.HotTracking});
    m_listView.header()->setVisible(m_values.View == files::kReportView &&
                                    !m_values.HideColumnHeaders);
    m_listView.setMode(modeOf(m_values.View),
                       m_values.Arrange == kArrangedLeft ? ListFlow::Columns : ListFlow::Rows);
    m_listView.setLabelWrap(m_values.LabelWrap);
    m_listView.setGridLines(m_values.GridLines);
    m_listView.setHoverSelection(m_values.HoverSelection);
    m_listView.setSelectionMode(m_values.MultiSelect ? QAbstractItemView::ExtendedSelection
                                                     : QAbstractItemView::SingleSelection);
    m_listView.setDragEnabled(m_values.OleDragMode != 0);
    m_listView.viewport()->setAcceptDrops(m_values.OleDropMode != 0);
}

void ctlExplorer::applyPointer()
{
    const auto shape =
        widgets::pointerShape(m_values.MousePointer, m_values.MouseIcon.value<QImage>());
    for (files::ExplorerView* const view : {static_cast<files::ExplorerView*>(&m_treeView),
                                            static_cast<files::ExplorerView*>(&m_listView)}) {
        if (shape) {
            view->viewport()->setCursor(*shape);
        } else {
            view->viewport()->unsetCursor();
        }
    }
}

void ctlExplorer::layoutViews()
{
    m_treeView.setVisible(isTree());
    m_listView.setVisible(isList());
    m_treeView.setGeometry(rect());
    m_listView.setGeometry(rect());
}

void ctlExplorer::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layoutViews();
}
