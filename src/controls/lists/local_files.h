#pragma once

#include <QMimeData>
#include <QStringList>

namespace velorama {

/// Paths of the files and folders of this machine among what is dragged, whether they exist or
/// not. Text, addresses of the web and files of other machines give none.
QStringList localFiles(const QMimeData& data);

}  // namespace velorama
