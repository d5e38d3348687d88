#pragma once

#include "contest.h"

#include <QSize>
#include <QStringList>

namespace velorama::bench {

/// Milliseconds that a program takes from its start to its end; nothing if it cannot be started or
/// fails.
std::optional<double> timeOfProgram(const QString& program, const QStringList& arguments);

/// Empty if a program is in the search path, otherwise what to say in its place.
QString whyAbsent(const QString& program, const QString& package);

/// A folder for output that nobody reads, in memory where the system has such a place.
QString scratchFolder();

/// One process of libvips that makes a thumbnail of 64 pixels of every file.
Measure vipsThumbnails(const QStringList& files);
/// One process of libvips that fits one picture into a box.
Measure vipsSlide(const std::function<QString()>& nextFile, QSize box);
/// libjpeg-turbo decoding every file at an eighth, on all processors: nothing that looks at all the
/// pictures can do less.
Measure jpegEighths(const QStringList& files);

}  // namespace velorama::bench
