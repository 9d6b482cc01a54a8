#pragma once

#include "files/explorer/explorer_pictures.h"
#include "files/explorer/explorer_properties.h"
#include "files/explorer/list_model.h"
#include "files/explorer/list_view.h"
#include "files/explorer/root_listing.h"
#include "files/explorer/tree_model.h"
#include "files/explorer/tree_view.h"

#include <QMimeData>
#include <QPoint>
#include <QWidget>
#include <memory>
#include <optional>
#include <type_traits>

class QDrag;
class QKeyEvent;

// A folder tree or a list of files, whichever Style says. The tree and the rows behind the two
// views read the folders; what the user does in a view comes out as events.
//
// A node that is dragged within the tree hangs itself below the one it is dropped on, whatever the
// modes of dragging say: these concern what leaves a view (OleDragMode) and what comes from
// elsewhere (OleDropMode).
class ctlExplorer : public QWidget, private files::DragPartner {
    Q_OBJECT

public:
    // Takes its properties from the bag before it fills a view for the first time. The places
    // outlive it.
    explicit ctlExplorer(QWidget* parent = nullptr, const core::PropertyBag& bag = {},
                         const files::Places& places = files::desktopPlaces());
    ~ctlExplorer() override;

    [[nodiscard]] const files::ExplorerProperties& properties() const { return m_values; }
    void writeProperties(core::PropertyBag& bag) const;

    // Writes a property, such as set(&files::ExplorerProperties::View, 3); the path has a setter of
    // its own. The Hide properties change nothing that is shown already.
    template<typename Value>
    void set(Value files::ExplorerProperties::*property, const std::type_identity_t<Value>& value)
    {
        m_values.*property = value;
        written(nameOf(property));
    }

    // The key of the tree's selected node, even where the list is shown; else the path set last.
    [[nodiscard]] QString path() const;
    // Tells Change, then FolderClick, or FileClick for any Style but 0.
    void setPath(const QString& path);

    void RefreshView();
    void ListRootFolder(files::RootType type);
    void Clear();

    // Columns, items and nodes are numbered from 1. Outside, reading gives false and writing does
    // nothing.
    [[nodiscard]] std::optional<std::int32_t> ColumnWidth(int index) const; // pixels
    [[nodiscard]] bool setColumnWidth(int index, std::int32_t pixels);
    void ColumnsAutoSize(int index); // where the list shows its columns
    [[nodiscard]] QString SelectedFile() const;
    [[nodiscard]] QString SelectedFolder() const;
    [[nodiscard]] std::int32_t FileCount() const;
    [[nodiscard]] std::int32_t ColumnCount() const;
    [[nodiscard]] bool FileChecked(int index) const;
    void setFileChecked(int index, bool checked);
    [[nodiscard]] bool FileSelected(int index) const;
    void setFileSelected(int index, bool selected);
    [[nodiscard]] bool FolderChecked(int index) const;
    void setFolderChecked(int index, bool checked);
    [[nodiscard]] std::int32_t FileIndex(const QString& key) const; // 0 for none
    [[nodiscard]] std::int32_t SelectedCount() const;
    [[nodiscard]] std::int32_t CheckedCount() const;
    [[nodiscard]] std::int32_t FolderCount() const;
    [[nodiscard]] std::int32_t SubFolderCount() const;
    static void AboutBox();

