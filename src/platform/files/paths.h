#pragma once

#include <QChar>
#include <QString>

namespace velorama {

/// The one module that knows what a path looks like. A path is text in the form that the user's
/// system gives; its separator is the one its own form uses. No other code tests for a separator.

/// `\` if the path starts with a drive letter and a colon or holds a backslash and no slash,
/// otherwise `/`.
QChar pathSeparator(const QString& path);

/// The one of the two separators that is not the path's own.
QChar otherSeparator(const QString& path);

/// Number of characters up to which a path of this form is too short to get a separator added: the
/// length of a drive root, 3 or 1.
qsizetype driveRootLength(const QString& path);

/// `folder`, the folder's own separator, `name`. Adds the separator also where `folder` already
/// ends in one.
QString joinPath(const QString& folder, const QString& name);

/// Text behind the path's last separator; behind the last one of the other kind if its own does not
/// occur; the whole path if neither does. Empty for a path that ends in its separator.
QString lastSegment(const QString& path);

/// The file of this machine that a path means: the path itself if it exists; otherwise the one that
/// differs only in letter case or in the kind of slash, as a case-blind system would find it;
/// otherwise the path unchanged. The first match in name order wins. A path on a drive that the
/// user has given a folder to (`onDrive`) is looked for below that folder. Empty for a text that
/// can name no file on any system.
QString hostFile(const QString& path);

/// Where a file or folder that is to be written under that path belongs on this machine. Its name
/// stays as it was given, so that nothing of another name is replaced; only the folders above it
/// and the drive are found as in `hostFile`. Empty if this machine cannot have such a path.
QString hostPlace(const QString& path);

}  // namespace velorama
