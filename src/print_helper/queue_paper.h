#pragma once

#include "print_helper/printing_service.h"

#include <optional>

namespace print_helper {

// Hundredths of a millimetre, as the printing service counts.
struct PaperSize {
    int width = 0;
    int height = 0;
};

// The rim of the upright paper that a printer can't print on, in hundredths of a millimetre, and
// the printer's pixels in an inch, 0 where it doesn't say.
struct PaperRim {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    int dotsPerInch = 0;
};

// Of a paper that the printer doesn't know, as of its usual one. Nothing: it doesn't tell.
[[nodiscard]] std::optional<PaperRim> paperRim(http_t& service, cups_dest_t& queue,
                                               PaperSize paper);

} // namespace print_helper
