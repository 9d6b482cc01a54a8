#include "files/explorer/explorer_fixture.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

using P = files::ExplorerProperties;

namespace {

constexpr Qt::DropActions kAll = Qt::CopyAction | Qt::MoveAction;

// What is dragged over the views, without a real pointer.
class CtlExplorerDragging : public files::ExplorerFixture {
protected:
    CtlExplorerDragging() { data.setText("dragged"); }

    void makeWith(int style, int dragMode, int dropMode)
    {
        bag.write("OleDragMode", dragMode, 0);
        bag.write("OleDropMode", dropMode, 0);
        make(style);
        ctlExplorer& e = explorer();
        QObject::connect(&e, &ctlExplorer::OLEStartDrag, &e,
                         [this](QMimeData* sent, qint32* effects) {
                             log.append("Start " + QString::number(*effects));
                             urls = sent->urls();
                         });
        QObject::connect(&e, &ctlExplorer::OLEGiveFeedback, &e, [this](qint32* effect, bool* own) {
            log.append(QStringLiteral("Feedback %1 %2").arg(*effect).arg(*own));
        });
        QObject::connect(&e, &ctlExplorer::OLECompleteDrag, &e, [this](qint32 effect) {
            log.append("Complete " + QString::number(effect));
        });
        QObject::connect(&e, &ctlExplorer::OLESetData, &e, [this](QMimeData* sent, qint16 format) {
            log.append("SetData " + QString::number(format));
            sent->setText("late");
        });
        QObject::connect(&e, &ctlExplorer::OLEDragOver, &e,
                         [this](QMimeData* over, qint32* effect, qint16 button, qint16 shift,
                                float x, float y, qint16 state) {
                             log.append(QStringLiteral("Over %1 %2 %3 %4 %5 %6 %7")
                                            .arg(over->text())
                                            .arg(*effect)
                                            .arg(button)
                                            .arg(shift)
                                            .arg(x)
                                            .arg(y)
                                            .arg(state));
                             *effect = overEffect.value_or(*effect);
                         });
        QObject::connect(
            &e, &ctlExplorer::OLEDragDrop, &e,
            [this](QMimeData* over, qint32* effect, qint16 button, qint16 shift, float x, float y) {
                log.append(QStringLiteral("Drop %1 %2 %3 %4 %5 %6")
                               .arg(over->text())
                               .arg(*effect)
                               .arg(button)
                               .arg(shift)
                               .arg(x)
                               .arg(y));
            });
    }

    // Drags a row or a node with the mouse; the script of the drag runs when it has begun.
    void pull(QTreeView& view, const QModelIndex& index)
    {
        const QPoint from = view.visualRect(index).center();
        QTest::mousePress(view.viewport(), Qt::LeftButton, {}, from);
        for (const int step : {5, 30}) {
            const QPointF to = from + QPoint(0, step);
            QMouseEvent move(QEvent::MouseMove, to, view.viewport()->mapToGlobal(to), Qt::NoButton,
                             Qt::LeftButton, {});
            QCoreApplication::sendEvent(view.viewport(), &move);
        }
    }
    bool send(QTreeView& view, QDropEvent& event)
    {
        QCoreApplication::sendEvent(view.viewport(), &event);
        return event.isAccepted();
    }
    bool enter(QTreeView& view, QPoint place)
    {
        QDragEnterEvent event(place, kAll, &data, Qt::LeftButton, Qt::ShiftModifier);
        return send(view, event);
    }
    bool move(QTreeView& view, QPoint place)
    {
        QDragMoveEvent event(place, kAll, &data, Qt::LeftButton, {});
        return send(view, event);
    }
    bool drop(QTreeView& view, QPoint place)
    {
        QDropEvent event(place, kAll, &data, Qt::LeftButton, {});
        return send(view, event);
    }
    files::TreeView& tree() { return dynamic_cast<files::TreeView&>(view("TreeView1")); }
    QTreeView& list() { return view("ListView1"); }
    QModelIndex folderIndex(int row) { return tree().model()->index(row, 0, driveIndex()); }
    QPoint centre(const QModelIndex& index) { return tree().visualRect(index).center(); }

    QMimeData data;
    QList<QUrl> urls;
    std::optional<qint32> overEffect;
};

} // namespace

