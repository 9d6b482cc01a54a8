#include "smoke/window_parts.h"

#include "base/twips.h"
#include "shell/command_table.h"
#include "shell/cool_bar.h"
#include "thumbs/pane/pane_layout.h"

#include <QMenuBar>

namespace smoke {

namespace {

// Pixels, as the toolbars and the status bar are laid out.
constexpr int kMargin = 4;
constexpr int kButtonSize = 32;
constexpr int kGap = 8;
constexpr int kStatusHeight = 24;
constexpr int kPaneWidth = base::pixelsFromTwips(thumbs::kPaneDefaultWidth);
constexpr int kAboveTiles = 230; // title, tree, buttons and the information bar
constexpr int kKeyBandAndGo = 12 * 28 + 40 + 44 + 30; // right of the field

int menuBarHeight()
{
    QMenuBar bar;
    bar.addAction(QStringLiteral("File"));
    return bar.sizeHint().height();
}

// From the toolbar's left edge to that of a button; of the one past the last for another index.
int offsetOf(int index)
{
    int offset = kMargin;
    for (const shell::ButtonRow& row : shell::buttonRows()) {
        offset += row.gapBefore ? kGap : 0;
        if (row.index == index) {
            break;
        }
        offset += kButtonSize;
    }
    return offset;
}

} // namespace

WindowParts::WindowParts(const QRect& inside)
    : m_inside(inside)
    , m_barTop(inside.top() + menuBarHeight())
{
    const int left = inside.left() + offsetOf(shell::kNoIndex) + kGap;
    m_field =
        QRect(left, m_barTop, inside.right() - kKeyBandAndGo - left, shell::CoolBar::kRowHeight);
}

QPoint WindowParts::toolbarButton(int index) const
{
    return {m_inside.left() + offsetOf(index) + kButtonSize / 2,
            m_barTop + shell::CoolBar::kRowHeight / 2};
}

QRect WindowParts::workArea() const
{
    const int top = m_barTop + shell::CoolBar::kRowHeight;
    return {m_inside.left(), top, m_inside.width(), statusBar().top() - top};
}

QRect WindowParts::statusBar() const
{
    return {m_inside.left(), m_inside.bottom() + 1 - kStatusHeight, m_inside.width(),
            kStatusHeight};
}

QRect WindowParts::tiles() const
{
    QRect part = workArea();
    part.setTop(part.top() + kAboveTiles);
    part.setWidth(kPaneWidth);
    return part;
}

QRect WindowParts::viewer() const
{
    return workArea().adjusted(kPaneWidth, 0, 0, 0);
}

} // namespace smoke
