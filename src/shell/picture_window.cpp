#include "shell/picture_window.h"

#include "core/constants.h"
#include "platform/os/paths.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace shell {

namespace {

constexpr QSize kWelcomeSize{480, 280};
constexpr int kAboutWidth = 480;
constexpr QRgb kPlainBackground = 0xFF131E4A; // the foot of the pictures
constexpr int kMargin = 24;
constexpr int kAboutSpacing = 8;

constexpr int kNameSize = 26; // points
constexpr int kTextSize = 11;
constexpr int kSmallSize = 9;

const QString kVersionText = QStringLiteral("Version 0.1.0");

void moveToMiddle(QWidget& window, const QRect& area)
{
    window.move(area.center() - window.rect().center());
}

} // namespace

PictureWindow::PictureWindow(const QString& name, const QString& picture, QWidget* parent,
                             Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , m_column(new QVBoxLayout(this))
{
    setObjectName(name);
    setWindowTitle(core::kProgramName);
    setAccessibleName(core::kProgramName);
    m_picture = widgets::ScaledPicture::fromFile(
        platform::appFile(QStringLiteral("Images/%1.png").arg(picture)));
    m_column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    if (m_picture.isNull()) {
        addLine(core::kProgramName, kNameSize);
    }
}

void PictureWindow::addLine(const QString& text, int pointSize)
{
    auto* label = new QLabel(text, this);
    QFont font = label->font();
    font.setPointSize(pointSize);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, Qt::white);
    label->setPalette(palette);
    m_column->addWidget(label);
}

int PictureWindow::pictureHeight() const
{
    return m_picture.isNull() ? 0 : m_picture.size().height();
}

QPushButton& PictureWindow::addClose()
{
    m_close = new QPushButton(QStringLiteral("&Close"), this);
    m_close->setObjectName(QStringLiteral("cmdOk"));
    m_close->setAccessibleName(QStringLiteral("Close"));
    m_close->setAutoDefault(true); // Return presses it
    m_column->addWidget(m_close, 0, Qt::AlignRight);
    connect(m_close, &QPushButton::clicked, this, &QWidget::close);
    return *m_close;
}

void PictureWindow::keyPressEvent(QKeyEvent* event)
{
    if (m_close != nullptr && event->key() == Qt::Key_Escape) {
        m_close->click();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void PictureWindow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(kPlainBackground));
    if (!m_picture.isNull()) {
        painter.drawImage(QPoint(), m_picture.forRatio(devicePixelRatioF()));
    }
}

QWidget* makeWelcomeWindow()
{
    auto* window = new PictureWindow(QStringLiteral("frmWelcome"), QStringLiteral("splash"),
                                     nullptr, Qt::SplashScreen | Qt::FramelessWindowHint);
    window->column().addStretch();
    window->addLine(QStringLiteral("Pictures, folder by folder"), kTextSize);
    window->setFixedSize(kWelcomeSize);
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        moveToMiddle(*window, screen->availableGeometry());
    }
    return window;
}

QWidget* makeAboutWindow(QWidget* parent)
{
    auto* window = new PictureWindow(QStringLiteral("frmAbout"), QStringLiteral("about"), parent,
                                     Qt::Dialog | Qt::FramelessWindowHint);
    QVBoxLayout& column = window->column();
    column.setContentsMargins(kMargin, window->pictureHeight() + kMargin, kMargin, kMargin);
    column.setSpacing(kAboutSpacing);
    window->addLine(kVersionText, kTextSize);
    window->addLine(QStringLiteral("A picture browser and viewer for one desktop"), kTextSize);
    window->addLine(
        QStringLiteral("Free software under the GNU General Public License, version 2 or later"),
        kSmallSize);
    column.addSpacing(kAboutSpacing);
    window->addClose().setFocus();
    window->setFixedSize(kAboutWidth, column.sizeHint().height());
    if (parent != nullptr) {
        moveToMiddle(*window, QRect(parent->mapToGlobal(QPoint()), parent->size()));
    }
    return window;
}

} // namespace shell
