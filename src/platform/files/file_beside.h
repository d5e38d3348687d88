#pragma once

#include <QByteArray>

#include <utility>

namespace velorama {

/// An open file of the system; below 0 there is none.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    int number() const { return number_; }
    /// False if what was written did not all arrive.
    bool close();

private:
    int number_;
};

/// A new file in a folder, open for writing, gone again unless it has been given its final name.
class FileBeside {
public:
    /// `folder` without a closing slash. `number()` is below 0 where no file can be made.
    explicit FileBeside(const QByteArray& folder);
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;
    ~FileBeside();

    int number() const { return file_.number(); }
    /// Takes the place of whatever file has this name. False if that one stays.
    bool becomes(const QByteArray& target);

private:
    int create();

    /// Names go from here: with the folder in front, one of its own may be longer than a path can
    /// be.
    Descriptor folder_;
    QByteArray name_;
    Descriptor file_;
};

/// Waits until the disk has what was written to an open file. False if the disk says that it has
/// not taken all of it: some find out no earlier that they are full. Where the file system knows no
/// such waiting, the file is as good as any other there.
bool reachesDisk(int file);

/// Writes to an open file until all of it is there; false if it cannot be.
bool writeAll(int to, const char* bytes, qint64 count);

}  // namespace velorama
