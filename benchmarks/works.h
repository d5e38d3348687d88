#pragma once

#include "contest.h"

namespace velorama::bench {

/// Each makes what its measurements need, the first time also the pictures on disk.
Contest wallpaperThumbnails();
Contest cameraThumbnails();
Contest slideLoading();
Contest tickWithSlideReady();
Contest fadeStep();
Contest addingAll();
Contest startOfProgram();
Contest memoryOfSlides();

/// Body of the process that `memoryOfSlides` starts: a window's slide list of all pictures of
/// `folder`; prints the memory it then takes, in KiB. 0 if all went well.
int holdSlides(const QString& folder);

}  // namespace velorama::bench
