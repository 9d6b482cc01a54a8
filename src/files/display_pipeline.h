#pragma once

#include <QTimer>
#include <cstdint>

namespace files {

// Opens what the file name field names and steps through the pictures of the folder, by hand and by
// the timer tim_nextpic. In a show the field always leads by one: display_pic shows the file that
// the field names and then writes the next into it.
//
// It works on the main window by the roles of core::services(), which are in place for as long as a
// pipeline is.
class DisplayPipeline {
public:
    DisplayPipeline();

    DisplayPipeline(const DisplayPipeline&) = delete;
    DisplayPipeline& operator=(const DisplayPipeline&) = delete;

    // What Return and the Go button do with the field's text, and what a choice in its drop-down
    // and every step do. The pointer is the default one afterwards.
    void goEnter();
    void clickXiala();

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

    QTimer tim_nextpic;
    std::int16_t m_listCursor = 0;
    bool m_slideToggle = false;
    bool m_opening = false; // what the field names; a box of a reader lets events run meanwhile
};

} // namespace files
