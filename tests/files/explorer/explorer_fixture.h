#pragma once

#include "files/explorer/ctl_explorer.h"
#include "files/explorer/fake_places.h"
#include "support/temp_tree.h"

#include <QDrag>
#include <QTest>
#include <functional>
#include <gtest/gtest.h>
#include <optional>

namespace files {

// An explorer whose drags go as a test says.
class ScriptedExplorer : public ctlExplorer {
public:
    ScriptedExplorer(const core::PropertyBag& bag, const Places& places)
        : ctlExplorer(nullptr, bag, places)
    {
    }

    std::function<Qt::DropAction(QDrag&, Qt::DropActions)> drag;

protected:
    Qt::DropAction runDrag(QDrag& dragged, Qt::DropActions allowed) override
    {
        return drag(dragged, allowed);
    }
};

// Explorers over the folder "d" of a temporary tree, which is their one drive.
class ExplorerFixture : public testing::Test {
protected:
    ExplorerFixture()
    {
        places.driveList = {{disk.path("d"), platform::DriveType::Fixed, "Data", "", true}};
        bag.write("Path", disk.path("d"), "");
    }

    void make(int style)
    {
        bag.write("Style", style, 0);
        made.emplace(bag, places);
        explorer().resize(400, 600);
        explorer().show();
        log.clear();
        connectAll();
    }
    ScriptedExplorer& explorer() { return *made; }
    QTreeView& view(const char* name) { return *explorer().findChild<QTreeView*>(name); }

    void connectAll()
    {
        const auto note = [this](const char* event) {
            return [this, event](auto... arguments) {
                QStringList line = {event};
                (line.append(QVariant(arguments).toString()), ...);
                log.append(line.join(u' '));
            };
        };
        ctlExplorer& e = explorer();
        QObject::connect(&e, &ctlExplorer::Change, &e, note("Change"));
        QObject::connect(&e, &ctlExplorer::Click, &e, note("Click"));
        QObject::connect(&e, &ctlExplorer::DblClick, &e, note("DblClick"));
        QObject::connect(&e, &ctlExplorer::FolderCheck, &e, note("FolderCheck"));
        QObject::connect(&e, &ctlExplorer::FolderClick, &e, note("FolderClick"));
        QObject::connect(&e, &ctlExplorer::FolderDblClick, &e, note("FolderDblClick"));
        QObject::connect(&e, &ctlExplorer::FolderExpand, &e, note("FolderExpand"));
        QObject::connect(&e, &ctlExplorer::FolderCollapse, &e, note("FolderCollapse"));
        QObject::connect(&e, &ctlExplorer::FileCheck, &e, note("FileCheck"));
        QObject::connect(&e, &ctlExplorer::FileClick, &e, note("FileClick"));
        QObject::connect(&e, &ctlExplorer::FileDblClick, &e, note("FileDblClick"));
        QObject::connect(&e, &ctlExplorer::RootClick, &e, note("RootClick"));
        QObject::connect(&e, &ctlExplorer::RootDblClick, &e, note("RootDblClick"));
        QObject::connect(&e, &ctlExplorer::RootCheck, &e, note("RootCheck"));
        QObject::connect(&e, &ctlExplorer::ColumnClick, &e, note("ColumnClick"));
    }

    static void click(QTreeView& view, const QModelIndex& index)
    {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
    }
    static void doubleClick(QTreeView& view, const QModelIndex& index)
    {
        const QPoint place = view.visualRect(index).center();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
    }
    QModelIndex driveIndex()
    {
        const QAbstractItemModel& model = *view("TreeView1").model();
        return model.index(0, 0, model.index(0, 0, model.index(0, 0)));
    }
    QModelIndex item(int row) { return view("ListView1").model()->index(row, 0); }

    support::TempTree disk =
        support::TempTree({{"d/a/x/", ""}, {"d/b/", ""}, {"d/one.jpg", ""}, {"d/two.txt", ""}});
    FakePlaces places;
    core::PropertyBag bag;
    std::optional<ScriptedExplorer> made;
    QStringList log;
};

} // namespace files
