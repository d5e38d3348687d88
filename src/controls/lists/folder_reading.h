#pragma once

#include <QStringList>

namespace velorama {

/// Names of the folders in a folder that are not hidden, and of `hidden` those that are there.
/// Takes as long as the disk does. Safe on any thread.
QStringList foldersIn(const QString& path, const QStringList& hidden);

}  // namespace velorama
