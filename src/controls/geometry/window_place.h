#pragma once

#include <QRect>
#include <QWidget>

namespace velorama {

/// The screen that a window belongs to: a dialog not yet shown belongs to its owner's.
QRect screenPlace(const QWidget& window);

/// The screen at the window's middle; where there is none, the one that it belongs to.
QRect nearestScreen(const QWidget& window);

/// All screens together.
QRect desktopPlace(const QWidget& window);

/// False for a window whose upper edge, where it is taken to be moved, is on none of the screens.
bool isReachable(const QWidget& window);

/// Width and height that the desktop's frame adds to a window. A window gets it only when it is on
/// the screen; until then its owner's, which is of the same make.
QSize frameOf(const QWidget& window);

/// Puts a window that has not been shown in the middle of the screen that it belongs to.
void centreOnScreen(QWidget& window);

/// The same for a window that may be larger than the screen: it becomes as small as the screen
/// asks, and the frame that it will get, as high as that of any desktop, is on the screen too.
void placeFirst(QWidget& window);

/// Moves a window that hangs off its screen, frame and all, back onto it; the upper left corner
/// counts where it is larger. Others, and maximised ones, stay where they are.
void keepOnScreen(QWidget& window);

/// Left upper corner of the frame, where the window stands or goes back to when it is no longer
/// maximised.
QPoint normalPlace(const QWidget& window);

}  // namespace velorama
