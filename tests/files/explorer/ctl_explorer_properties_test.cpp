#include "files/explorer/explorer_fixture.h"

#include <QHeaderView>
#include <QScrollBar>

using P = files::ExplorerProperties;

namespace {

QImage picture(QWidget& widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

bool hasColour(const QImage& image, const QColor& colour)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour) {
                return true;
            }
        }
    }
    return false;
}

// The looks and ways that the properties give to what is shown.
class CtlExplorerProperties : public files::ExplorerFixture {
protected:
    void makeList(int view)
    {
        bag.write("View", view, 0);
        make(1);
        QTest::qWait(0);
    }
    QTreeView& list() { return view("ListView1"); }
    QTreeView& tree() { return view("TreeView1"); }
    QRect place(int row) { return list().visualRect(item(row)); }
    QColor highlight() { return list().palette().color(QPalette::Highlight); }
    QImage cell(const QRect& rect) { return picture(*list().viewport()).copy(rect); }
    void giveFocus(QWidget& widget)
    {
        explorer().activateWindow();
        widget.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&explorer()));
    }
};

} // namespace

TEST_F(CtlExplorerProperties, ViewPlacesTheItems)
{
    makeList(0);
    EXPECT_EQ(list().iconSize(), QSize(32, 32));
    EXPECT_EQ(place(1).top(), place(0).top());
    EXPECT_GT(place(1).left(), place(0).right());
    EXPECT_GT(place(0).height(), 32 + list().fontMetrics().height());
    explorer().set(&P::View, 1);
    EXPECT_EQ(list().iconSize(), QSize(16, 16));
    EXPECT_EQ(place(1).top(), place(0).top());
    EXPECT_LT(place(0).height(), 32);
    explorer().set(&P::View, 2);
    EXPECT_EQ(place(1).left(), place(0).left());
    EXPECT_GT(place(1).top(), place(0).bottom());
    EXPECT_FALSE(list().header()->isVisible());
    explorer().set(&P::View, 3);
    EXPECT_EQ(place(1).left(), place(0).left());
    EXPECT_TRUE(list().header()->isVisible());
    explorer().set(&P::View, 77);
    EXPECT_EQ(place(1).left(), place(0).left());
}

TEST_F(CtlExplorerProperties, EveryViewKeepsTheSelectionAndFindsItsItems)
{
    makeList(0);
    click(list(), item(2));
    for (std::int16_t mode = 0; mode < 4; ++mode) {
        explorer().set(&P::View, mode);
        EXPECT_EQ(explorer().SelectedFile(), disk.path("d/one.jpg"));
        for (int row = 0; row < 4; ++row) {
            EXPECT_EQ(list().indexAt(place(row).center()), item(row)) << mode << ' ' << row;
        }
        EXPECT_TRUE(hasColour(cell(place(2)), highlight()));
        EXPECT_FALSE(hasColour(cell(place(1)), highlight()));
    }
}

TEST_F(CtlExplorerProperties, ArrangeOnTheLeftFillsColumns)
{
    makeList(0);
    for (const std::int16_t mode : {std::int16_t(0), std::int16_t(1)}) {
        explorer().set(&P::View, mode);
        explorer().set(&P::Arrange, 1);
        EXPECT_EQ(place(1).left(), place(0).left());
        explorer().set(&P::Arrange, 2);
        EXPECT_EQ(place(1).top(), place(0).top());
    }
}

TEST_F(CtlExplorerProperties, LabelWrapGivesNamesASecondLine)
{
    makeList(0);
    const int height = place(0).height();
    explorer().set(&P::LabelWrap, true);
    EXPECT_EQ(place(0).height(), height + list().fontMetrics().height());
    explorer().set(&P::View, 1);
    EXPECT_LT(place(0).height(), height);
}

TEST_F(CtlExplorerProperties, LabelWrapCutsNoLineInHalf)
{
    disk.add({"d/a name of many short words that goes on over far more lines than it has.jpg"});
    makeList(0);
    explorer().set(&P::LabelWrap, true);
    int row = 0;
    while (list().model()->data(item(row)).toString().size() < 40) {
        ++row;
    }
    const QImage shown = cell(place(row));
    const QColor text = list().palette().color(QPalette::Text);
    EXPECT_TRUE(hasColour(shown, text));
    EXPECT_FALSE(hasColour(shown.copy(0, shown.height() - 2, shown.width(), 2), text));
}

TEST_F(CtlExplorerProperties, FontIsThatOfBothViews)
{
    makeList(3);
    QFont large = list().font();
    large.setPixelSize(40);
    explorer().set(&P::Font, QVariant(large));
    QTest::qWait(0);
    EXPECT_GE(place(0).height(), 40);
    EXPECT_EQ(tree().font().pixelSize(), 40);
    explorer().set(&P::Font, QVariant());
    QTest::qWait(0);
    EXPECT_EQ(list().font(), explorer().font());
    EXPECT_LT(place(0).height(), 40);
}

