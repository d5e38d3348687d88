#pragma once

#include <QString>
#include <QStringList>

namespace velorama::bench {

/// The folder `name` of the bench's own data beside the program, made if need be. It is kept from
/// run to run.
QString dataFolder(const QString& name);

/// Full paths of the files in a folder, by name.
QStringList filesOf(const QString& folder);

/// The pictures are made, or copied, the first time; each function returns their folder.

/// The photographs of Debian's plasma-workspace-wallpapers under plain names, links followed; empty
/// if the package is not installed.
QString wallpaperFolder();
/// 40 JPEGs of 6000 x 4000, quality 90, colours halved in both directions as cameras do.
QString cameraFolder();
/// `count` different JPEGs of 320 x 240.
QString smallFolder(int count);
/// `count` different JPEGs of 1600 x 1200.
QString mediumFolder(int count);
/// `count` JPEGs of 2592 x 1728, quality 90: 50 different ones under many names each.
QString albumFolder(int count);
/// `count` JPEGs of 160 x 120: 500 different ones under many names each.
QString manyFolder(int count);
/// One BMP of 4000 x 3000, 24 bits a pixel.
QString bmpFolder();
/// `count` different BMPs of 4 x 4.
QString tinyFolder(int count);
/// `count` BMPs of 2 x 2, each of one colour: so plain that the cache holds both thumbnails of
/// 100,000 of them.
QString plainFolder(int count);

}  // namespace velorama::bench
