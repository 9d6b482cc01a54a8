#include "viewer/zoom_tool_window.h"

#include "base/numbers.h"
#include "core/main_menus.h"
#include "core/picture_display.h"
#include "core/services.h"
#include "core/status_bar.h"
#include "core/viewer.h"
#include "core/window_names.h"
#include "widgets/title_strip.h"
#include "widgets/window_drag.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>

namespace {

constexpr int kWidth = 260;
constexpr int kLargestZoom = 15;

// A slider with marks on one side moves its knob to the other, beyond the edge of the height that
// it asks for.
int heightWithKnob(const QSlider& slider)
{
    QStyleOptionSlider option;
    option.initFrom(&slider);
    option.rect = QRect(QPoint(0, 0), slider.sizeHint());
    option.orientation = slider.orientation();
    option.tickPosition = slider.tickPosition();
    const QRect knob = slider.style()->subControlRect(QStyle::CC_Slider, &option,
                                                      QStyle::SC_SliderHandle, &slider);
    const int missing = std::max({0, -knob.top(), knob.bottom() - option.rect.bottom()});
    return option.rect.height() + 2 * missing;
}

} // namespace

QString viewer::zoomReadout(int zoomFactor)
{
    return QStringLiteral("      %1%").arg(zoomFactor * 100);
}

fastZoom::fastZoom()
    : StripWindow("Zoom", Qt::Widget)
{
    setObjectName(core::windowName(core::Window::fastZoom));
    makeParts();
    setFixedSize(kWidth, sizeHint().height());
    connect(qApp, &QApplication::focusChanged, this, &fastZoom::followFocus);
    if (parentWidget() != nullptr) {
        parentWidget()->installEventFilter(this);
    }
}

void fastZoom::makeParts()
{
    lblZoom2 = new QLabel(this);
    lblZoom2->setObjectName("lblZoom2");
    lblZoom2->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblZoom2->setMinimumWidth(fontMetrics().horizontalAdvance("00000%"));
    scrZoom2 = new QSlider(Qt::Horizontal, this);
    scrZoom2->setObjectName("scrZoom2");
    scrZoom2->setAccessibleName("Zoom factor");
    scrZoom2->setRange(1, kLargestZoom);
    scrZoom2->setPageStep(1);
    scrZoom2->setTickPosition(QSlider::TicksBelow);
    scrZoom2->setTickInterval(1);
    scrZoom2->setMinimumHeight(heightWithKnob(*scrZoom2));

    auto* row = new QHBoxLayout;
    row->addWidget(scrZoom2, 1);
    row->addWidget(lblZoom2);
    content().addLayout(row);

    connect(scrZoom2, &QSlider::valueChanged, this, &fastZoom::applyZoom);
}

// Coming into it makes it active, as it does a window of its own.
void fastZoom::followFocus(const QWidget* before, const QWidget* now)
{
    if (now != nullptr && isAncestorOf(now) && !(before != nullptr && isAncestorOf(before))) {
        readZoom();
    }
}

// Else hiding it would hand the focus to whatever comes next on the main window.
void fastZoom::setVisible(bool visible)
{
    core::PictureDisplay* display = core::services().display;
    if (!visible && display != nullptr && isAncestorOf(window()->focusWidget())) {
        display->viewer().giveFocus();
    }
    StripWindow::setVisible(visible);
}

// A smaller main window pushes it along.
bool fastZoom::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize &&
        testAttribute(Qt::WA_Moved)) {
        move(widgets::reachablePlace(pos(), width(), parentWidget()->width(),
                                     parentWidget()->height()));
    }
    return StripWindow::eventFilter(watched, event);
}

bool fastZoom::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        readZoom();
    }
    return StripWindow::event(event);
}

void fastZoom::showEvent(QShowEvent* event)
{
    strip().applyLook();
    StripWindow::showEvent(event);
    readZoom();
}

// Else the main window would step to another picture.
void fastZoom::wheelEvent(QWheelEvent* event)
{
    event->accept();
}

void fastZoom::closeEvent(QCloseEvent* event)
{
    if (core::MainMenus* menus = core::services().menus) {
        menus->zoomToolClosed();
    }
    strip().clearPicture();
    StripWindow::closeEvent(event);
}

// The panel holds blanks before the number; before the first zoom it is empty.
void fastZoom::readZoom()
{
    core::PictureDisplay* display = core::services().display;
    if (display == nullptr) {
        return;
    }
    const QString text = display->StateBar().panel(core::Panel::Zoom).trimmed();
    const QSignalBlocker blocker(scrZoom2);
    scrZoom2->setValue(static_cast<int>(base::leadingNumber(text.toStdString())) / 100);
    lblZoom2->setText(text);
}

void fastZoom::applyZoom(int factor)
{
    lblZoom2->setText(QStringLiteral("%1%").arg(factor * 100));
    if (core::PictureDisplay* display = core::services().display) {
        display->viewer().setZoomFactor(factor);
    }
}
