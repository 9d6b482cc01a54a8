#pragma once

namespace thumbs {

// Tells screen readers of the pane's two bars as what they are. Comes before a bar gets a name,
// which readers are told of; further calls do nothing.
void installAccessibleBars();

} // namespace thumbs
