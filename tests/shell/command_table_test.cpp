#include "shell/command_table.h"

#include <QSet>
#include <QString>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace {

// Highest index of each array that is counted through without a gap.
struct ArraySize {
    const char* name;
    int last;
};

constexpr ArraySize kArrays[] = {
    {"CmdNew", 2},    {"optFile", 14},     {"Dip", 3},           {"optEdit", 17},
    {"optView", 15},  {"optImage", 7},     {"optColor", 6},      {"optFilter", 19},
    {"optTools", 9},  {"optToolsFile", 1}, {"MnuThumbsize", 29}, {"ThumbnailColorPreset", 5},
    {"CmdWall", 2},   {"CmdWall2", 2},     {"OptFav", 1},        {"mnuFav", 0},
    {"CmdRight", 15}, {"CmdRightmdi", 3},  {"CmdRightView", 8},  {"CmdRightEdit", 7},
};

struct Told {
    const char* array;
    int index;
    const char* caption;
    bool needsPicture;
};

constexpr Told kTold[] = {
    {"CmdNew", 0, "Flash Player", false},
    {"CmdNew", 1, "Media Player", false},
    {"CmdNew", 2, "Web Browser", false},
    {"CmdExhtml", -1, "&Create Online Ravelin Album...", false},
    {"CmdHtmlsetup", -1, "&Album Setup...", false},
    {"optFile", 0, "&Open", false},
    {"optFile", 1, "&Save", true},
    {"optFile", 2, "Save &as...", true},
    {"optFile", 3, "-", false},
    {"optFile", 4, "&Send as E-mail", false},
    {"optFile", 5, "&Acquire...", false},
    {"optFile", 6, "&Print...", true},
    {"optContactSheets", -1, "Con&tact Sheets...", false},
    {"optFile", 7, "-", false},
    {"optFile", 8, "Screen Capture", false},
    {"optFile", 9, "-", false},
    {"optFile", 10, "P&roperties", true},
    {"optFile", 14, "E&xit", false},
    {"Dip", 0, "Add Editors", false},
    {"Dip", 1, "Configure Editors", false},
    {"Dip", 2, "-", false},
    {"Dip", 3, "Tesselia...    F10", true},
    {"optEdit", 0, "&Undo", true},
    {"optEdit", 1, "-", false},
    {"optEdit", 2, "C&ut Images", true},
    {"optEdit", 3, "Copy &Images", true},
    {"optEdit", 4, "&Paste", false},
    {"optEdit", 5, "&Delete", false},
    {"optEdit", 6, "-", false},
    {"optEdit", 7, "Copy to...", true},
    {"optEdit", 8, "Move to...", true},
    {"optEdit", 9, "-", false},
    {"optEdit", 10, "&Rename", true},
    {"optEdit", 11, "-", false},
    {"optEdit", 12, "Search...", false},
    {"optEdit", 13, "-", false},
    {"optEdit", 14, "Frame", true},
    {"optEdit", 15, "Designer", true},
    {"optEdit", 16, "-", false},
    {"optEdit", 17, "Preferences...", false},
    {"optView", 0, "Zoom In", true},
    {"optView", 1, "Zoom Out", true},
    {"optView", 2, "Full Size", true},
    {"optView", 3, "Fit Image", false},
    {"optView", 4, "-", false},
    {"optView", 5, "Next", false},
    {"optView", 6, "Previous", false},
    {"optView", 7, "-", false},
    {"optView", 8, "Slowly", true},
    {"optView", 9, "Faster", true},
    {"optView", 10, "-", false},
    {"optView", 11, "Panoramic View", false},
    {"optView", 12, "Automatic", false},
    {"optView", 13, "MouseScrolling", false},
    {"optView", 14, "-", false},
    {"optView", 15, "Zoom Tool", false},
    {"optTools", 0, "Start Slide Show...", false},
    {"optTools", 1, "Stop Slide Show...", false},
    {"optTools", 2, "-", false},
    {"optTools", 3, "Browse", false},
    {"optTools", 4, "Main Toolbar", false},
    {"optTools", 5, "Recently Used Bar", false},
    {"optTools", 6, "-", false},
    {"optTools", 7, "&Folder Tools", false},
    {"optTools", 8, "-", false},
    {"optTools", 9, "Set &Wallpaper", false},
    {"ThumbnailColorPreset", 0, "Black", false},
    {"ThumbnailColorPreset", 1, "Antraciet", false},
    {"ThumbnailColorPreset", 2, "Dark Gray", false},
    {"ThumbnailColorPreset", 3, "Middle Gray", false},
    {"ThumbnailColorPreset", 4, "Light Gray", false},
    {"ThumbnailColorPreset", 5, "White Gray", false},
    {"CmdWall", 0, "&Center", true},
    {"CmdWall", 1, "&Titled", true},
    {"CmdWall", 2, "&Stretch", true},
    {"CmdWall2", 0, "&Centered", true},
    {"CmdWall2", 1, "&Titled", true},
    {"CmdWall2", 2, "&Stretch", true},
    {"CmdRight", 0, "Next Image", false},
    {"CmdRight", 1, "Previous Image", false},
    {"CmdRight", 2, "-", false},
    {"CmdRight", 3, "Send as E-mail", false},
    {"CmdRight", 10, "Panoramic View", false},
    {"CmdRight", 12, "Add to Favorties...", true},
    {"CmdRight", 13, "Cancel Designer...", false},
    {"CmdRight", 15, "Properties", true},
    {"CmdRightmdi", 0, "Save as...", true},
    {"CmdRightmdi", 2, "Aquire...", false},
    {"CmdRightmdi", 3, "Print...", true},
    {"CmdRightView", 1, "Zoom Out", true},
    {"CmdRightView", 2, "Zoom In", true},
    {"CmdRightView", 3, "Full Size", true},
    {"CmdRightView", 4, "Fit Image", false},
    {"CmdRightView", 6, "Automatic", false},
    {"CmdRightView", 7, "Mousescrolling", false},
    {"CmdRightView", 8, "Zoom Tool", false},
    {"CmdRightEdit", 0, "Copy To", true},
    {"CmdRightEdit", 1, "Move To", true},
    {"CmdRightEdit", 2, "Delete", false},
    {"CmdRightEdit", 4, "Copy files", false},
    {"CmdRightEdit", 5, "Paste files", false},
    {"CmdRightEdit", 7, "Rename", true},
    {"optFilter", 0, "Definition...", false},
    {"optFilter", 1, "Definition more...", false},
    {"optFilter", 2, "-", false},
    {"optFilter", 3, "Blur", false},
    {"optFilter", 4, "Soften...", false},
    {"optFilter", 5, "Sharpen...", false},
    {"optFilter", 6, "Emboss...", false},
    {"optFilter", 7, "Pencil Drawing...", false},
    {"optFilter", 8, "Oil Paint...", false},
    {"optFilter", 9, "Outline...", false},
    {"optFilter", 10, "-", false},
    {"optFilter", 11, "Diffuse", false},
    {"optFilter", 12, "Pixelaze", false},
    {"optFilter", 13, "Scan Lines...", false},
    {"optFilter", 14, "Sepia Drawing...", false},
    {"optFilter", 15, "Noise", false},
    {"optFilter", 16, "Negactive", false},
    {"optFilter", 17, "Replace...", false},
    {"optFilter", 18, "-", false},
    {"optFilter", 19, "More...", false},
    {"optColor", 0, "Brightness...", false},
    {"optColor", 1, "-", false},
    {"optColor", 2, "Colorize...", false},
    {"optColor", 3, "Contrast...", false},
    {"optColor", 4, "-", false},
    {"optColor", 5, "RGB Level...", false},
    {"optColor", 6, "Staturation...", false},
    {"optImage", 1, "-", false},
    {"optImage", 6, "-", false},
};