TEST_F(CtlExplorerDragging, HangsANodeBelowTheOneItIsDroppedOn)
{
    makeWith(0, 0, 0);
    tree().expand(driveIndex());
    log.clear();
    bool isOverB = false;
    explorer().drag = [&](QDrag& drag, Qt::DropActions) {
        EXPECT_TRUE(drag.mimeData()->urls().isEmpty());
        EXPECT_TRUE(enter(tree(), centre(folderIndex(0))));
        EXPECT_EQ(tree().dropHighlight(), folderIndex(0));
        EXPECT_FALSE(move(tree(), {5, tree().height() - 10}));
        EXPECT_FALSE(tree().dropHighlight().isValid());
        EXPECT_TRUE(move(tree(), centre(folderIndex(1))));
        isOverB = tree().dropHighlight() == folderIndex(1);
        EXPECT_TRUE(drop(tree(), centre(folderIndex(1))));
        return Qt::CopyAction;
    };
    pull(tree(), folderIndex(0));
    EXPECT_TRUE(isOverB);
    EXPECT_FALSE(tree().dropHighlight().isValid());
    ASSERT_EQ(tree().model()->rowCount(driveIndex()), 1);
    const QModelIndex target = folderIndex(0);
    EXPECT_EQ(target.data(), "b");
    ASSERT_EQ(tree().model()->rowCount(target), 1);
    EXPECT_EQ(tree().model()->index(0, 0, target).data(), "a");
    EXPECT_EQ(tree().model()->index(0, 0, target).data(files::KeyRole), disk.path("d/a"));
    EXPECT_EQ(explorer().printedLines(), QStringList({"b is parent of a"}));
    EXPECT_TRUE(disk.exists("d/a/x"));
    EXPECT_EQ(log.join(u','), "FolderClick " + disk.path("d/a") + ",Change");
}

TEST_F(CtlExplorerDragging, PrintsItsLineOnTheSurface)
{
    makeWith(0, 0, 0);
    tree().expand(driveIndex());
    explorer().set(&P::Style, 7);
    const QImage empty = explorer().grab().toImage();
    explorer().set(&P::Style, 0);
    explorer().drag = [&](QDrag&, Qt::DropActions) {
        enter(tree(), centre(folderIndex(1)));
        EXPECT_TRUE(drop(tree(), centre(folderIndex(1))));
        return Qt::CopyAction;
    };
    pull(tree(), folderIndex(0));
    explorer().set(&P::Style, 7);
    EXPECT_NE(explorer().grab().toImage(), empty);
}

TEST_F(CtlExplorerDragging, NeverHangsANodeBelowItself)
{
    makeWith(0, 0, 0);
    tree().expand(driveIndex());
    explorer().drag = [&](QDrag&, Qt::DropActions) {
        enter(tree(), centre(folderIndex(0)));
        EXPECT_TRUE(drop(tree(), centre(folderIndex(0))));
        return Qt::CopyAction;
    };
    pull(tree(), driveIndex());
    EXPECT_EQ(explorer().printedLines(), QStringList());
    EXPECT_EQ(tree().model()->rowCount(driveIndex()), 2);
}

TEST_F(CtlExplorerDragging, TakesNothingFromElsewhereWithoutADropMode)
{
    makeWith(0, 0, 0);
    EXPECT_FALSE(enter(tree(), centre(driveIndex())));
    EXPECT_FALSE(drop(tree(), centre(driveIndex())));
    EXPECT_FALSE(tree().dropHighlight().isValid());
    EXPECT_FALSE(list().viewport()->acceptDrops());
    EXPECT_EQ(log, QStringList());
}

TEST_F(CtlExplorerDragging, TellsWhatIsDraggedOverEitherView)
{
    for (const int style : {0, 1}) {
        makeWith(style, 0, 1);
        QTreeView& shown = style == 0 ? tree() : list();
        EXPECT_TRUE(shown.viewport()->acceptDrops());
        EXPECT_TRUE(enter(shown, {10, 20}));
        EXPECT_TRUE(move(shown, {30, 20}));
        overEffect = 0;
        EXPECT_FALSE(move(shown, {31, 20}));
        overEffect.reset();
        EXPECT_TRUE(drop(shown, {40, 20}));
        EXPECT_EQ(log, QStringList({"Over dragged 3 1 1 150 300 0", "Over dragged 3 1 0 450 300 2",
                                    "Over dragged 3 1 0 465 300 2", "Drop dragged 3 1 0 600 300"}));
        EXPECT_TRUE(enter(shown, {10, 20}));
        EXPECT_TRUE(move(shown, {30, 20}));
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(shown.viewport(), &leave);
        EXPECT_EQ(log.last(), "Over  0 0 0 450 300 1");
    }
}

