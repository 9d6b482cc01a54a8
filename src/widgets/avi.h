#pragma once

#include <QImage>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <vector>

namespace widgets {

// Shows the frames of a clip in its middle, again and again while it plays. The colour of the first
// frame's top left pixel is transparent. Its timer runs only while it plays and is on screen.
class AviWindow : public QWidget {
    Q_OBJECT

public:
    explicit AviWindow(QWidget* parent);

    // False, and without frames, when the file is missing or can't be read.
    bool open(const QString& file);

    void play(); // from the first frame; nothing without a clip
    void stop(); // stays on its frame
    [[nodiscard]] bool isPlaying() const { return m_isPlaying; }
    [[nodiscard]] bool isTimerRunning() const { return m_timer.isActive(); }
    [[nodiscard]] int currentFrame() const { return m_current; }
    [[nodiscard]] int frameCount() const { return static_cast<int>(m_frames.size()); }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void showNextFrame();
    void runTimerIfSeen();

    std::vector<QImage> m_frames; // with alpha
    int m_current = 0;
    bool m_isPlaying = false;
    QTimer m_timer;
};

} // namespace widgets

// A small animation inside a window, or the same in two windows. Every operation may be called at
// any time and as often as one likes; without a clip it does nothing.
class Avi {
public:
    Avi() = default;
    ~Avi();
    Avi(const Avi&) = delete;
    Avi& operator=(const Avi&) = delete;

    // Places the clip in the parent, in pixels, and plays it; a width or height of 0 is the clip's
    // own. What was created before goes. A file that is missing or no clip leaves an empty place.
    // The parents own the animation windows.
    void Create(const QString& file, QWidget* parent, int left, int top, int width, int height,
                QWidget* secondParent = nullptr);

    void AnimatePlay();
    void AnimateStop();
    void AutoPlay();
    void Destroy();

    // Null when nothing is created, or its parent is gone.
    [[nodiscard]] widgets::AviWindow* window() const { return m_window; }
    [[nodiscard]] widgets::AviWindow* secondWindow() const { return m_secondWindow; }

private:
    QPointer<widgets::AviWindow> m_window;
    QPointer<widgets::AviWindow> m_secondWindow;
};
