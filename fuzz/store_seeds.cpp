#include "entry.h"
#include "platform/instances/message_frame.h"
#include "platform/session/file_type_texts.h"
#include "platform/store/registry_file.h"
#include "platform/store/registry_text.h"
#include "seeds.h"
#include "thumbnail_seed.h"

namespace velorama::fuzz {
namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    require(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

std::vector<AddressedValue> someValues() {
    const QString key = QStringLiteral("Software\\Velorama\\Main");
    return {
        {Hive::CurrentUser, key, QStringLiteral("Left"), RegistryValue{ValueType::Text, "1500"}},
        {Hive::CurrentUser, key, QStringLiteral("Path"),
         RegistryValue{ValueType::ExpandableText, "%HOME%/\xC3\xBC"}},
        {Hive::LocalMachine, key, QString(), RegistryValue{ValueType::Number, "4294967295"}},
        {Hive::ClassesRoot, QStringLiteral(".vlr"), QStringLiteral("a\"b\\c"),
         RegistryValue{ValueType::Bytes, QByteArray("\0\1\2", 3)}}};
}

}  // namespace

QByteArrayList thumbnailFileSeeds() {
    const Folder folder;
    const QString path = folder.folder().filePath(QStringLiteral("thumbnails.sqlite"));
    {
        ThumbnailFile file(path);
        require(file.write({seedThumbnail(0), seedThumbnail(1)}));
    }
    return {contentOf(path), contentOf(path).left(16384)};
}

QByteArrayList settingsFileSeeds() {
    const Folder folder;
    const QString path = folder.folder().filePath(QStringLiteral("registry.sqlite"));
    require(RegistryFile(path).write(someValues()) == RegistryFile::Result::Done);
    return {contentOf(path), contentOf(path).left(4096)};
}

QByteArrayList registryTextSeeds() {
    return {registryText(someValues(), RegistryEncoding::Utf8),
            registryText(someValues(), RegistryEncoding::Utf16),
            "Windows Registry Editor Version 5.00\r\n\r\n[-HKEY_CURRENT_USER\\a]\r\n"
            "[HKEY_CURRENT_USER\\b]\r\n@=\"x\"\r\n\"y\"=-\r\n\"z\"=hex:00,\\\r\n  01 ; more\r\n"};
}

QByteArrayList desktopEntrySeeds() {
    FileType type;
    type.id = QStringLiteral("velorama");
    type.program = QStringLiteral("/opt/my \"shows\"/50%");
    type.programName = QStringLiteral("a\\b\tc");
    return {desktopEntry(type).toUtf8()};
}

QByteArrayList messageSeeds() {
    return {messageFrame(QString()), messageFrame(QStringLiteral("/home/ann/trip \u00fc.vlr"))};
}

}  // namespace velorama::fuzz
