#pragma once

#include <QWidget>

#include <functional>

namespace velorama {

/// A window's handle as other processes know it; 0 while it has none.
quint32 windowNumber(const QWidget& window);

/// Runs `then` as soon as the window has its handle: at once, or when it is about to be shown for
/// the first time. To ask for the handle earlier would make it earlier, and a window made before it
/// has its place takes that for the place of its inside: it would come up further left and up by
/// the frame at each start. Several run in the order in which they were given. What `then` works on
/// must outlive the window.
void whenNumbered(QWidget& window, std::function<void()> then);

}  // namespace velorama
