#include "files/folder_list.h"

#include "files/explorer/model_roles.h"
#include "platform/os/paths.h"
#include "platform/os/subfolders.h"

#include <QKeyEvent>
#include <QStyledItemDelegate>

namespace files {

namespace {

constexpr int kStep = 12; // pixels that a line stands further in than the folder around it
constexpr int kPictureSide = 16;
constexpr int kDepthRole = Qt::UserRole + 1; // behind the path

class IndentedLines : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        QStyleOptionViewItem line = option;
        line.rect.setLeft(line.rect.left() + indentOf(index));
        QStyledItemDelegate::paint(painter, line, index);
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(indentOf(index), 0);
    }

private:
    static int indentOf(const QModelIndex& index) { return index.data(kDepthRole).toInt() * kStep; }
};

// From the drive, which comes first, to the folder.
QStringList wayTo(const QString& drive, QString folder)
{
    QStringList way;
    while (folder != drive && platform::holdsPath(drive, folder)) {
        way.prepend(folder);
        folder = platform::folderOf(folder);
    }
    way.prepend(drive);
    return way;
}

} // namespace

FolderList::FolderList(QWidget* parent)
    : QListWidget(parent)
{
    setItemDelegate(new IndentedLines(this));
    setIconSize({kPictureSide, kPictureSide});
    connect(this, &QListWidget::itemDoubleClicked, this, &FolderList::choose);
}

void FolderList::showFolder(const QString& drive, const QString& folder)
{
    m_folder = platform::withoutSeparator(folder);
    clear();
    int depth = 0;
    for (const QString& step : wayTo(platform::withoutSeparator(drive), m_folder)) {
        addFolder(step, depth == 0 ? step : platform::fileNameOf(step), depth);
        ++depth;
    }
    setCurrentRow(depth - 1);
    for (const QString& name : platform::visibleSubfolders(m_folder)) {
        addFolder(platform::joinPath(m_folder, name), name, depth);
    }
    scrollToItem(currentItem(), QAbstractItemView::PositionAtCenter);
}

void FolderList::addFolder(const QString& path, const QString& text, int depth)
{
    const QIcon& picture = m_icons.icon(depth == 0 ? ImageRole::Drive : ImageRole::Folder);
    auto* item = new QListWidgetItem(picture, shownText(text), this);
    item->setData(Qt::UserRole, path);
    item->setData(kDepthRole, depth);
}

void FolderList::choose(const QListWidgetItem* item)
{
    if (item != nullptr) {
        emit folderChosen(item->data(Qt::UserRole).toString());
    }
}

void FolderList::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose(currentItem());
        break;
    case Qt::Key_Backspace:
        emit folderChosen(platform::folderOf(m_folder));
        break;
    default:
        QListWidget::keyPressEvent(event);
    }
}

} // namespace files
