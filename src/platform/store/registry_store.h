#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace velorama {

enum class Hive : quint32 {
    ClassesRoot = 0x80000000U,
    CurrentUser = 0x80000001U,
    LocalMachine = 0x80000002U,
};

/// Other types come from elsewhere and are kept as they are.
enum class ValueType : int { Text = 1, ExpandableText = 2, Bytes = 3, Number = 4 };

/// One stored value. Text is UTF-8 without a terminator; a number is its decimal text;
/// of other types the bytes as they came.
struct RegistryValue {
    ValueType type = ValueType::Text;
    QByteArray data;
    bool operator==(const RegistryValue&) const = default;
};

struct NamedValue {
    QString name;
    RegistryValue value;
};

/// The system's settings store: hives of keys of named values. Key paths (segments joined by `\`)
/// and value names ignore letter case. A write is visible at once to every reader in this process.
/// No call blocks on a disk and none throws.
class RegistryStore {
public:
    RegistryStore() = default;
    RegistryStore(const RegistryStore&) = delete;
    RegistryStore& operator=(const RegistryStore&) = delete;
    virtual ~RegistryStore() = default;

    /// Nothing in a hive that takes no writes, either: keys are opened for both at once. Asking
    /// creates nothing.
    virtual std::optional<RegistryValue> value(Hive hive, const QString& key,
                                               const QString& name) const = 0;
    /// False if the store takes no writes in this hive.
    virtual bool setValue(Hive hive, const QString& key, const QString& name,
                          const RegistryValue& value) = 0;
    /// The same with several of one key, in their order; false if one was not taken. A store may
    /// have a quicker way than one after the other.
    virtual bool setValues(Hive hive, const QString& key, const std::vector<NamedValue>& values) {
        bool taken = true;
        for (const NamedValue& one : values) {
            taken = setValue(hive, key, one.name, one.value) && taken;
        }
        return taken;
    }
    /// True if there was such a value and it is gone.
    virtual bool removeValue(Hive hive, const QString& key, const QString& name) = 0;
};

}  // namespace velorama