const shell::MenuRow* find(const char* array, int index)
{
    for (const shell::MenuRow& row : shell::menuRows()) {
        if (QString::fromLatin1(row.array) == QString::fromLatin1(array) && row.index == index) {
            return &row;
        }
    }
    return nullptr;
}

bool isSeparator(const shell::MenuRow& row)
{
    return QString::fromLatin1(row.caption) == QString::fromLatin1(shell::kSeparator);
}

} // namespace

TEST(CommandTable, HasEveryIndexOfEveryArray)
{
    for (const ArraySize& array : kArrays) {
        for (int i = 0; i <= array.last; ++i) {
            EXPECT_NE(find(array.name, i), nullptr) << array.name << ' ' << i;
        }
        EXPECT_EQ(find(array.name, array.last + 1), nullptr) << array.name;
    }
}

TEST(CommandTable, CarriesTheCaptionsAndNeeds)
{
    for (const Told& told : kTold) {
        const shell::MenuRow* row = find(told.array, told.index);
        ASSERT_NE(row, nullptr) << told.array << ' ' << told.index;
        EXPECT_STREQ(row->caption, told.caption) << told.array << ' ' << told.index;
        EXPECT_EQ(row->need == shell::Need::Picture, told.needsPicture)
            << told.array << ' ' << told.index;
    }
}

TEST(CommandTable, TellsTheSizesOfTilesAndTheOneThatIsWrong)
{
    for (int i = 0; i < 30; ++i) {
        const shell::MenuRow* row = find("MnuThumbsize", i);
        ASSERT_NE(row, nullptr) << i;
        const QString size = QString::number((i + 1) * 10);
        const QString told = QStringLiteral("%1 x %2  pixels");
        EXPECT_EQ(QString::fromLatin1(row->caption),
                  told.arg(size, i == 1 ? QStringLiteral("30") : size));
    }
}

