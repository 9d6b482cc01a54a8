#include "widgets/strip_window.h"

#include "core/services.h"
#include "core/work_area.h"
#include "widgets/title_strip.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

namespace widgets {

namespace {

constexpr int kFrame = 1; // pixels
constexpr int kMargin = 14;
constexpr int kSpacing = 8;

QWidget* mainWindow()
{
    core::WorkArea* area = core::services().workArea;
    return area == nullptr ? nullptr : area->window();
}

// The corner of something of a size given in the middle of an area, within bounds as a whole.
QPoint centredPlace(const QRect& area, QSize size, const QRect& bounds)
{
    QRect place(QPoint(0, 0), size);
    place.moveCenter(area.center());
    return {std::max(bounds.left(), std::min(place.left(), bounds.right() - size.width())),
            std::max(bounds.top(), std::min(place.top(), bounds.bottom() - size.height()))};
}

// The stop that Tab leads to from a widget, null where the window's last one is.
QWidget* stopBehind(const QWidget& widget)
{
    const QWidget* window = widget.window();
    QWidget* next = widget.nextInFocusChain();
    while (next != window && next->focusPolicy() == Qt::NoFocus) {
        next = next->nextInFocusChain();
    }
    return next == window ? nullptr : next;
}

// The strip is made before the window's own controls, yet its box is the last that Tab reaches.
// Widgets change places one by one: the last of a chain takes nothing from further away behind it.
void moveToTabsEnd(QWidget& widget)
{
    for (QWidget* next = stopBehind(widget); next != nullptr;) {
        QWidget::setTabOrder(next, &widget);
        QWidget* const following = stopBehind(widget);
        if (following == next) {
            return;
        }
        next = following;
    }
}

} // namespace

StripWindow::StripWindow(const QString& caption, Qt::WindowType type)
    : QWidget(mainWindow(), type | Qt::FramelessWindowHint)
    , m_strip(new TitleStrip(this))
    , m_content(new QVBoxLayout)
    , m_cancel(m_strip->closeBox())
{
    setCaption(caption);
    m_strip->applyLook();
    connect(m_strip, &TitleStrip::closeRequested, this, &QWidget::close);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kFrame, kFrame, kFrame, kFrame);
    layout->setSpacing(0);
    layout->addWidget(m_strip);
    m_content->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_content->setSpacing(kSpacing);
    layout->addLayout(m_content, 1);
    if (!isWindow()) {
        setAutoFillBackground(true);
        m_strip->setDragTarget(this);
    }
}

void StripWindow::setCaption(const QString& caption)
{
    setWindowTitle(caption);
    setAccessibleName(caption);
    m_strip->setCaption(caption);
}

void StripWindow::setKeyButtons(QAbstractButton* accept, QAbstractButton* cancel)
{
    m_accept = accept;
    m_cancel = cancel;
}

// A button that has the focus itself comes before the one of the window.
void StripWindow::letButtonsTakeReturn()
{
    for (QPushButton* button : findChildren<QPushButton*>()) {
        button->setAutoDefault(true);
    }
}

void StripWindow::keyPressEvent(QKeyEvent* event)
{
    const bool accepts = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QAbstractButton* pressed = accepts && focusWidget() == m_strip->closeBox() ? m_strip->closeBox()
                               : accepts                                       ? m_accept
                               : event->key() == Qt::Key_Escape                ? m_cancel
                                                                               : nullptr;
    if (pressed == nullptr) {
        QWidget::keyPressEvent(event);
    } else {
        pressed->click();
    }
}

// A line around the window, which has no frame and may lie over anything.
void StripWindow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void StripWindow::enterFirstStop()
{
    moveToTabsEnd(*m_strip->closeBox());
    if (focusWidget() != nullptr) {
        return;
    }
    focusNextChild();
    // Two stops only take turns, whichever of them was made first.
    if (focusWidget() == m_strip->closeBox()) {
        focusNextChild();
    }
}

// Made with its size and place: a window that gets them later, while the window manager takes it
// over, may be told that it is in a corner of the screen, where its popups would come up then.
void StripWindow::setVisible(bool visible)
{
    if (visible) {
        letButtonsTakeReturn();
        ensurePolished();
        layout()->activate();
        if (!testAttribute(Qt::WA_Resized)) {
            adjustSize();
            setAttribute(Qt::WA_Resized, false);
        }
        placeInTheMiddle();
    }
    QWidget::setVisible(visible);
}

void StripWindow::placeInTheMiddle()
{
    const QWidget* main = parentWidget();
    if (main == nullptr || testAttribute(Qt::WA_Moved)) {
        return;
    }
    const QRect area(isWindow() ? main->mapToGlobal(QPoint(0, 0)) : QPoint(0, 0), main->size());
    move(centredPlace(area, size(), isWindow() ? screen()->availableGeometry() : area));
}

void StripWindow::showEvent(QShowEvent* event)
{
    if (isWindow()) {
        enterFirstStop();
    }
    QWidget::showEvent(event);
}

} // namespace widgets
