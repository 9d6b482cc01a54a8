#pragma once

#include "base/colours.h"

namespace core {

// The strip that shows how far a long run has come.
class ProgressStrip {
public:
    virtual ~ProgressStrip() = default;

    virtual void showStrip(bool visible) = 0;
    virtual void setBackground(base::Colour colour) = 0;
    // Clears the strip and fills it from the left to the fraction (0 to 1) of its width.
    virtual void fill(double fraction, base::Colour colour) = 0;
};

} // namespace core
