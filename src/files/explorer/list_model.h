#pragma once

#include "files/explorer/list_rows.h"
#include "files/explorer/model_roles.h"

#include <QAbstractTableModel>

namespace files {

// The list's lines for a view.
class ListModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    void setRows(ListRows rows);
    [[nodiscard]] const ListRows& rows() const { return m_rows; }

    void setPictures(PictureSource pictures) { m_pictures = std::move(pictures); }
    void setCheckBoxes(bool shown);

    // Whether all columns of a row are selected with it, or its name alone.
    void setFullRows(bool full) { m_hasFullRows = full; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    // Takes check marks, and other texts for the names; no file is renamed.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    void sort(int column, Qt::SortOrder order) override;

private:
    [[nodiscard]] QVariant nameData(int row, int role) const;

    ListRows m_rows;
    PictureSource m_pictures;
    bool m_hasCheckBoxes = false;
    bool m_hasFullRows = false;
};

} // namespace files