TEST_F(CtlExplorerProperties, MousePointerIsOverBothViews)
{
    make(1);
    for (QTreeView* const view : {&list(), &tree()}) {
        explorer().set(&P::MousePointer, 2);
        EXPECT_EQ(view->viewport()->cursor().shape(), Qt::CrossCursor);
        QImage image(8, 8, QImage::Format_ARGB32);
        image.fill(Qt::red);
        explorer().set(&P::MouseIcon, QVariant(image));
        explorer().set(&P::MousePointer, 99);
        EXPECT_EQ(view->viewport()->cursor().shape(), Qt::BitmapCursor);
        explorer().set(&P::MousePointer, 0);
        EXPECT_EQ(view->viewport()->cursor().shape(), Qt::ArrowCursor);
    }
}

TEST_F(CtlExplorerProperties, HideSelectionShowsItWithTheFocusAlone)
{
    makeList(3);
    QWidget other(&explorer());
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    giveFocus(list());
    explorer().setFileSelected(3, true);
    EXPECT_TRUE(hasColour(cell(place(2)), highlight()));
    giveFocus(other);
    EXPECT_FALSE(hasColour(cell(place(2)), highlight()));
    EXPECT_TRUE(explorer().FileSelected(3));
    explorer().set(&P::HideSelection, false);
    EXPECT_TRUE(hasColour(cell(place(2)), highlight()));
}

TEST_F(CtlExplorerProperties, FullRowSelectReachesBeyondTheName)
{
    bag.write("HideSelection", false, true);
    makeList(3);
    explorer().setFileSelected(3, true);
    const QRect type = list().visualRect(list().model()->index(2, 2));
    EXPECT_TRUE(hasColour(cell(place(2)), highlight()));
    EXPECT_FALSE(hasColour(cell(type), highlight()));
    explorer().set(&P::FullRowSelect, true);
    EXPECT_EQ(cell(type).pixelColor(type.width() - 2, 2), highlight());
    EXPECT_EQ(explorer().SelectedCount(), 1);
    make(0);
    explorer().set(&P::FullRowSelect, true);
    tree().setCurrentIndex(driveIndex());
    const QRect node = tree().visualRect(driveIndex());
    const QPoint edge(tree().viewport()->width() - 2, node.center().y());
    EXPECT_EQ(picture(*tree().viewport()).pixelColor(edge), highlight());
    explorer().set(&P::FullRowSelect, false);
    EXPECT_NE(picture(*tree().viewport()).pixelColor(edge), highlight());
    EXPECT_TRUE(hasColour(picture(*tree().viewport()).copy(node), highlight()));
}

TEST_F(CtlExplorerProperties, GridLinesStandBetweenRowsAndColumns)
{
    makeList(3);
    const QPoint below(5, list().viewport()->height() - 3);
    const QRect first = place(0);
    const auto changed = [&](const QImage& before, const QImage& after, QPoint point) {
        return before.pixelColor(point) != after.pixelColor(point);
    };
    const QImage plain = picture(*list().viewport());
    explorer().set(&P::GridLines, true);
    const QImage lined = picture(*list().viewport());
    EXPECT_TRUE(changed(plain, lined, first.bottomRight()));
    EXPECT_TRUE(changed(plain, lined, {first.center().x() + 40, first.bottom()}));
    EXPECT_TRUE(changed(plain, lined, {first.right(), below.y()}));
}

TEST_F(CtlExplorerProperties, HideColumnHeadersLeavesTheColumns)
{
    makeList(3);
    EXPECT_TRUE(list().header()->isVisible());
    explorer().set(&P::HideColumnHeaders, true);
    EXPECT_FALSE(list().header()->isVisible());
    EXPECT_EQ(list().viewport()->mapTo(&list(), QPoint()).y(), list().frameWidth());
    EXPECT_FALSE(list().isColumnHidden(4));
}

TEST_F(CtlExplorerProperties, BorderStyleDrawsTheFrame)
{
    make(1);
    EXPECT_GT(list().frameWidth(), 0);
    explorer().set(&P::BorderStyle, 0);
    EXPECT_EQ(list().frameWidth(), 0);
    EXPECT_EQ(tree().frameWidth(), 0);
}

TEST_F(CtlExplorerProperties, EnabledHoldsForBothViews)
{
    make(1);
    explorer().set(&P::Enabled, false);
    EXPECT_FALSE(list().isEnabled());
    EXPECT_FALSE(tree().isEnabled());
    click(list(), item(0));
    EXPECT_EQ(log, QStringList());
}

TEST_F(CtlExplorerProperties, HotTrackingMarksTheNameUnderTheMouse)
{
    makeList(3);
    QCursor::setPos(list().viewport()->mapToGlobal(place(2).center()));
    QTest::mouseMove(list().viewport(), place(2).center());
    const QImage plain = cell(place(2));
    explorer().set(&P::HotTracking, true);
    const QColor link = list().palette().color(QPalette::Link);
    ASSERT_TRUE(QTest::qWaitFor([&] { return hasColour(cell(place(2)), link); }));
    EXPECT_FALSE(hasColour(plain, link));
    EXPECT_FALSE(hasColour(cell(place(1)), link));
}

