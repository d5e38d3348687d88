#pragma once

#include <QString>

namespace velorama {

/// While it lives, names in a folder and below it are taken letter by letter: no file of another
/// letter case is found or written in their place. For folders that are read by programs which know
/// only exact names. Saves looking through the folder for every new file, too. On this thread.
class ExactNames {
public:
    /// `folder` without a closing separator, in the form in which its files are asked for.
    explicit ExactNames(const QString& folder);
    ExactNames(const ExactNames&) = delete;
    ExactNames& operator=(const ExactNames&) = delete;
    ~ExactNames();

    /// True if `path` is such a folder or below one.
    static bool hold(const QString& path);

private:
    const ExactNames* outer_;
    QString folder_;
};

}  // namespace velorama
