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
    QString Pattern() const { return pattern_; }
    /// Wildcards separated by ";", letter case does not matter. Lists anew if it is another one: a
    /// large folder takes its time.
    void setPattern(const QString& pattern);
    int ListCount() const { return static_cast<int>(names_.size()); }
    /// Name `index`, from 0; empty outside the list.
    QString List(int index) const { return names_.value(index); }

private:
    void read();

    QString path_;
    QString pattern_ = QStringLiteral("*");
    QStringList names_;
};

}  // namespace velorama
