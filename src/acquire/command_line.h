#pragma once

namespace acquire {

// Splits the command line of this process into its arguments and keeps what the last one names in
// core::state(). Nothing comes of it: the command line is never acted upon.
void readCommandLine();

} // namespace acquire
