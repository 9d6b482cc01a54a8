#pragma once

namespace printing {

// Notes the resolution among the user's settings, as each printing does when it begins.
void storePrintResolution();

} // namespace printing
