#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <utility>

namespace velorama {

/// What a folder holds: the names of the files of a pattern, sorted as of `NameOrder`, and how many
/// there are besides that are worth a word.
struct FolderFiles {
    QStringList names;
    int others = 0;
};

/// A hidden file list box: the names of the files of a folder that match a pattern, sorted as of
/// `NameOrder`.
class FileList {
public:
    QString Path() const { return path_; }
    /// Lists the folder anew. A folder that cannot be read gives an empty list; the path stays.
    void setPath(const QString& path);
    /// The same with what `filesIn` gave for the path and the pattern: a large folder, or a slow
    /// disk, is read elsewhere.
    void setPath(const QString& path, FolderFiles files);
    QString Pattern() const { return pattern_; }
    /// Wildcards separated by ";", letter case does not matter. Lists anew if it is another one: a
    /// large folder takes its time.
    void setPattern(const QString& pattern);
    int ListCount() const { return static_cast<int>(files_.names.size()); }
    /// Name `index`, from 0; empty outside the list.
    QString List(int index) const { return files_.names.value(index); }

    /// Tells which files are counted where they do not match the pattern. Each listing is told by a
    /// copy of its own, on the thread that reads.
    using Teller = std::function<bool(const QString& name)>;
    Teller Others() const { return isOther_; }
    /// From the next listing on.
    void setOthers(Teller isOther) { isOther_ = std::move(isOther); }
    /// How many of them the folder has.
    int OtherCount() const { return files_.others; }

    /// What the list would hold. For any thread.
    /// A copy of the teller is asked: one that counts begins anew with each reading.
    static FolderFiles filesIn(const QString& path, const QString& pattern, Teller isOther);

private:
    void read();

    QString path_;
    QString pattern_ = QStringLiteral("*");
    FolderFiles files_;
    Teller isOther_;
};

}  // namespace velorama
