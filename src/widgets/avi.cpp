#include "widgets/avi.h"

#include "platform/os/files.h"
#include "widgets/avi_reader.h"
#include "widgets/colour_conversion.h"
#include "widgets/masked_picture.h"

#include <QPainter>

namespace widgets {

namespace {

constexpr qint64 kLargestFile = 32 << 20;

} // namespace

AviWindow::AviWindow(QWidget* parent)
    : QWidget(parent)
{
    setObjectName("Avi");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleName("Animation");
    connect(&m_timer, &QTimer::timeout, this, &AviWindow::showNextFrame);
}

bool AviWindow::open(const QString& file)
{
    stop();
    m_frames.clear();
    m_current = 0;
    update();
    const auto bytes = platform::readFile(file, kLargestFile);
    const auto clip =
        bytes ? readAvi(std::as_bytes(std::span(bytes->data(), bytes->size()))) : std::nullopt;
    if (!clip) {
        return false;
    }
    const base::Colour transparent = fromQColor(clip->frames.front().pixelColor(0, 0));
    for (const QImage& frame : clip->frames) {
        m_frames.push_back(maskedPicture(frame, transparent, Tint::Colours));
    }
    m_timer.setInterval(clip->frameMilliseconds);
    return true;
}

void AviWindow::play()
{
    if (m_frames.empty()) {
        return;
    }
    m_isPlaying = true;
    m_current = 0;
    update();
    runTimerIfSeen();
}

void AviWindow::stop()
{
    m_isPlaying = false;
    m_timer.stop();
}

QSize AviWindow::sizeHint() const
{
    return m_frames.empty() ? QSize(0, 0) : m_frames.front().size();
}

void AviWindow::paintEvent(QPaintEvent* /*event*/)
{
    if (m_frames.empty()) {
        return;
    }
    const QImage& frame = m_frames[static_cast<std::size_t>(m_current)];
    QPainter painter(this);
    painter.drawImage((width() - frame.width()) / 2, (height() - frame.height()) / 2, frame);
}

void AviWindow::showEvent(QShowEvent* /*event*/)
{
    runTimerIfSeen();
}

void AviWindow::hideEvent(QHideEvent* /*event*/)
{
    m_timer.stop();
}

void AviWindow::showNextFrame()
{
    m_current = (m_current + 1) % frameCount();
    update();
}

void AviWindow::runTimerIfSeen()
{
    if (m_isPlaying && isVisible() && frameCount() > 1) {
        m_timer.start();
    }
}

namespace {

AviWindow* createWindow(const QString& file, QWidget* parent, const QRect& place)
{
    auto* window = new AviWindow(parent);
    window->open(file); // a file that can't be shown leaves the window empty
    const QSize natural = window->sizeHint();
    window->setGeometry(place.x(), place.y(), place.width() > 0 ? place.width() : natural.width(),
                        place.height() > 0 ? place.height() : natural.height());
    window->show();
    window->play();
    return window;
}

void destroyWindow(QPointer<AviWindow>& window)
{
    if (window.isNull()) {
        return;
    }
    window->stop();
    window->hide();
    window->deleteLater();
    window.clear();
}

} // namespace

} // namespace widgets

Avi::~Avi()
{
    Destroy();
}

void Avi::Create(const QString& file, QWidget* parent, int left, int top, int width, int height,
                 QWidget* secondParent)
{
    Destroy();
    if (parent == nullptr) {
        return;
    }
    const QRect place(left, top, width, height);
    m_window = widgets::createWindow(file, parent, place);
    if (secondParent != nullptr) {
        m_secondWindow = widgets::createWindow(file, secondParent, place);
    }
}

void Avi::AnimatePlay()
{
    for (const auto& window : {m_window, m_secondWindow}) {
        if (!window.isNull()) {
            window->play();
        }
    }
}

void Avi::AnimateStop()
{
    for (const auto& window : {m_window, m_secondWindow}) {
        if (!window.isNull()) {
            window->stop();
        }
    }
}

void Avi::AutoPlay()
{
    AnimatePlay();
}

void Avi::Destroy()
{
    widgets::destroyWindow(m_window);
    widgets::destroyWindow(m_secondWindow);
}
