#include "entry.h"
#include "platform/store/registry_file.h"
#include "platform/store/settings_copy.h"

using namespace velorama;

// A settings file of another program or another time: a look leaves it alone, and a writer comes to
// an end.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Folder folder;
    const QByteArray bytes = fuzz::asBytes(data, size);
    const QString path = folder.write(QStringLiteral("registry.sqlite"), bytes);
    const std::optional<RegistryTable> read = readSettings(path);
    QFile file(path);
    fuzz::require(file.open(QIODevice::ReadOnly) && file.readAll() == bytes);
    fuzz::require(folder.folder().entryList(QDir::Files | QDir::Hidden).size() == 1);
    {
        RegistryFile writing(path);
        RegistryTable table;
        const RegistryFile::Result loaded = writing.load(table);
        fuzz::require(!read || loaded != RegistryFile::Result::Done || table.all() == read->all());
        writing.write({{Hive::CurrentUser, QStringLiteral("Software\\x"), QStringLiteral("Top"),
                        RegistryValue{ValueType::Text, "15"}}});
        writing.moveAside();
    }
    folder.clear();
    return 0;
}
