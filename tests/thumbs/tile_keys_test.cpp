#include "thumbs/tile_keys.h"

#include <Qt>
#include <array>
#include <gtest/gtest.h>
#include <numeric>

namespace {

using thumbs::kNoTile;

// Three columns of four lines on a page; the last line of the second page has two tiles.
constexpr auto kTiles = [] {
    std::array<int, 23> tiles{};
    std::iota(tiles.begin(), tiles.end(), 0);
    return tiles;
}();
constexpr thumbs::TileShelf kShelf{kTiles, 3, 12};

// The same shelf, where some files got no tile.
constexpr std::array kTilesWithGaps{1, 2, 4, 6, 8, 9, 11, 13, 20};
constexpr thumbs::TileShelf kShelfWithGaps{kTilesWithGaps, 3, 12};

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

TEST(TileKeys, PassOverPlacesWithoutATile)
{
    constexpr Move kMovesWithGaps[] = {
        {Qt::Key_Right, 2, 4},      {Qt::Key_Right, 13, 20},    {Qt::Key_Right, 20, kNoTile},
        {Qt::Key_Left, 8, 6},       {Qt::Key_Left, 4, 2},       {Qt::Key_Left, 1, kNoTile},
        {Qt::Key_Down, 2, 6},       {Qt::Key_Down, 8, 11},      {Qt::Key_Down, 13, 20},
        {Qt::Key_Up, 13, 9},        {Qt::Key_Up, 6, 2},         {Qt::Key_Up, 2, kNoTile},
        {Qt::Key_PageDown, 2, 20},  {Qt::Key_PageDown, 1, 13},  {Qt::Key_PageUp, 20, 8},
        {Qt::Key_PageUp, 6, 1},     {Qt::Key_Home, 9, 1},       {Qt::Key_End, 4, 20},
        {Qt::Key_Home, kNoTile, 1}, {Qt::Key_End, kNoTile, 20}, {Qt::Key_Right, kNoTile, 1},
    };
    for (const Move& move : kMovesWithGaps) {
        const auto tile = thumbs::tileAfterKey(move.key, move.from, kShelfWithGaps);
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
         {thumbs::TileShelf{{}, 3, 12}, thumbs::TileShelf{kTiles, 0, 0},
          thumbs::TileShelf{kTiles, 3, 0}}) {
        EXPECT_FALSE(thumbs::tileAfterKey(Qt::Key_Right, 0, shelf).has_value());
    }
}
