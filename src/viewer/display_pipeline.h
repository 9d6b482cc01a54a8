#pragma once

#include <QString>
#include <QTimer>
#include <cstdint>

namespace platform {
class FileList;
}

namespace viewer {

// What the display pipeline needs of the main window.
class DisplayHost {
public:
    virtual ~DisplayHost() = default;

    // The pane's file list; null while there is no pane.
    virtual platform::FileList* File1() = 0;
    // Files counted in the folder shown.
    [[nodiscard]] virtual std::int16_t PictureCount() const = 0;
    // The text of the file name field. Setting it opens nothing; clickXiala shows what it names.
    [[nodiscard]] virtual QString Xiala() const = 0;
    virtual void setXiala(const QString& text) = 0;
    virtual void clickXiala() = 0;
    // orgPicture takes the picture of Image1.
    virtual void copyImage1ToOrgPicture() = 0;
    virtual void focusViewer() = 0;
    // Toolbar entry 7, pressed while the show runs.
    virtual void pressSlideButton(bool pressed) = 0;
    [[nodiscard]] virtual bool isWindowMinimised() const = 0;
    // A box or another window waits for the user; nothing may change beneath it.
    [[nodiscard]] virtual bool isModalWindowOpen() const = 0;
    // The focus is where keys go in, so that taking it would send the next ones elsewhere.
    [[nodiscard]] virtual bool isUserTyping() const = 0;
};

// Steps through the pictures of the folder, by hand and by the timer tim_nextpic. The field always
// leads by one: display_pic shows the file that the field names and then writes the next into it.
class DisplayPipeline {
public:
    explicit DisplayPipeline(DisplayHost& host); // not owned

    DisplayPipeline(const DisplayPipeline&) = delete;
    DisplayPipeline& operator=(const DisplayPipeline&) = delete;

    // One file on or back from the list's selection; at the ends the same file shows again. Ends a
    // running show.
    void nextpic();
    void prevpic();

    // Moves SlideIndex, which wraps; it may equal the count, and the tick that finds it there shows
    // the same picture again.
    void SlideNext();
    void SlidePrevp();

    void display_pic();

    void start_slideshow();
    void stop_slideshow(); // also sets SlideIndex to 0
    [[nodiscard]] bool isRunning() const { return tim_nextpic.isActive(); }

    // Toolbar entry 7, and the commands that start and stop outright. The flag doesn't follow a
    // show that something else ended, so the next press may only stop again.
    void toggleSlideShow();
    void setSlideToggle(bool started);
    [[nodiscard]] bool SlideToggle() const { return m_slideToggle; }

    // A second more or less, from 1000 to 65000 milliseconds. The count under way begins anew,
    // except at the ends, where nothing changes.
    void slower();
    void faster();
    [[nodiscard]] int intervalMs() const { return tim_nextpic.interval(); }

    // What the full screen command does once the window covers the screen.
    void continueAfterFullScreen();

    // What the timer does: nothing while the window is minimised, a modal one stands, or a file is
    // still being opened. Unlike display_pic it leaves the focus to a user who types.
    void tick();

private:
    void step(int by);
    void showAndAdvance();
    void changeInterval(int byMs);
    [[nodiscard]] QString selectedPath();

    DisplayHost& m_host;
    QTimer tim_nextpic;
    std::int16_t m_listCursor = 0;
    bool m_slideToggle = false;
    bool m_opening = false; // what the field names; a box of a reader lets events run meanwhile
};

// The text of panel 3 for a zoom factor: 2 reads "      200%".
[[nodiscard]] QString zoomReadout(int zoomFactor);

} // namespace viewer
