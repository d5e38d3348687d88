#pragma once

#include <QByteArray>
#include <QMap>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <functional>

namespace velorama::endurance {

/// What stands in a home, as far as a user could tell: files by their bytes, and the rows of the
/// settings and of the kept thumbnails by their values.
struct State {
    /// By path below the home.
    QMap<QString, QByteArray> files;
    /// Of the settings, by the address of the value.
    QMap<QString, QByteArray> rows;
    /// By picture and side of the cell.
    QMap<QString, QByteArray> thumbnails;
    /// Databases that do not open, or are not whole.
    QStringList broken;
    /// Files that had not been given their own name yet.
    QStringList unfinished;
};

/// A home of the test's own that has been lived in: settings, albums, web albums, kept thumbnails.
/// It can be put back to what it was, in the same place, since settings and albums name whole
/// paths. The pictures lie outside and stay as they are: thumbnails are kept by inode and time.
class Home {
public:
    /// Makes folders and pictures below `place`, which is a folder of the test's.
    explicit Home(const QString& place);

    QString path() const { return place_ + QStringLiteral("/home"); }
    QString documents() const { return path() + QStringLiteral("/Documents"); }
    QString settings() const { return path() + QStringLiteral("/config/velorama/registry.sqlite"); }
    QString pictures() const { return place_ + QStringLiteral("/pictures"); }
    QStringList pictureFiles() const { return pictureFiles_; }
    QString album() const { return path() + QStringLiteral("/albums/trip.vlr"); }
    /// The file of the thumbnails as `restore` brings it back.
    QString keptThumbnails() const {
        return path() + QStringLiteral(".kept/cache/velorama/thumbnails.sqlite");
    }
    QString exported() const { return path() + QStringLiteral("/exported.reg"); }
    QString imported() const { return path() + QStringLiteral("/imported.reg"); }
    QString smallAlbum() const { return path() + QStringLiteral("/albums/small.vlr"); }
    /// The names that lead a program to this home, without a display.
    QMap<QString, QString> names() const;
    /// These and what a program needs besides.
    QProcessEnvironment environment() const;

    /// Remembers how it is now, for `restore`, and the thumbnails as those that are right.
    void keep();
    /// Thumbnails that are not those of the pictures. A missing one is made anew when it is asked
    /// for: on a busy disk the program passes over keeping it.
    QStringList wrongThumbnails(const State& found) const;
    void restore() const;
    /// Databases are opened for that, as the program's next start would.
    State state() const;

private:
    QString place_;
    QStringList pictureFiles_;
    QMap<QString, QByteArray> thumbnails_;
};

/// Sets a text of the settings from outside, below the program's own key.
bool putSetting(const QString& file, const QString& key, const QString& name, const QString& text);

/// Runs a statement on a database of the home.
bool runSql(const QString& file, const char* statement);

/// How a value may read that changes many times while an operation runs.
using Between = std::function<bool(const QString& row, const QByteArray& value)>;

/// All of `found` that was neither so `before` nor is so `after`, a line each; what is missing
/// counts where it stood before and stands after. Unfinished files and thumbnails are not told
/// here.
QStringList neitherOldNorNew(const State& before, const State& after, const State& found,
                             const Between& between = {});
/// The same with one state: all must be as it was there.
QStringList differences(const State& wanted, const State& found);

}  // namespace velorama::endurance
