#pragma once

#include "desktop/main_window.h"

#include <QByteArray>
#include <QStringList>

namespace velorama::desktop {

/// The main window with the page of the known albums up.
class AlbumsPage : public MainWindow {
public:
    AlbumsPage(DesktopSession& session, Program& program);

    /// The list's selected row, empty if there is none.
    QRect selectedRow() const;
    /// The same in the column of the descriptions.
    QRect selectedDescription() const;
    void doubleClickSelectedRow() const;

    /// The modified flag, as the Save button shows it.
    bool isModified() const;
    /// Moves the first slide one place on, which modifies the album. The slide is the `times`-th
    /// to be moved so: quick clicks at one place would be a double click.
    void moveFirstSlide(int times = 1) const;
};

/// An album as it is written: a first line, the paths and an empty line.
QByteArray albumText(const QString& firstLine, const QStringList& slides);

QByteArray bytesOf(const QString& file);
/// Makes the folders above the file.
bool putBytes(const QString& file, const QByteArray& bytes);

/// What the store holds of the album list, as far as its count goes.
QStringList storedAlbums(const Store& store);
bool setAlbums(const Store& store, const QStringList& albums);
/// The album to reopen.
std::optional<QString> storedAlbum(const Store& store);
std::optional<QString> openFolder(const Store& store);

}  // namespace velorama::desktop
