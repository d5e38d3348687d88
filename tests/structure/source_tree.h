#pragma once

#include <QString>
#include <QStringList>

namespace velorama {

/// The files below src/ that match one of `patterns` (as of QDir), relative to src/ and sorted.
QStringList sources(const QStringList& patterns);

/// Text of a file named as `sources` does.
QString content(const QString& file);

/// What a source includes in quotes, in its order, but for what the moc tool makes.
QStringList quotedIncludes(const QString& text);

/// The layer that a file belongs to: "main" for what lies directly in src/.
QString layerOf(const QString& file);

/// The room of a layer that a file stands in: "" for what lies directly in the layer's folder.
QString roomOf(const QString& file);

}  // namespace velorama
