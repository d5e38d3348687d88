#pragma once

#include "desktop/main_window.h"

#include <QStringList>

#include <vector>

namespace velorama::desktop {

/// The main window with the page of folders and pictures up.
class PicturesPage : public MainWindow {
public:
    PicturesPage(DesktopSession& session, Program& program, double scale = 1);

    /// Waits until the found list shows this many thumbnails, whole and framed.
    bool waitForThumbnails(int count) const;
    /// Middles of the thumbnails in the found list, in reading order.
    std::vector<QPoint> thumbnails() const;
    /// Splitter between folders and pictures with its left edge at `twips`.
    QPoint splitter(int twips) const;
};

/// The stored slide list: the paths under the numbers 1 to `Items`.
QStringList storedSlides(const Store& store);
bool waitForSlides(const Store& store, const QStringList& wanted);
std::optional<QString> storedItems(const Store& store);
std::optional<QString> storedSlide(const Store& store, int number);

std::optional<QString> filesLocation(const Store& store);
bool setFilesLocation(const Store& store, const QString& folder);
/// Seconds a slide stays and milliseconds between the steps of a fade, read when a show begins.
bool setPace(const Store& store, const QString& interval, const QString& transition);

}  // namespace velorama::desktop
