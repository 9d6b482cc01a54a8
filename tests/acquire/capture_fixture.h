#pragma once

#include "acquire/frozen_pane.h"
#include "acquire/windows.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "platform/desktop/clipboard.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/pictures/picture_loader.h"
#include "support/fake_main_window.h"
#include "support/fake_screen_grab.h"
#include "support/fake_tray.h"
#include "support/temp_tree.h"

#include <QCoreApplication>
#include <QImage>
#include <QMouseEvent>
#include <QTest>
#include <gtest/gtest.h>

// The windows over the frozen screen, with a main window, a tray and screens that a test draws. The
// pointer's places are those of the pane that it is on.
class CaptureTest : public testing::Test {
protected:
    CaptureTest() { acquire::registerWindows(); }

    ~CaptureTest() override
    {
        for (const core::Window window :
             {core::Window::frmCapture, core::Window::frmGetColor, core::Window::frmCaputreN}) {
            core::windows().unload(window);
        }
        deleteUnloaded();
        platform::resetClosing();
        platform::setPointer(platform::Pointer::Default);
        core::state() = {};
    }

    static void deleteUnloaded()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static bool isOpen(core::Window which)
    {
        const QWidget* window = core::windows().find(which);
        return window != nullptr && window->isVisible();
    }

    static QList<acquire::FrozenPane*> panes(core::Window which)
    {
        const QWidget* window = core::windows().find(which);
        return window == nullptr ? QList<acquire::FrozenPane*>()
                                 : window->findChildren<acquire::FrozenPane*>();
    }

    // The pane of a screen of whichever window stands there.
    static acquire::FrozenPane& pane(int screen = 0)
    {
        return *(panes(core::Window::frmCapture) + panes(core::Window::frmGetColor)).at(screen);
    }

    static void press(QPoint place, Qt::MouseButton button = Qt::LeftButton, int screen = 0)
    {
        QTest::mousePress(&pane(screen), button, {}, place);
    }

    // By an event of the pane's own: where no screen is real, panes may lie over each other.
    static void movePointer(QPoint place, int screen = 0)
    {
        QWidget& under = pane(screen);
        QMouseEvent event(QEvent::MouseMove, place, under.mapToGlobal(place), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&under, &event);
    }

    static void pressKey(core::Window which, Qt::Key key, Qt::KeyboardModifiers held = {})
    {
        QTest::keyClick(core::windows().find(which), key, held);
    }

    // What stands on a screen now.
    static QImage looks(int screen = 0)
    {
        return pane(screen).grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    support::TempTree tree{{"app/Images/", ""}};
    support::FakeMainWindow form;
    support::FakeScreenGrab screens;
    support::FakeTray tray;
};