TEST_F(CtlExplorerProperties, HoverSelectionChoosesWhatTheMouseRestsOn)
{
    makeList(0);
    explorer().set(&P::HoverSelection, true);
    QTest::mouseMove(list().viewport(), place(3).center());
    EXPECT_EQ(explorer().SelectedCount(), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return explorer().SelectedCount() == 1; }));
    EXPECT_EQ(log, QStringList({"FileClick " + disk.path("d/two.txt")}));
}

TEST_F(CtlExplorerProperties, SingleSelOpensOneBranchAtATime)
{
    bag.write("SingleSel", true, false);
    make(0);
    click(tree(), driveIndex());
    EXPECT_TRUE(tree().isExpanded(driveIndex()));
    const QModelIndex folder = tree().model()->index(0, 0, driveIndex());
    click(tree(), folder);
    EXPECT_TRUE(tree().isExpanded(folder));
    EXPECT_TRUE(tree().isExpanded(driveIndex()));
    click(tree(), driveIndex().siblingAtRow(1));
    EXPECT_FALSE(tree().isExpanded(driveIndex()));
    EXPECT_EQ(tree().model()->rowCount(driveIndex()), 1);
    click(tree(), driveIndex());
    EXPECT_TRUE(tree().isExpanded(driveIndex()));
    click(tree(), driveIndex());
    EXPECT_FALSE(tree().isExpanded(driveIndex()));
}

TEST_F(CtlExplorerProperties, WithoutSingleSelAClickOpensNothing)
{
    make(0);
    click(tree(), driveIndex());
    EXPECT_FALSE(tree().isExpanded(driveIndex()));
}

TEST_F(CtlExplorerProperties, ColumnsKeepTheirWidthsInEveryView)
{
    makeList(0);
    EXPECT_TRUE(explorer().setColumnWidth(2, 77));
    EXPECT_EQ(explorer().ColumnWidth(2), 77);
    explorer().ColumnsAutoSize(2);
    EXPECT_EQ(explorer().ColumnWidth(2), 77);
    explorer().set(&P::View, 3);
    EXPECT_EQ(list().columnWidth(1), 77);
    list().setColumnWidth(1, 88);
    explorer().set(&P::View, 2);
    EXPECT_EQ(explorer().ColumnWidth(2), 88);
}

TEST_F(CtlExplorerProperties, ColumnsFitWhatStandsInThem)
{
    makeList(3);
    EXPECT_TRUE(explorer().setColumnWidth(3, 5));
    explorer().ColumnsAutoSize(3);
    const int whole = list().fontMetrics().horizontalAdvance("JPEG Image");
    EXPECT_GT(*explorer().ColumnWidth(3), whole / 2);
    for (int column = 1; column <= 4; ++column) {
        EXPECT_TRUE(explorer().setColumnWidth(column, 20));
    }
    explorer().ColumnsAutoSize(5);
    EXPECT_EQ(*explorer().ColumnWidth(5), list().viewport()->width() - 80);
    explorer().ColumnsAutoSize(0);
    explorer().ColumnsAutoSize(6);
}

TEST_F(CtlExplorerProperties, ManyItemsScrollInEveryView)
{
    for (int i = 0; i < 300; ++i) {
        disk.add({"d/p" + std::to_string(i) + ".jpg", ""});
    }
    makeList(0);
    for (std::int16_t mode = 0; mode < 4; ++mode) {
        explorer().set(&P::View, mode);
        list().setCurrentIndex(item(303));
        EXPECT_TRUE(list().viewport()->rect().contains(place(303).center())) << mode;
        EXPECT_FALSE(list().viewport()->rect().intersects(place(0))) << mode;
        const QScrollBar& bar =
            mode == 2 ? *list().horizontalScrollBar() : *list().verticalScrollBar();
        EXPECT_GE(bar.value(), bar.maximum() - 1) << mode;
        list().setCurrentIndex(item(0));
        EXPECT_TRUE(list().viewport()->rect().contains(place(0).center())) << mode;
    }
}

TEST_F(CtlExplorerProperties, OddNamesStandInOneLine)
{
    const std::string longName(250, 'w');
    const std::string broken = "line\nbreak";
    disk.add({"d/" + longName, ""});
    disk.add({"d/" + broken, ""});
    disk.add({"d/  blanks", ""});
    makeList(0);
    EXPECT_EQ(explorer().FileCount(), 7);
    for (std::int16_t mode = 0; mode < 4; ++mode) {
        explorer().set(&P::View, mode);
        for (int row = 1; row < 7; ++row) {
            EXPECT_EQ(place(row).height(), place(0).height()) << mode;
            EXPECT_FALSE(place(row).intersects(place(row - 1))) << mode;
        }
        EXPECT_FALSE(picture(*list().viewport()).isNull());
        EXPECT_GT(explorer().FileIndex(disk.path("d/" + broken)), 0);
    }
}