TEST_F(CtlExplorerDragging, RefusesWhatNobodyListensFor)
{
    bag.write("OleDropMode", 1, 0);
    make(1);
    EXPECT_FALSE(enter(list(), {10, 20}));
    QObject::connect(&explorer(), &ctlExplorer::OLEDragOver, &explorer(),
                     [](QMimeData* /*over*/, qint32* effect) { *effect = Qt::CopyAction; });
    EXPECT_TRUE(enter(list(), {10, 20}));
    EXPECT_FALSE(drop(list(), {10, 20}));
}

TEST_F(CtlExplorerDragging, BeginsNoDragOfItsFilesWithoutADragMode)
{
    makeWith(1, 0, 0);
    bool hasBegun = false;
    explorer().drag = [&](QDrag&, Qt::DropActions) {
        hasBegun = true;
        return Qt::IgnoreAction;
    };
    pull(list(), item(2));
    EXPECT_FALSE(hasBegun);
}

TEST_F(CtlExplorerDragging, DragsItsFilesOut)
{
    bag.write("MultiSelect", true, false);
    makeWith(1, 1, 0);
    explorer().setFileSelected(1, true);
    explorer().setFileSelected(3, true);
    log.clear();
    explorer().drag = [&](QDrag& drag, Qt::DropActions allowed) {
        EXPECT_EQ(allowed, Qt::CopyAction);
        EXPECT_EQ(drag.mimeData()->urls(),
                  QList<QUrl>({QUrl::fromLocalFile(disk.path("d/a")),
                               QUrl::fromLocalFile(disk.path("d/one.jpg"))}));
        emit drag.actionChanged(Qt::CopyAction);
        return Qt::CopyAction;
    };
    pull(list(), item(2));
    EXPECT_EQ(log, QStringList({"FileClick " + disk.path("d/one.jpg"), "Start 1", "Feedback 1 1",
                                "Complete 1"}));
    EXPECT_EQ(urls.size(), 2);
    EXPECT_TRUE(disk.exists("d/one.jpg"));
}

TEST_F(CtlExplorerDragging, DragsAFolderOutOfTheTreeButNoRoot)
{
    makeWith(0, 1, 0);
    tree().expand(driveIndex());
    explorer().drag = [](QDrag&, Qt::DropActions) { return Qt::IgnoreAction; };
    pull(tree(), folderIndex(1));
    EXPECT_EQ(urls, QList<QUrl>({QUrl::fromLocalFile(disk.path("d/b"))}));
    EXPECT_EQ(log.last(), "Complete 0");
    pull(tree(), driveIndex().parent());
    EXPECT_EQ(urls, QList<QUrl>());
}

TEST_F(CtlExplorerDragging, AHandlerAllowsOrForbidsEffects)
{
    makeWith(1, 1, 0);
    qint32 wanted = 3;
    QObject::connect(&explorer(), &ctlExplorer::OLEStartDrag, &explorer(),
                     [&](QMimeData*, qint32* effects) { *effects = wanted; });
    Qt::DropActions seen = Qt::IgnoreAction;
    explorer().drag = [&](QDrag&, Qt::DropActions allowed) {
        seen = allowed;
        return Qt::IgnoreAction;
    };
    pull(list(), item(2));
    EXPECT_EQ(seen, kAll);
    seen = Qt::IgnoreAction;
    wanted = 0;
    pull(list(), item(2));
    EXPECT_EQ(seen, Qt::DropActions(Qt::IgnoreAction));
}

TEST_F(CtlExplorerDragging, AsksForPromisedDataWhenItIsWanted)
{
    makeWith(1, 1, 0);
    QObject::connect(&explorer(), &ctlExplorer::OLEStartDrag, &explorer(),
                     [](QMimeData* sent, qint32*) { sent->setData("text/plain", {}); });
    explorer().drag = [&](QDrag& drag, Qt::DropActions) {
        EXPECT_FALSE(log.contains("SetData 1"));
        EXPECT_EQ(drag.mimeData()->text(), "late");
        return Qt::IgnoreAction;
    };
    pull(list(), item(2));
    EXPECT_TRUE(log.contains("SetData 1"));
}
