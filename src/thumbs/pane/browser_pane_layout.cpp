#include "core/services.h"
#include "core/state.h"
#include "core/work_area.h"
#include "files/explorer/folder_tree.h"
#include "thumbs/pane/browser_pane.h"
#include "thumbs/pane/pane_splitter.h"
#include "thumbs/thumbnail_list.h"
#include "widgets/chameleon_button.h"
#include "widgets/colour_conversion.h"
#include "widgets/focus_ring.h"
#include "widgets/title_strip.h"
#include "widgets/window_parts.h"

#include <QAbstractButton>
#include <QChildEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <algorithm>

using base::pixelsFromTwips;
using base::twipsFromPixels;

namespace {

constexpr base::Colour kPaneColour = 0xE0E0E0;
constexpr int kGripWidth = 5;
constexpr int kButtonSide = 28;
constexpr int kButtonMargin = 2;     // above and below the buttons
constexpr int kTreeRightMargin = 19; // the tree is this much narrower than the pane
constexpr int kTreeBottomMargin = 2;

constexpr int kOwnColours = 2;
constexpr base::Colour kButtonOver = 0xF4F0EC;

struct ButtonRow {
    const char* picture; // under Images/toolbar
    const char* text;
};

constexpr std::array<ButtonRow, frmThumbnaillist::kButtons> kButtonRows{{
    {"up", "Parent folder"},
    {"tools", "Folder tools"},
    {"properties", "Properties"},
    {"rename", "Rename"},
    {"delete", "Delete"},
    {"copy", "Copy to"},
    {"move", "Move to"},
    {"addfavourite", "Add to favourites"},
    {"refresh", "Refresh"},
}};

QRect onScreen(const thumbs::PaneBox& box)
{
    return {pixelsFromTwips(box.left), pixelsFromTwips(box.top), pixelsFromTwips(box.width),
            std::max(0, pixelsFromTwips(box.height))};
}

// A narrow pane has its buttons in several rows.
int buttonsPerRow(int width)
{
    return std::max(1, width / kButtonSide);
}

int buttonsHeight(int width)
{
    const int perRow = buttonsPerRow(width);
    const int rows = (frmThumbnaillist::kButtons + perRow - 1) / perRow;
    return rows * kButtonSide + 2 * kButtonMargin;
}

void paintIn(QWidget& widget, base::Colour colour)
{
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, widgets::toQColor(colour));
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

} // namespace

void frmThumbnaillist::makeParts()
{
    m_title = new widgets::TitleStrip(this);
    m_title->setDragTarget(this);
    m_title->setCaption("Browser");
    m_title->closeBox()->hide();
    m_dir1 = new QWidget(this);
    m_dir1->setObjectName("Dir1");
    m_dir1->setAccessibleName("Folders");
    m_dir1->installEventFilter(this);
    paintIn(*m_dir1, kPaneColour);
    m_splitter = new thumbs::PaneSplitter(this);
    m_splitter->setObjectName("Splitter");
    m_splitter->setAccessibleName("Height of the folder tree");
    m_splitter->move(0, pixelsFromTwips(thumbs::kSplitterMaximumTop));
    connect(m_splitter, &thumbs::PaneSplitter::dropped, this, &frmThumbnaillist::ThumResize);
    m_tbmiddle = new QWidget(this);
    m_tbmiddle->setObjectName("Tbmiddle");
    m_tbmiddle->setAccessibleName("Folder buttons");
    m_tbmiddle->installEventFilter(this);
    paintIn(*m_tbmiddle, kPaneColour);
    makeButtons();
    m_list = new ThumbNailList(this);
    m_list->setObjectName("ThumbNailList1");
    m_list->setAccessibleName("Thumbnails");
    // By Tab only: a click on a tile gives the keys to the picture.
    m_list->setFocusPolicy(Qt::TabFocus);
    m_list->installEventFilter(this);
    new widgets::FocusRing(*m_list); // a child of the list
    connect(m_list, &ThumbNailList::ThumbClick, this, &frmThumbnaillist::showTilesFile);
    connect(m_list, &ThumbNailList::ThumbDblClick, this, &frmThumbnaillist::openTilesFile);
    m_grip = new thumbs::PaneGrip(this);
    m_grip->setObjectName("p1");
    m_grip->setAccessibleName("Width of the browser");
    connect(m_grip, &thumbs::PaneGrip::widthWanted, this, &frmThumbnaillist::changeWidth);
}

