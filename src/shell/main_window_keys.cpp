// The keys of the main window: those of the viewer and the pan view, and the way that Tab takes.

#include "core/browser_pane.h"
#include "core/services.h"
#include "core/settings.h"
#include "core/window_registry.h"
#include "shell/command_table.h"
#include "shell/main_window.h"
#include "shell/menus.h"
#include "shell/tab_stops.h"
#include "shell/toolbars.h"
#include "viewer/picture_viewer.h"

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <array>

namespace {

// Codes of keys as the viewer reports them.
constexpr int kEscapeCode = 27;
constexpr int kHomeCode = 36;
constexpr int kEndCode = 35;
constexpr int kMenuCode = 93;

constexpr int kTopLeft = 5; // places of the viewer's Go
constexpr int kBottomRight = 8;
constexpr int kArrowStep = 32; // pixels of the screen

struct ScrollKey {
    int code;
    int direction; // of the viewer's Scroll
    bool byPage;
};

constexpr std::array kScrollKeys{
    ScrollKey{38, 0, false}, ScrollKey{40, 1, false}, // Up, Down
    ScrollKey{37, 2, false}, ScrollKey{39, 3, false}, // Left, Right
    ScrollKey{33, 0, true},  ScrollKey{34, 1, true},  // Page Up, Page Down
};

// The viewer counts steps in pixels of the picture. A page leaves a tenth of itself in sight.
int amountOf(const ScrollKey& key, const cpvPicViewer& viewer)
{
    return key.byPage ? viewer.CurrentHeight() * 9 / 10 : kArrowStep / viewer.ZoomFactor();
}

} // namespace

void Form1::connectKeys()
{
    connect(m_viewer, &cpvPicViewer::KeyDown, this, [this](int code) {
        if (code == kMenuCode) {
            openRightMenu(m_viewer->mapToGlobal(m_viewer->rect().center()));
            selectFirstEntry();
        } else if (!runKey(code)) {
            scrollByKey(code);
        }
    });
    connect(m_viewer, &cpvPicViewer::PanViewKeyDown, this, [this](int code) {
        if (code == kEscapeCode) {
            m_viewer->giveFocus();
        } else {
            scrollByKey(code);
        }
    });
}

bool Form1::runKey(int code)
{
    for (const shell::KeyRow& row : shell::keyRows()) {
        if (row.code == code) {
            runCommand(row.need, row.run, row.index);
            if (!m_unloaded) {
                m_viewer->Refresh();
                m_viewer->PanViewRefresh();
            }
            return true;
        }
    }
    return false;
}

void Form1::scrollByKey(int code)
{
    if (code == kHomeCode || code == kEndCode) {
        m_viewer->Go(code == kHomeCode ? kTopLeft : kBottomRight);
        return;
    }
    const auto* const row = std::find_if(kScrollKeys.begin(), kScrollKeys.end(),
                                         [&](const ScrollKey& key) { return key.code == code; });
    if (row != kScrollKeys.end()) {
        m_viewer->Scroll(row->direction, amountOf(*row, *m_viewer));
    }
}

void Form1::openRightMenu(const QPoint& screenPosition)
{
    if (core::setting(core::kAskToImport)) {
        core::windows().show(core::Window::frmMsg);
        return;
    }
    m_menus->menu(QString::fromLatin1(shell::kRightMenu))->popup(screenPosition);
}

// A menu that a key opened starts with an entry chosen, so that Return and a reader have one.
void Form1::selectFirstEntry()
{
    QMenu* menu = m_menus->menu(QString::fromLatin1(shell::kRightMenu));
    if (menu->isVisible()) {
        menu->setActiveAction(menu->actions().first());
    }
}

// Tab goes through the areas as they lie on the window. Parts come and go and the folder tree is
// made late, so the order is worked out when it is asked for.
bool Form1::focusNextPrevChild(bool next)
{
    auto* pane = dynamic_cast<QWidget*>(core::services().browserPane);
    const QList<QWidget*> stops =
        shell::tabStops({m_toolbars->commands(), m_fieldBand, m_toolbars->keys(), pane, m_viewer,
                         findChild<QWidget*>(QStringLiteral("frmPanView")),
                         findChild<QWidget*>(QStringLiteral("fastZoom"))});
    QWidget* stop = shell::neighbour(stops, focusWidget(), next);
    if (stop == nullptr) {
        return false;
    }
    stop->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

// Keys arrive here that nobody wanted. From anywhere else Escape leads back to the picture, where
// the keys of the commands act.
void Form1::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        m_viewer->giveFocus();
    } else {
        QWidget::keyPressEvent(event);
    }
}
