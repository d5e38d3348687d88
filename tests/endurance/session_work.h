#pragma once

#include <QByteArray>

#include <functional>

namespace velorama::endurance {

/// The operations of a user's session, a letter each, in the order in which they come.
inline constexpr char kList = 'l';   ///< start, last album, folder with its thumbnails
inline constexpr char kAdd = 'a';    ///< all pictures of the folder
inline constexpr char kMove = 'm';   ///< the first slide one place on
inline constexpr char kSave = 's';   ///< the album
inline constexpr char kBuild = 'b';  ///< the web album, with colours and sizes of its own
inline constexpr char kPaper = 'w';  ///< the current slide on the desktop
inline constexpr char kTitle =
    't';  ///< a page, a colour and a size of the window other than before
inline constexpr char kClose = 'c';
inline constexpr char kEnded = 'e';

/// A session in the home that the environment names: the program's own window and services, with
/// the operations given by hand. Sound, desktop and network are those of nobody. `begins` is told
/// each operation as it begins, and the end; listing and closing are part of each session. There
/// must be an application object.
void workThrough(const QByteArray& operations, const std::function<void(char)>& begins);

}  // namespace velorama::endurance
