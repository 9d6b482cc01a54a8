#include "files/explorer/list_model.h"

#include <utility>

namespace files {

namespace {

// Where each line stands now, by its former place.
std::vector<int> newPlaces(const std::vector<std::uint32_t>& formerPlaces)
{
    std::vector<int> places(formerPlaces.size());
    for (std::size_t row = 0; row < formerPlaces.size(); ++row) {
        places[formerPlaces[row]] = static_cast<int>(row);
    }
    return places;
}

} // namespace

void ListModel::setRows(ListRows rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

void ListModel::setCheckBoxes(bool shown)
{
    if (std::exchange(m_hasCheckBoxes, shown) != shown && m_rows.count() > 0) {
        emit dataChanged(index(0, 0), index(m_rows.count() - 1, 0), {Qt::CheckStateRole});
    }
}

int ListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.count();
}

int ListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kListColumns;
}

QVariant ListModel::nameData(int row, int role) const
{
    switch (role) {
    case Qt::DecorationRole:
        return m_pictures ? m_pictures(m_rows.image(row), m_rows.key(row)) : QVariant();
    case Qt::CheckStateRole:
        if (!m_hasCheckBoxes) {
            return {};
        }
        return m_rows.isChecked(row) ? Qt::Checked : Qt::Unchecked;
    case Qt::EditRole:
        return m_rows.text(row);
    default:
        return {};
    }
}

QVariant ListModel::data(const QModelIndex& index, int role) const
{
    const int row = index.row();
    switch (role) {
    case Qt::DisplayRole:
        return shownText(m_rows.columnText(row, static_cast<ListColumn>(index.column())));
    case KeyRole:
        return m_rows.key(row);
    case PictureRole:
        return static_cast<int>(m_rows.image(row));
    case TagRole:
        return static_cast<int>(m_rows.tag(row));
    default:
        return index.column() == 0 ? nameData(row, role) : QVariant();
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool isCaption = orientation == Qt::Horizontal && role == Qt::DisplayRole &&
                           section >= 0 && section < kListColumns;
    return isCaption ? QVariant(columnCaption(static_cast<ListColumn>(section))) : QVariant();
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid() && index.column() == 0) {
        flags |= Qt::ItemIsEditable | Qt::ItemIsDragEnabled;
        flags.setFlag(Qt::ItemIsUserCheckable, m_hasCheckBoxes);
    } else {
        flags.setFlag(Qt::ItemIsSelectable, m_hasFullRows);
    }
    return flags;
}

bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const bool isMark = role == Qt::CheckStateRole;
    if (index.column() != 0 || (!isMark && role != Qt::EditRole)) {
        return false;
    }
    if (isMark) {
        m_rows.setChecked(index.row(), value.toInt() == Qt::Checked);
    } else {
        m_rows.setText(index.row(), value.toString());
    }
    emit dataChanged(index, index, {role});
    return true;
}

void ListModel::sort(int column, Qt::SortOrder order)
{
    if (column < 0 || column >= kListColumns) {
        return;
    }
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const std::vector<int> places = newPlaces(
        m_rows.sort(static_cast<ListColumn>(column),
                    order == Qt::AscendingOrder ? SortOrder::Ascending : SortOrder::Descending));
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& old : before) {
        after.append(index(places[static_cast<std::size_t>(old.row())], old.column()));
    }
    changePersistentIndexList(before, after);
    emit layoutChanged({}, VerticalSortHint);
}

} // namespace files
