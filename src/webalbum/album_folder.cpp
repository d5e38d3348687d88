#include "webalbum/album_folder.h"

#include "core/globals.h"
#include "platform/files/paths.h"
#include "platform/session/shell.h"

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

QStringList programImageNames() {
    return {QStringLiteral("arrowleft.gif"),  QStringLiteral("arrowleftdis.gif"),
            QStringLiteral("arrowright.gif"), QStringLiteral("arrowrightdis.gif"),
            QStringLiteral("mainwa.css"),     QStringLiteral("end.gif")};
}

QString programImage(const QString& name) {
    return programFile(QStringLiteral("images/") + name);
}

}  // namespace velorama
