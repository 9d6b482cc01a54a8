#pragma once

#include <optional>

namespace preferences {

// Size and colours of the thumbnails, chosen by their entries one after the other. To apply a
// choice is to run over the folder, which lets events run. One that comes meanwhile ends that run,
// and of several the newest is applied behind it, so that runs don't pile up in each other while a
// slider is dragged.
class ThumbnailChoice {
public:
    void chooseSize(int entry);
    void chooseColours(int entry);
    void apply(); // what was chosen since the last time, if anything

private:
    void endRun();
    void applyOne();

    std::optional<int> m_size; // not applied yet
    std::optional<int> m_colours;
    bool m_isApplying = false;
};

} // namespace preferences
