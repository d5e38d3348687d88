#pragma once

namespace velorama {

/// Tells assistive tools of `tab` as a list of page tabs. Called by the widget itself.
void installTabStripAccess();

}  // namespace velorama
