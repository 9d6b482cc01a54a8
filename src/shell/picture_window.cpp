#include "shell/picture_window.h"

#include "core/constants.h"
#include "platform/paths.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

namespace shell {

namespace {

constexpr QSize kSize{480, 280};
constexpr QRgb kPlainBackground = 0xFF20303F;
constexpr int kMargin = 24;

const QString kVersionText = QStringLiteral("Version 0.1.0");

QLabel* addText(QWidget* window, QVBoxLayout* column, const QString& text, int pointSize, bool bold)
{
    auto* label = new QLabel(text, window);
    QFont font = label->font();
    font.setPointSize(pointSize);
    font.setBold(bold);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, Qt::white);
    label->setPalette(palette);
    column->addWidget(label);
    return label;
}

} // namespace

PictureWindow::PictureWindow(const QString& name, const QString& picture, Qt::WindowFlags flags)
    : QWidget(nullptr, flags)
{
    setObjectName(name);
    setWindowTitle(core::kProgramName);
    setAccessibleName(core::kProgramName);
    m_picture = widgets::ScaledPicture::fromFile(
        platform::appFile(QStringLiteral("Images/%1.png").arg(picture)));
    setFixedSize(kSize);
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        move(screen->availableGeometry().center() - rect().center());
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
                                     Qt::SplashScreen | Qt::FramelessWindowHint);
    auto* column = new QVBoxLayout(window);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->addStretch();
    addText(window, column, core::kProgramName, 26, true);
    addText(window, column, QStringLiteral("Pictures, folder by folder"), 11, false);
    return window;
}

QWidget* makeAboutWindow(QWidget* parent)
{
    auto* window = new PictureWindow(QStringLiteral("frmAbout"), QStringLiteral("about"),
                                     Qt::Dialog | Qt::FramelessWindowHint);
    if (parent != nullptr) {
        window->move(parent->mapToGlobal(parent->rect().center()) - window->rect().center());
    }
    auto* column = new QVBoxLayout(window);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->addStretch();
    addText(window, column, core::kProgramName, 26, true);
    addText(window, column, kVersionText, 11, false);
    addText(window, column, QStringLiteral("A picture browser and viewer for one desktop"), 11,
            false);
    addText(
        window, column,
        QStringLiteral("Free software under the GNU General Public License, version 2 or later"), 9,
        false);
    auto* close = new QPushButton(QStringLiteral("&Close"), window);
    close->setObjectName(QStringLiteral("cmdOk"));
    close->setAccessibleName(QStringLiteral("Close"));
    column->addWidget(close, 0, Qt::AlignRight);
    QObject::connect(close, &QPushButton::clicked, window, &QWidget::close);
    const auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), window);
    QObject::connect(escape, &QShortcut::activated, window, &QWidget::close);
    close->setFocus();
    return window;
}

} // namespace shell
