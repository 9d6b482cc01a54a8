#pragma once

#include <memory>

class Form1;

namespace viewer {
class DisplayHost;
}

namespace shell {

// What the display pipeline sees of the main window. The window outlives the host.
std::unique_ptr<viewer::DisplayHost> makeDisplayHost(Form1& form);

} // namespace shell
