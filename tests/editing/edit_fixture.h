#pragma once

#include "core/state.h"
#include "core/window_registry.h"
#include "editing/windows.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/test_images.h"
#include "support/fake_desktop.h"
#include "support/fake_dialogs.h"
#include "support/fake_main_window.h"
#include "support/memory_config_store.h"
#include "support/temp_tree.h"

#include <QTest>

// What a command meets: a main window with a viewer, a folder for the working files, and dialogs
// and a desktop that record what they are asked for.
class EditTest : public testing::Test {
protected:
    EditTest() { editing::registerWindows(); }

    ~EditTest() override
    {
        for (const core::Window window :
             {core::Window::Form4, core::Window::frmSaveJPGc, core::Window::FrmSwitch}) {
            core::windows().unload(window);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        core::state() = {};
        platform::setPointer(platform::Pointer::Default);
    }

    void showInViewer(const QImage& image)
    {
        form.viewer().setPicture(platform::Picture(image));
        form.log.clear();
    }

    [[nodiscard]] QImage shown() { return form.viewer().Picture().flattened(); }

    [[nodiscard]] bool exists(const std::string& name) const { return tree.exists("app/" + name); }

    // The picture in a working file, null without one.
    [[nodiscard]] QImage fileImage(const std::string& name) const
    {
        const auto picture = platform::loadPicture(tree.path("app/" + name));
        return picture ? picture->flattened() : QImage();
    }

    void expectFile(const std::string& name, const QImage& image) const
    {
        test::expectPixels(fileImage(name), image);
    }

    void expectNoPictureBox() const
    {
        ASSERT_EQ(dialogs.boxes.size(), 1U);
        EXPECT_EQ(dialogs.boxes[0].text, "No picture to process.");
        EXPECT_EQ(dialogs.boxes[0].icon, platform::BoxIcon::Information);
    }

    support::TempTree tree{{"app/Images/", ""}};
    support::MemoryConfigStore config;
    support::FakeMainWindow form;
    support::FakeDialogs dialogs;
    support::FakeDesktop desktop;
};
