#pragma once

#include "core/state.h"
#include "support/fake_desktop.h"
#include "support/memory_config_store.h"
#include "thumbs/gallery_fixture.h"
#include "thumbs/page_viewport.h"
#include "thumbs/pane/browser_pane.h"
#include "widgets/chameleon_button.h"

#include <QCoreApplication>
#include <QTest>
#include <memory>

// A pane in a main window, with a folder of pictures a to c and another one.
class PaneTest : public testing::Test {
protected:
    PaneTest()
    {
        m_tree.add({"pics/"});
        for (const char* name : {"a", "b", "c"}) {
            QImage(60, 40, QImage::Format_RGB32)
                .save(m_tree.path(std::string("pics/") + name + ".bmp"));
        }
        m_tree.add({"pics/sub/x.swf", "x"});
        m_tree.add({"other/y.swf", "y"});
        m_config.values["SpeciFolder"] = m_tree.path("pics");
        core::state() = {};
        core::state().BrowserShown = true;
        m_main.parentWindow = &m_form;
        m_main.viewerHeight = 12000;
        m_form.resize(1200, 900);
        m_form.show();
    }

    ~PaneTest() override
    {
        m_pane.reset();
        core::state() = {};
    }

    void load()
    {
        m_pane = std::make_unique<frmThumbnaillist>(&m_form);
        m_pane->load();
        QObject::connect(&list(), &ThumbNailList::ThumbPageStatus, &list(), [this] { ++m_runs; });
    }

    // Loads the pane, shows it and serves its first activation.
    void start()
    {
        load();
        m_pane->show();
        m_pane->treeSelected(m_tree.path("pics"));
        letEventsRun();
    }

    static void letEventsRun()
    {
        for (int k = 0; k < 5; ++k) {
            QCoreApplication::processEvents();
        }
    }

    [[nodiscard]] ThumbNailList& list() { return m_pane->ThumbNailList1(); }
    [[nodiscard]] QWidget* part(const char* name) { return m_pane->findChild<QWidget*>(name); }
    void press(int button) { m_pane->Tbmenub(button).click(); }

    [[nodiscard]] QPoint tile(int index)
    {
        const thumbs::TileRow* row = list().tile(index);
        const QPoint corner = list().surface().pages.stack().pageRect(row->page).topLeft();
        return list().surface().viewport.sheetPosition() + corner + row->box.rect().center();
    }

    void clickTile(int index)
    {
        QTest::mouseClick(&list().surface().viewport, Qt::LeftButton, {}, tile(index));
    }

    support::TempTree m_tree;
    support::MemoryConfigStore m_config;
    support::FakeMainWindow m_main;
    support::FakeDialogs m_dialogs;
    support::FakeDesktop m_desktop;
    QWidget m_form;
    std::unique_ptr<frmThumbnaillist> m_pane;
    int m_runs = 0;
};
