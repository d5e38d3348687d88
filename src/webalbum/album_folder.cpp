#include "webalbum/album_folder.h"

#include "core/globals.h"
#include "platform/files/paths.h"

#include <algorithm>

namespace velorama {
namespace {

const QString albumsFolder = QStringLiteral("My WebAlbum");
const QString firstPage = QStringLiteral("index1.html");

}  // namespace

AlbumPaths albumPaths(const QString& documents, const QString& title) {
    if (documents.isEmpty()) {
        return {};
    }
    const QChar separator = pathSeparator(documents);
    // No separator is looked for here; a documents folder without one gets a strange neighbour.
    const QString parent = documents + albumsFolder + separator;
    const QString albums = gFileFoldr->FileSlashCheck(documents) + albumsFolder + separator;
    return {parent, folderIn(albums, title), parent + title + separator + firstPage};
}

bool isPlainName(const QString& name) {
    const auto isUnfit = [](QChar c) {
        return c == u'/' || c == u'\\' || c.category() == QChar::Other_Control;
    };
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
           std::none_of(name.begin(), name.end(), isUnfit);
}

QString fileIn(const QString& folder, const QString& name) {
    return folder.isEmpty() || !isPlainName(name) ? QString() : QString(folder + name);
}

QString folderIn(const QString& folder, const QString& name) {
    const QString path = fileIn(folder, name);
    return path.isEmpty() ? QString() : QString(path + pathSeparator(folder));
}

}  // namespace velorama
