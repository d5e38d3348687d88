#pragma once

#include <QString>
#include <QStringList>

namespace velorama {

/// A hidden file list box: the names of the files of a folder that match a pattern, sorted as of
/// `NameOrder`.
class FileList {
public:
    QString Path() const { return path_; }
    /// Lists the folder anew. A folder that cannot be read gives an empty list; the path stays.
    void setPath(const QString& path);
    /// The same with what `namesIn` gave for the path and the pattern: a large folder, or a slow
    /// disk, is read elsewhere.
    void setPath(const QString& path, const QStringList& names);
    QString Pattern() const { return pattern_; }
    /// Wildcards separated by ";", letter case does not matter. Lists anew if it is another one: a
    /// large folder takes its time.
    void setPattern(const QString& pattern);
    int ListCount() const { return static_cast<int>(names_.size()); }
    /// What the list would show. For any thread.
    static QStringList namesIn(const QString& path, const QString& pattern);

    /// Name `index`, from 0; empty outside the list.
    QString List(int index) const { return names_.value(index); }

private:
    void read();

    QString path_;
    QString pattern_ = QStringLiteral("*");
    QStringList names_;
};

}  // namespace velorama