void frmThumbnaillist::makeButtons()
{
    for (int index = 0; index < kButtons; ++index) {
        const auto place = static_cast<std::size_t>(index);
        const ButtonRow& row = kButtonRows[place];
        auto* button = new chameleonButton(m_tbmiddle, QStringLiteral("Tbmenub_%1").arg(index));
        widgets::dressToolButton(*button, row.picture, row.text);
        button->setColorScheme(kOwnColours);
        button->setBackColor(kPaneColour);
        button->setBackOver(kButtonOver);
        connect(button, &QAbstractButton::clicked, this, [this, index] { pressButton(index); });
        m_buttons[place] = button;
    }
}

chameleonButton& frmThumbnaillist::Tbmenub(int index)
{
    return *m_buttons.at(static_cast<std::size_t>(index));
}

// The pane follows the viewer's height; its place beside the viewer is the main window's business.
void frmThumbnaillist::ThumResize()
{
    if (m_resizing || core::state().PictureWide || window()->isMinimized()) {
        return;
    }
    m_resizing = true;
    core::WorkArea* area = core::services().workArea;
    if (area != nullptr && pixelsFromTwips(area->viewerHeightTwips()) > 0) {
        resize(width(), pixelsFromTwips(area->viewerHeightTwips()));
    }
    layoutParts();
    const int wanted = pixelsFromTwips(thumbs::clampedPaneWidth(widthTwips()));
    if (wanted != width()) {
        resize(wanted, height());
        layoutParts();
    }
    if (area != nullptr) {
        area->form1paint();
    }
    m_resizing = false;
}

void frmThumbnaillist::layoutParts()
{
    const int inner = std::max(0, width() - kGripWidth);
    const int titleHeight = m_title->sizeHint().height();
    m_title->setGeometry(0, 0, inner, titleHeight);

    thumbs::PaneInput input;
    input.innerWidth = twipsFromPixels(inner);
    input.innerHeight = twipsFromPixels(height());
    input.treeTop = twipsFromPixels(titleHeight);
    input.splitterTop = twipsFromPixels(m_splitter->y());
    input.buttonsHeight = twipsFromPixels(buttonsHeight(inner));
    const thumbs::PaneLayout layout = thumbs::layoutPane(input, thumbs::kScreenMetrics);
    m_dir1->setGeometry(onScreen(layout.tree));
    m_splitter->setGeometry(onScreen(layout.splitter));
    m_tbmiddle->setGeometry(onScreen(layout.buttons));
    m_list->setGeometry(onScreen(layout.thumbnails));
    m_grip->setGeometry(inner, 0, kGripWidth, height());
    layoutButtons();
    placeTree();
}

void frmThumbnaillist::layoutButtons()
{
    const int perRow = buttonsPerRow(m_tbmiddle->width());
    for (int index = 0; index < kButtons; ++index) {
        Tbmenub(index).setGeometry(index % perRow * kButtonSide,
                                   kButtonMargin + index / perRow * kButtonSide, kButtonSide,
                                   kButtonSide);
    }
}

void frmThumbnaillist::placeTree()
{
    files::FolderTree& tree = files::folderTree();
    if (tree.isOpen()) {
        tree.setGeometry(0, 0, width() - kTreeRightMargin, m_dir1->height() - kTreeBottomMargin);
    }
}

void frmThumbnaillist::changeWidth(int pixels)
{
    const int wanted = pixelsFromTwips(thumbs::clampedPaneWidth(twipsFromPixels(pixels)));
    if (wanted != width()) {
        resize(wanted, height());
        ThumResize();
    }
}

void frmThumbnaillist::resizeEvent(QResizeEvent* /*event*/)
{
    layoutParts();
}

void frmThumbnaillist::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), widgets::toQColor(kPaneColour));
}

// Presses and turns of the wheel on the pane are never meant for the window behind it.
void frmThumbnaillist::wheelEvent(QWheelEvent* event)
{
    event->accept();
}

void frmThumbnaillist::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

bool frmThumbnaillist::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_tbmiddle && event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
        popUpTools();
        return true;
    }
    if (watched == m_dir1 && event->type() == QEvent::ChildPolished) {
        if (auto* tree = qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child())) {
            new widgets::FocusRing(*tree); // a child of the tree
        }
    }
    if (watched == m_list && event->type() == QEvent::Resize) {
        m_roomChanged = true;
    }
    if (watched == m_list && event->type() == QEvent::KeyPress) {
        return handleTileKey(*static_cast<QKeyEvent*>(event));
    }
    if (event->type() == QEvent::Expose) {
        startWhenReady();
    }
    if (watched == window() && event->type() == QEvent::Resize && event->spontaneous() &&
        m_firstRunEnded) {
        QTimer::singleShot(0, this, &frmThumbnaillist::followWindow); // when it is laid out
    }
    return QWidget::eventFilter(watched, event);
}
