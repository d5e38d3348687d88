#pragma once

namespace velorama {

/// Tells assistive tools of `picbtn` as a button that they can press. Called by the widget itself.
void installPictureButtonAccess();

}  // namespace velorama
