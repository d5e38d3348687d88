#include "shell/assoc_reg.h"

#include "platform/utf8.h"

namespace velorama {

bool RegReadFailed = false;

quint32 RegDwordGet(const RegistryStore& store, Hive root, const QString& key,
                    const QString& name) {
    const std::optional<RegistryValue> stored = store.value(root, key, name);
    bool isNumber = false;
    const quint32 number =
        stored && stored->type == ValueType::Number ? stored->data.toUInt(&isNumber) : 0;
    RegReadFailed = RegReadFailed || !isNumber;
    return number;
}

void RegDwordSet(RegistryStore& store, Hive root, const QString& key, const QString& name,
                 quint32 number) {
    store.setValue(root, key, name, {ValueType::Number, QByteArray::number(number)});
}

QString RegStringGet(const RegistryStore& store, Hive root, const QString& key,
                     const QString& name) {
    const std::optional<RegistryValue> stored = store.value(root, key, name);
    if (!stored || stored->type != ValueType::Text) {
        return QString();
    }
    const qsizetype end = stored->data.indexOf('\0');
    return textOfUtf8(end < 0 ? stored->data : stored->data.left(end));
}

bool RegStringSet(RegistryStore& store, Hive root, const QString& key, const QString& name,
                  const QString& text) {
    return text.isEmpty() ? RegValueDelete(store, root, key, name)
                          : store.setValue(root, key, name, {ValueType::Text, text.toUtf8()});
}

bool RegValueDelete(RegistryStore& store, Hive root, const QString& key, const QString& name) {
    return store.removeValue(root, key, name);
}

}  // namespace velorama
