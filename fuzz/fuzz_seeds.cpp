// Writes what the entries begin with, a folder for each: fuzz_seeds <folder>

#include "entry.h"
#include "imaging/samples.h"
#include "platform/background/background_means.h"
#include "seeds.h"
#include "thumbnail_seed.h"

#include <QColorSpace>
#include <QGuiApplication>
#include <QHash>

namespace velorama::fuzz {
namespace {

QByteArrayList helpPages() {
    QByteArrayList pages;
    const QDir help(QStringLiteral(VELORAMA_SOURCE_DIR "/server/help/vrhelp"));
    for (const QString& name : help.entryList({QStringLiteral("*.html")})) {
        QFile file(help.filePath(name));
        require(file.open(QIODevice::ReadOnly));
        pages << QByteArray(1, '\0') + file.readAll();
    }
    return pages << QByteArray(1, '\0') +
                        "<a href='mailto:a@b'>m</a><a href=file:///x>f</a>"
                        "<img src=a.png><img src=//other/b.png><table><tr>"
                        "<td colspan=2>1<td rowspan='3'>2</table>&#65;";
}

QByteArrayList profiles() {
    QByteArrayList files;
    for (const auto space : {QColorSpace::SRgb, QColorSpace::SRgbLinear, QColorSpace::AdobeRgb,
                             QColorSpace::DisplayP3, QColorSpace::ProPhotoRgb}) {
        files << QColorSpace(space).iccProfile();
    }
    return files << QByteArray(files.first()).replace(16, 4, "GRAY");
}

QByteArrayList exifSegments() {
    QByteArrayList files;
    for (int orientation = 1; orientation <= 8; ++orientation) {
        files << test::exifSegment(orientation, false).mid(6)
              << test::exifSegment(orientation, true).mid(6);
    }
    return files;
}

QHash<QString, QByteArrayList> seeds() {
    const QByteArrayList pictures = pictureSeeds();
    QHash<QString, QByteArrayList> all;
    for (const char* entry :
         {"load_picture", "picture_size", "picture_information", "help_picture"}) {
        all[QLatin1String(entry)] = pictures;
    }
    all[QStringLiteral("album")] = {"2|\"a note\"\r\n/a/1.jpg\r\n\"/a/b, c.jpg\"\r\n",
                                    "\xEF\xBB\xBF"
                                    "1|\r\n C:\\x.bmp \r\n"};
    all[QStringLiteral("colour_profile")] = profiles();
    all[QStringLiteral("desktop_entry")] = desktopEntrySeeds();
    all[QStringLiteral("drives")] = {"C: /mnt/windows\nD:/data/../x \n", "\xEF\xBB\xBFz: /\r\n"};
    all[QStringLiteral("exif")] = exifSegments();
    all[QStringLiteral("help_page")] = helpPages();
    all[QStringLiteral("instance_message")] = messageSeeds();
    all[QStringLiteral("midi_length")] = midiSeeds();
    all[QStringLiteral("registry_text")] = registryTextSeeds();
    all[QStringLiteral("setting_text")] = {
        settingText(QStringLiteral("file:///a'b\\\n\u00fc")).toUtf8(), "'\\u00fc\\U0001F600'"};
    all[QStringLiteral("settings_file")] = settingsFileSeeds();
    all[QStringLiteral("settings_values")] = {
        QByteArray("\1"
                   "3\0\1"
                   "-1500.5\0\1"
                   "1e9\0\2/a/b.jpg\0\4"
                   "12",
                   27)};
    all[QStringLiteral("sound_file")] = soundSeeds();
    all[QStringLiteral("thumbnail_file")] = thumbnailFileSeeds();
    all[QStringLiteral("thumbnail_pixels")] = {seedThumbnail(0).pixels};
    all[QStringLiteral("update_answer")] = {
        "HTTP/1.0 200 OK\r\nContent-Length: 5\r\n\r\n1.0.1",
        "HTTP/1.1 100 Continue\n\nHTTP/1.1 302 Found\r\nLocation: /new\r\n\r\n1.2"};
    return all;
}

int write(const QDir& folder) {
    const QHash<QString, QByteArrayList> all = seeds();
    for (auto entry = all.cbegin(); entry != all.cend(); ++entry) {
        require(folder.mkpath(entry.key()));
        for (qsizetype i = 0; i < entry->size(); ++i) {
            QFile file(folder.filePath(entry.key() + QStringLiteral("/seed%1").arg(i)));
            if (!file.open(QIODevice::WriteOnly) ||
                file.write(entry->at(i)) != entry->at(i).size()) {
                return 1;
            }
        }
    }
    return 0;
}

}  // namespace
}  // namespace velorama::fuzz

int main(int count, char** words) {
    const QGuiApplication application(count, words);
    return count == 2 ? velorama::fuzz::write(QDir(QFile::decodeName(words[1]))) : 1;
}
