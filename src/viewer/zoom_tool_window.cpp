#include "viewer/zoom_tool_window.h"

#include "base/numbers.h"
#include "core/interfaces.h"
#include "core/services.h"
#include "core/window_registry.h"
#include "widgets/title_strip.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QSignalBlocker>
#include <QSlider>

namespace {

constexpr int kWidth = 260;
constexpr int kLargestZoom = 15;

} // namespace

fastZoom::fastZoom(QWidget* owner)
    : QWidget(owner, Qt::Tool | Qt::FramelessWindowHint)
{
    setObjectName("fastZoom");
    setWindowTitle(tr("Zoom"));
    makeParts();
    Picture2->applyLook();
    setFixedSize(kWidth, sizeHint().height());
}

void fastZoom::makeParts()
{
    Picture2 = new widgets::TitleStrip(this);
    Picture2->setCaption(tr("Zoom"));
    lblZoom2 = new QLabel(this);
    lblZoom2->setObjectName("lblZoom2");
    lblZoom2->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblZoom2->setMinimumWidth(fontMetrics().horizontalAdvance("00000%"));
    scrZoom2 = new QSlider(Qt::Horizontal, this);
    scrZoom2->setObjectName("scrZoom2");
    scrZoom2->setAccessibleName(tr("Zoom factor"));
    scrZoom2->setRange(1, kLargestZoom);
    scrZoom2->setPageStep(1);
    scrZoom2->setTickPosition(QSlider::TicksBelow);
    scrZoom2->setTickInterval(1);

    auto* row = new QHBoxLayout;
    row->setContentsMargins(10, 8, 10, 8);
    row->addWidget(scrZoom2, 1);
    row->addWidget(lblZoom2);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(1, 1, 1, 1);
    column->setSpacing(0);
    column->addWidget(Picture2);
    column->addLayout(row);

    connect(scrZoom2, &QSlider::valueChanged, this, &fastZoom::applyZoom);
    connect(Picture2, &widgets::TitleStrip::closeRequested, this, &fastZoom::closeByBox);
}

bool fastZoom::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        readZoom();
    }
    return QWidget::event(event);
}

// A line around the window, which has no frame and lies over pictures of any colour.
void fastZoom::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

// The panel holds blanks before the number; before the first zoom it is empty.
void fastZoom::readZoom()
{
    core::MainWindow* mainWindow = core::services().mainWindow;
    if (mainWindow == nullptr) {
        return;
    }
    const QString text = mainWindow->StateBar().panel(core::Panel::Zoom).trimmed();
    const QSignalBlocker blocker(scrZoom2);
    scrZoom2->setValue(static_cast<int>(base::leadingNumber(text.toStdString())) / 100);
    lblZoom2->setText(text);
}

void fastZoom::applyZoom(int factor)
{
    lblZoom2->setText(QStringLiteral("%1%").arg(factor * 100));
    if (core::MainWindow* mainWindow = core::services().mainWindow) {
        mainWindow->viewer().setZoomFactor(factor);
    }
}

void fastZoom::closeByBox()
{
    if (core::MainWindow* mainWindow = core::services().mainWindow) {
        mainWindow->zoomToolClosed();
    }
    Picture2->clearPicture();
    core::windows().unload(objectName());
}
