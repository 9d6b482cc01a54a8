#include "editing/strip_window.h"

#include "core/interfaces.h"
#include "core/services.h"
#include "widgets/title_strip.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace editing {

namespace {

QWidget* mainWindow()
{
    core::MainWindow* form = core::services().mainWindow;
    return form == nullptr ? nullptr : form->window();
}

} // namespace

StripWindow::StripWindow(const QString& caption)
    : QWidget(mainWindow(), Qt::Dialog | Qt::FramelessWindowHint)
    , m_strip(new widgets::TitleStrip(this))
    , m_content(new QVBoxLayout)
{
    setWindowTitle(caption);
    m_strip->setCaption(caption);
    m_strip->applyLook();
    connect(m_strip, &widgets::TitleStrip::closeRequested, this, &QWidget::close);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    layout->addWidget(m_strip);
    m_content->setContentsMargins(12, 12, 12, 12);
    m_content->setSpacing(8);
    layout->addLayout(m_content, 1);
}

void StripWindow::setKeyButtons(QAbstractButton* accept, QAbstractButton* cancel)
{
    m_accept = accept;
    m_cancel = cancel;
    for (QAbstractButton* button : {accept, cancel}) {
        // A button that has the focus itself comes before the one of the window.
        if (auto* pushButton = qobject_cast<QPushButton*>(button)) {
            pushButton->setAutoDefault(true);
        }
    }
}

void StripWindow::keyPressEvent(QKeyEvent* event)
{
    const bool accepts = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QAbstractButton* pressed = accepts                          ? m_accept
                               : event->key() == Qt::Key_Escape ? m_cancel
                                                                : nullptr;
    if (pressed == nullptr) {
        QWidget::keyPressEvent(event);
    } else {
        pressed->click();
    }
}

} // namespace editing
