#include "webalbum/album_world.h"

#include "core/globals.h"
#include "core/lib_txt.h"
#include "support/test_world.h"

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QGuiApplication>
#include <QImage>

#include <algorithm>

namespace velorama::test {
namespace {

const QStringList imageNames = {
    QStringLiteral("arrowleft.gif"),  QStringLiteral("arrowleftdis.gif"),
    QStringLiteral("arrowright.gif"), QStringLiteral("arrowrightdis.gif"),
    QStringLiteral("end.gif"),
};

QString pageColour(Colour colour) {
    return QStringLiteral("#%1%2%3")
        .arg(colour & 255, 2, 16, QLatin1Char('0'))
        .arg(colour >> 8 & 255, 2, 16, QLatin1Char('0'))
        .arg(colour >> 16, 2, 16, QLatin1Char('0'))
        .toUpper();
}

QString pixels(const QString& label) {
    return label.section(u'(', 1).section(u' ', 0, 0) + QStringLiteral("px");
}

}  // namespace

QByteArray pictureBytes(QSize size) {
    QImage image(size, QImage::Format_Mono);
    image.fill(1);
    QBuffer buffer;
    EXPECT_TRUE(image.save(&buffer, "BMP"));
    return buffer.data();
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    EXPECT_EQ(file.write(bytes), bytes.size());
}

QStringList entriesBelow(const QString& folder) {
    QStringList entries;
    QDirIterator walk(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        entries.append(QDir(folder).relativeFilePath(walk.next()));
    }
    entries.sort();
    return entries;
}

AlbumWorld::AlbumWorld() : sources(temporaryFolder()) {
    QObject::connect(&album, &WebAlbum::NoTitle,
                     [this](const QString& text, const QString& caption) {
                         record(QStringLiteral("critical"), text, caption);
                     });
    QObject::connect(&album, &WebAlbum::Complete,
                     [this](const QString& text, const QString& caption) {
                         record(QStringLiteral("information"), text, caption);
                     });
    shell.documents = temporaryFolder() + u'/';
    fillTextConstants(2026, QStringLiteral("http://server.invalid/"));
    makeServices(store, shell);
    commands.viewWebAlbum.setEnabled(false);
    prgBARSLIDES.hide();
}

AlbumWorld::~AlbumWorld() {
    releaseServices();
}

void AlbumWorld::record(const QString& box, const QString& text, const QString& caption) {
    const bool hourglass = QGuiApplication::overrideCursor() != nullptr;
    shown.append((hourglass ? u"hourglass " : u"") + box + u'|' + text + u'|' + caption);
}

WebAlbumValues AlbumWorld::values() const {
    return {.txtTITLE = title,
            .picBACKGROUND = background,
            .picTEXTCOLOR = textColour,
            .picBARCOL = bar,
            .picTITLEBARCOL = titleBar,
            .picTITLEBARTEXTCOL = titleBarText,
            .cboFONTS = font,
            .cboFONTSIZE = fontSize,
            .cboFONTSBAR = barFont,
            .cboFONTSSIZEBAR = barFontSize,
            .udnPHOTO = photo,
            .udnTHUMBNAIL = thumbnail};
}

void AlbumWorld::addSlide(const QString& name, QSize size) {
    const QString key = sources + u'/' + name;
    const QByteArray bytes = pictureBytes(size);
    writeFile(key, bytes);
    ASSERT_NE(lvwSLIDEBAR.Add(lvwSLIDEBAR.Count() + 1, key, name, 0), nullptr);
    told.push_back({name, name, bytes, size});
}

void AlbumWorld::addMissing(const QString& name) {
    const QString key = sources + u"/gone/" + name;
    ASSERT_NE(lvwSLIDEBAR.Add(lvwSLIDEBAR.Count() + 1, key, name, 0), nullptr);
    told.push_back({name, QString(), QByteArray(), QSize()});
}

QMap<QString, QByteArray> AlbumWorld::programImages() const {
    QMap<QString, QByteArray> images;
    for (const QString& name : imageNames) {
        images[name] = readFile(QStringLiteral(VELORAMA_SOURCE_DIR "/images/") + name);
    }
    images[QStringLiteral("mainwa.css")] =
        toldSheet({{QStringLiteral("font"), font},
                   {QStringLiteral("back"), pageColour(background)},
                   {QStringLiteral("text"), pageColour(textColour)},
                   {QStringLiteral("size"), pixels(fontSize)},
                   {QStringLiteral("bar"), pageColour(bar)},
                   {QStringLiteral("top"), pageColour(titleBar)},
                   {QStringLiteral("top font"), barFont},
                   {QStringLiteral("top size"), pixels(barFontSize)},
                   {QStringLiteral("top text"), pageColour(titleBarText)}});
    return images;
}

QMap<QString, QByteArray> AlbumWorld::expected() const {
    return toldFiles({title, told, photo.toLongLong(), thumbnail.toLongLong(), QSize(200, 150),
                      programImages()});
}

void AlbumWorld::expectAlbum() const {
    expectSameFiles(filesBelow(albumFolder()), expected());
}

}  // namespace velorama::test
