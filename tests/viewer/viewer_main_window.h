#pragma once

#include "platform/desktop/pointer.h"
#include "support/fake_main_window.h"
#include "viewer/picture_viewer.h"

// A main window with a real viewer, and a status bar that notes the pointer at its last change.
class ViewerMainWindow : public support::FakeMainWindow {
public:
    class PanelBar : public support::FakeStatusBar {
    public:
        void setPanel(core::Panel panel, const QString& text) override
        {
            FakeStatusBar::setPanel(panel, text);
            pointer = platform::pointer();
        }

        platform::Pointer pointer = platform::Pointer::Default;
    };

    core::Viewer& viewer() override { return picture; }
    core::StatusBar& StateBar() override { return panels; }
    QWidget* window() override { return &picture; }

    cpvPicViewer picture;
    PanelBar panels;
};