    // The lines on the control's surface, behind the view that fills it.
    [[nodiscard]] const QStringList& printedLines() const { return m_printed; }

signals:
    void AfterRename(qint16* cancel, const QString& newName);
    void BeforeRename(qint16* cancel);
    void Change();
    void Click();
    void ColumnClick(qint32 column);
    void DblClick();
    void DriveNotReady(); // never: such a drive is shown without a name
    void FolderCheck(const QString& key, bool checked);
    void FolderClick(const QString& key);
    void FolderDblClick(const QString& key);
    void FolderExpand(const QString& key);
    void FolderCollapse(const QString& key);
    void FileCheck(const QString& key, bool checked);
    void FileClick(const QString& key);
    void FileDblClick(const QString& key);
    void KeyDown(qint16 keyCode, qint16 shift);
    void KeyPress(qint16 keyAscii);
    void KeyUp(qint16 keyCode, qint16 shift);
    void MouseDown(qint16 button, qint16 shift, float x, float y);
    void MouseMove(qint16 button, qint16 shift, float x, float y);
    void MouseUp(qint16 button, qint16 shift, float x, float y);
    void OLECompleteDrag(qint32 effect);
    void OLEDragDrop(QMimeData* data, qint32* effect, qint16 button, qint16 shift, float x,
                     float y);
    void OLEDragOver(QMimeData* data, qint32* effect, qint16 button, qint16 shift, float x, float y,
                     qint16 state);
    void OLEGiveFeedback(qint32* effect, bool* defaultCursors);
    void OLESetData(QMimeData* data, qint16 format);
    void OLEStartDrag(QMimeData* data, qint32* allowedEffects);
    void Progress(qint16 percent);
    void RootClick(qint16 rootType);
    void RootDblClick(qint16 rootType);
    void RootCheck(qint16 rootType, bool checked);
    void RootExpand(qint16 rootType);
    void RootCollapse(qint16 rootType);

    // A property has been written, whether the value differs or not.
    void PropertyChanged(const QString& name);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    // Lets the user drag until it ends, and gives what came of it.
    virtual Qt::DropAction runDrag(QDrag& drag, Qt::DropActions allowed);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Events;

    template<typename Value>
    [[nodiscard]] static QString nameOf(Value files::ExplorerProperties::*property)
    {
        for (const files::ExplorerPropertyRow& row : files::explorerPropertyRows()) {
            if (row.field == decltype(row.field)(property)) {
                return QString::fromLatin1(row.name);
            }
        }
        return QStringLiteral("HoverSelection"); // the one without a row
    }

    void connectChoice(files::ExplorerView& view, void (ctlExplorer::*tell)());
    void connectTree();
    void connectList();
    void connectInput(files::ExplorerView& view);
    void tellKey(const QKeyEvent& event);
    void tellMouse(const QEvent& event);
    void layoutViews();
    void applyToViews();
    void applyToView(files::ExplorerView& view);
    void applyToTree();
    void applyToList();
    void applyPointer();
    void written(const QString& name);
    [[nodiscard]] files::HiddenPlaces hiddenPlaces() const;
    [[nodiscard]] bool isTree() const { return m_values.Style == 0; }
    [[nodiscard]] bool isList() const { return m_values.Style == 1; }
    void showRows(files::ListRows rows);
    void sortRows();
    [[nodiscard]] bool hasItem(int index) const;

    void expandNode(const QModelIndex& index);
    void collapseNode(const QModelIndex& index);
    void showNodes();
    void followSelection();
    void tellNode();
    void tellItem();
    void tellItemDoubleClick(const QModelIndex& index);
    void tellNodeCheck(const QModelIndex& index);
    void tellItemCheck(const QModelIndex& index);

    void beginDrag(files::ExplorerView& view) override;
    void dragOver(files::ExplorerView& view, QDropEvent& event, Over over) override;
    void dragLeft(files::ExplorerView& view) override;
    void dropped(files::ExplorerView& view, QDropEvent& event) override;
    [[nodiscard]] std::unique_ptr<QMimeData> dragData(const files::ExplorerView& view);
    [[nodiscard]] bool isNodeDrag(const files::ExplorerView& view) const;
    [[nodiscard]] bool takesDrops() const;
    void hangNode(const QModelIndex& target);
    void giveFeedback(QDrag& drag, Qt::DropAction action);

    files::ExplorerProperties m_values;
    const files::Places& m_places;
    std::unique_ptr<Events> m_events;
    files::ExplorerTree m_tree;
    files::ExplorerPictures m_pictures;
    files::TreeModel m_treeModel;
    files::ListModel m_listModel;
    files::TreeView m_treeView;
    files::ListView m_listView;
    QPersistentModelIndex m_draggedNode; // while a drag from the tree lasts
    QPointF m_dragPlace;                 // where it was last, in pixels of the view
    QStringList m_printed;
    bool m_isChosen = false;    // the press under way has chosen what it will tell
    bool m_isTold = false;      // the press under way has told already what it chose
    bool m_isFollowing = false; // a view follows the data, or code changes it: nothing is told
};
