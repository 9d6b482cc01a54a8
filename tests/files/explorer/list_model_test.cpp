#include "files/explorer/list_model.h"

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <gtest/gtest.h>

using files::ImageRole;
using files::ListModel;
using files::ListRows;
using files::RowTag;

namespace {

ListRows sample()
{
    ListRows rows("/p");
    rows.addEntry("sub", {RowTag::Folder, ImageRole::Folder, 16, 0, 0});
    rows.addEntry("a\nb.jpg", {RowTag::File, ImageRole::File, 32, 0, 0});
    rows.addEntry("z.jpg", {RowTag::File, ImageRole::File, 32, 0, 0});
    return rows;
}

class ListModelTest : public testing::Test {
protected:
    ListModelTest() { model.setRows(sample()); }

    QVariant at(int row, int column, int role) const
    {
        return model.data(model.index(row, column), role);
    }

    ListModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_F(ListModelTest, ShowsTheLinesInColumns)
{
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.columnCount(), 5);
    EXPECT_EQ(at(0, 0, Qt::DisplayRole), "sub");
    EXPECT_EQ(at(2, 2, Qt::DisplayRole), "JPEG Picture");
    EXPECT_EQ(at(2, 1, files::KeyRole), "/p/z.jpg");
    EXPECT_EQ(at(2, 0, files::PictureRole), static_cast<int>(ImageRole::Picture));
    EXPECT_EQ(at(0, 0, files::TagRole), 0);
    EXPECT_EQ(model.headerData(4, Qt::Horizontal, Qt::DisplayRole), "Created in");
    EXPECT_EQ(model.headerData(5, Qt::Horizontal, Qt::DisplayRole), QVariant());
}

TEST_F(ListModelTest, ShowsAnUnrulyNameInOneLineAndEditsItAsItIs)
{
    EXPECT_EQ(at(1, 0, Qt::DisplayRole), QStringLiteral("a\u240Ab.jpg"));
    EXPECT_EQ(at(1, 0, Qt::EditRole), "a\nb.jpg");
}

TEST_F(ListModelTest, AsksForPicturesByTheirRolesAndKeys)
{
    EXPECT_EQ(at(0, 0, Qt::DecorationRole), QVariant());
    model.setPictures([](ImageRole role, const QString& key) {
        return key + ' ' + QString::number(static_cast<int>(role));
    });
    const int folder = static_cast<int>(ImageRole::Folder);
    EXPECT_EQ(at(0, 0, Qt::DecorationRole), "/p/sub " + QString::number(folder));
    EXPECT_EQ(at(0, 1, Qt::DecorationRole), QVariant());
}

TEST_F(ListModelTest, TakesCheckMarksWhereThereAreBoxes)
{
    EXPECT_EQ(at(1, 0, Qt::CheckStateRole), QVariant());
    model.setCheckBoxes(true);
    EXPECT_EQ(at(1, 0, Qt::CheckStateRole), static_cast<int>(Qt::Unchecked));
    EXPECT_TRUE(model.setData(model.index(1, 0), Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(at(1, 0, Qt::CheckStateRole), static_cast<int>(Qt::Checked));
    EXPECT_TRUE(model.rows().isChecked(1));
    EXPECT_FALSE(model.setData(model.index(1, 1), Qt::Checked, Qt::CheckStateRole));
}

TEST_F(ListModelTest, ShowsALineUnderAnotherTextThatKeepsItsKey)
{
    const QVariant key = at(2, 0, files::KeyRole);
    EXPECT_TRUE(model.setData(model.index(2, 0), "name.txt", Qt::EditRole));
    EXPECT_EQ(at(2, 0, Qt::DisplayRole), "name.txt");
    EXPECT_EQ(at(2, 0, files::KeyRole), key);
    EXPECT_EQ(at(2, 2, Qt::DisplayRole), files::fileType("z.jpg"));
    EXPECT_EQ(at(2, 0, files::PictureRole), static_cast<int>(ImageRole::Picture));
    EXPECT_EQ(model.rows().indexOf(key.toString()), 2);
    EXPECT_FALSE(model.setData(model.index(2, 1), "1", Qt::EditRole));
}

TEST_F(ListModelTest, SelectsTheNameAloneOrTheWholeRow)
{
    EXPECT_TRUE(model.flags(model.index(0, 0)).testFlag(Qt::ItemIsSelectable));
    EXPECT_FALSE(model.flags(model.index(0, 1)).testFlag(Qt::ItemIsSelectable));
    model.setFullRows(true);
    EXPECT_TRUE(model.flags(model.index(0, 1)).testFlag(Qt::ItemIsSelectable));
}

TEST_F(ListModelTest, TakesIndexesAlongWhenItSorts)
{
    const QPersistentModelIndex marked = model.index(2, 0);
    model.sort(0, Qt::DescendingOrder);
    EXPECT_EQ(marked.row(), 1);
    EXPECT_EQ(marked.data(files::KeyRole), "/p/z.jpg");
    model.sort(0, Qt::AscendingOrder);
    EXPECT_EQ(marked.row(), 2);
    model.sort(-1, Qt::AscendingOrder);
    EXPECT_EQ(marked.row(), 2);
}