TEST(CommandTable, NamesEachEntryOnce)
{
    QSet<QString> names;
    for (const shell::MenuRow& row : shell::menuRows()) {
        const QString name =
            QStringLiteral("%1_%2").arg(QString::fromLatin1(row.array)).arg(row.index);
        EXPECT_FALSE(names.contains(name)) << name.toStdString();
        names.insert(name);
    }
}

TEST(CommandTable, GivesEveryEntryAHandlerOrAMenu)
{
    for (const shell::MenuRow& row : shell::menuRows()) {
        const bool cancelDesigner =
            QString::fromLatin1(row.array) == QStringLiteral("CmdRight") && row.index == 13;
        const bool does = row.run != nullptr || row.opens != nullptr;
        EXPECT_EQ(does, !isSeparator(row) && !cancelDesigner) << row.array << ' ' << row.index;
    }
}

TEST(CommandTable, ReachesEveryMenuFromABarOrTheRightButton)
{
    std::set<QString> opened{QString::fromLatin1(shell::kMenuBar),
                             QString::fromLatin1(shell::kRightMenu)};
    for (const shell::MenuRow& row : shell::menuRows()) {
        if (row.opens != nullptr) {
            opened.insert(QString::fromLatin1(row.opens));
        }
    }
    for (const shell::MenuRow& row : shell::menuRows()) {
        EXPECT_TRUE(opened.contains(QString::fromLatin1(row.menu))) << row.menu;
    }
}

// The captions of the design clash in three places; there a second press goes on to the next entry.
TEST(CommandTable, UsesAnAccessKeyOnceInEachMenuWhereTheCaptionIsFree)
{
    const std::set<QString> clashing{QStringLiteral("&Send as E-mail"),
                                     QStringLiteral("&Acquire..."), QStringLiteral("C&ut Images")};
    std::map<QString, QString> used;
    for (const shell::MenuRow& row : shell::menuRows()) {
        const QString caption = QString::fromLatin1(row.caption);
        const qsizetype mark = caption.indexOf(QLatin1Char('&'));
        if (mark < 0) {
            continue;
        }
        const QString menu = QString::fromLatin1(row.menu);
        const QChar key = caption.at(mark + 1).toLower();
        EXPECT_EQ(used[menu].contains(key), clashing.contains(caption))
            << row.menu << ": " << row.caption;
        used[menu].append(key);
    }
}

TEST(CommandTable, KnowsEveryKey)
{
    const std::set<int> expected{27, 113, 114, 115, 116, 117, 121, 123, 65,  83,
                                 68, 86,  72,  67,  69,  79,  80,  90,  109, 107};
    std::set<int> codes;
    for (const shell::KeyRow& row : shell::keyRows()) {
        EXPECT_TRUE(codes.insert(row.code).second) << row.code;
        EXPECT_NE(row.run, nullptr) << row.code;
    }
    EXPECT_EQ(codes, expected);
}

TEST(CommandTable, HasSeventeenToolbarButtons)
{
    std::set<int> indexes;
    for (const shell::ButtonRow& row : shell::buttonRows()) {
        EXPECT_TRUE(indexes.insert(row.index).second) << row.index;
        EXPECT_NE(row.run, nullptr) << row.index;
    }
    EXPECT_EQ(indexes.size(), 17U);
    EXPECT_EQ(*indexes.rbegin(), 16);
}

TEST(CommandTable, HasTheButtonsOfTheSecondToolbarInOrder)
{
    const char* const keys[] = {"open",     "browse", "back", "forward", "zoomin", "zoomout",
                                "fullsize", "start",  "stop", "slower",  "faster", "fullscreen"};
    const auto rows = shell::keyButtonRows();
    ASSERT_EQ(rows.size(), std::size(keys));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_STREQ(rows[i].key, keys[i]);
        EXPECT_EQ(rows[i].run == nullptr, std::string_view(keys[i]) == "browse");
    }
}

TEST(CommandTable, NamesTheKeypadWhereOnlyItsKeysAct)
{
    EXPECT_STREQ(find("optView", 8)->keyText, "Keypad -");
    EXPECT_STREQ(find("optView", 9)->keyText, "Keypad +");
    for (const shell::MenuRow& row : shell::menuRows()) {
        const bool isSpeed =
            std::string(row.array) == "optView" && (row.index == 8 || row.index == 9);
        if (row.keyText != nullptr && !isSpeed) {
            EXPECT_EQ(std::string(row.keyText).find("Keypad"), std::string::npos) << row.caption;
        }
    }
}
