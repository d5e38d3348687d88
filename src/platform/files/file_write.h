#pragma once

#include <QByteArray>
#include <QString>

namespace velorama {

/// Whether a file is waited for until the disk has it. One that is not is still never seen half
/// written, but a power cut may take it back.
enum class Lasting { Yes, No };

/// Writes a file beside the old one, whose place it takes whole: through symbolic links and with
/// its mode. Where that fails, or the old one may not be written, it stays as it is. Any name that
/// the file system can have will do. Path of this machine. True if the file stands.
bool writeFileWhole(const QString& target, const QByteArray& bytes, Lasting lasting);

}  // namespace velorama
