#include "thumbs/tile_keys.h"

#include <Qt>
#include <gtest/gtest.h>

namespace {

using thumbs::kNoTile;

// Three columns of four lines on a page; the last line of the second page has two tiles.
constexpr thumbs::TileShelf kShelf{23, 3, 12};

struct Move {
    int key;
    int from;
    int to; // kNoTile: the selection stays
};

constexpr Move kMoves[] = {
    {Qt::Key_Right, 0, 1},        {Qt::Key_Right, 2, 3},
    {Qt::Key_Right, 22, kNoTile}, {Qt::Key_Left, 3, 2},
    {Qt::Key_Left, 0, kNoTile},   {Qt::Key_Down, 0, 3},
    {Qt::Key_Down, 10, 13},       {Qt::Key_Down, 20, 22},
    {Qt::Key_Down, 21, kNoTile},  {Qt::Key_Up, 4, 1},
    {Qt::Key_Up, 2, kNoTile},     {Qt::Key_PageDown, 1, 13},
    {Qt::Key_PageDown, 13, 22},   {Qt::Key_PageDown, 22, kNoTile},
    {Qt::Key_PageUp, 13, 1},      {Qt::Key_PageUp, 5, 0},
    {Qt::Key_PageUp, 0, kNoTile}, {Qt::Key_Home, 17, 0},
    {Qt::Key_Home, 0, kNoTile},   {Qt::Key_End, 0, 22},
    {Qt::Key_End, 22, kNoTile},
};

} // namespace

TEST(TileKeys, LeadFromTileToTile)
{
    for (const Move& move : kMoves) {
        const auto tile = thumbs::tileAfterKey(move.key, move.from, kShelf);
        EXPECT_EQ(tile.value_or(kNoTile), move.to) << std::hex << move.key << " from " << move.from;
    }
}

TEST(TileKeys, TakeTheFirstTileWhereNoneIsSelected)
{
    for (const Move& move : kMoves) {
        const int expected = move.key == Qt::Key_End ? 22 : 0;
        EXPECT_EQ(thumbs::tileAfterKey(move.key, kNoTile, kShelf), expected);
        EXPECT_EQ(thumbs::tileAfterKey(move.key, 23, kShelf), expected);
    }
}

TEST(TileKeys, LeaveOtherKeysAndEmptyFoldersAlone)
{
    for (const int key : {Qt::Key_A, Qt::Key_Escape, Qt::Key_Tab, Qt::Key_F2}) {
        EXPECT_FALSE(thumbs::tileAfterKey(key, 3, kShelf).has_value());
        EXPECT_FALSE(thumbs::tileAfterKey(key, kNoTile, kShelf).has_value());
    }
    for (const thumbs::TileShelf& shelf :
         {thumbs::TileShelf{0, 3, 12}, thumbs::TileShelf{5, 0, 0}, thumbs::TileShelf{5, 3, 0}}) {
        EXPECT_FALSE(thumbs::tileAfterKey(Qt::Key_Right, 0, shelf).has_value());
    }
}
