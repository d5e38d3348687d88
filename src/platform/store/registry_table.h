#pragma once

#include "platform/store/registry_store.h"

#include <array>
#include <unordered_map>
#include <vector>

namespace velorama {

/// One value with its full address. No value: it was removed.
struct AddressedValue {
    Hive hive = Hive::CurrentUser;
    QString key;
    QString name;
    std::optional<RegistryValue> value;
    bool operator==(const AddressedValue&) const = default;
};

/// A key path or a value name in the one spelling of all that differ in letter case.
QString foldedAddress(QString text);

/// The values of all hives in memory. Key paths and names ignore letter case and keep the spelling
/// they came with first. Not for use from several threads at once.
class RegistryTable {
public:
    static bool isHive(Hive hive);

    const RegistryValue* find(Hive hive, const QString& key, const QString& name) const;
    /// False if there is nothing to write. The value counts as changed until `takeChanges`.
    bool set(Hive hive, const QString& key, const QString& name,
             std::optional<RegistryValue> value);
    /// The same with several of one key.
    void set(Hive hive, const QString& key, const std::vector<NamedValue>& values);
    /// Like `set`, but for what is already on disk.
    void load(AddressedValue&& entry);

    /// Everything changed since the last call, removals included.
    std::vector<AddressedValue> takeChanges();
    /// Counts these as changed again, with the values they have now.
    void giveBack(const std::vector<AddressedValue>& changes);
    /// Forgets removed values for which no change is open.
    void forgetRemoved();
    /// Takes over the open changes of another table.
    void adoptChanges(const RegistryTable& other);
    /// Every value there is.
    std::vector<AddressedValue> all() const;

private:
    /// Not noexcept: the map keeps the codes of its entries then, and need not work out those of
    /// the neighbours of each that it looks for.
    struct FoldedHash {
        using is_transparent = void;
        std::size_t operator()(QStringView text) const;
    };
    struct FoldedEqual {
        using is_transparent = void;
        bool operator()(QStringView left, QStringView right) const noexcept;
    };
    template <typename T>
    using FoldedMap = std::unordered_map<QString, T, FoldedHash, FoldedEqual>;

    struct Slot {
        std::optional<RegistryValue> value;
        bool changed = false;
    };
    using Key = FoldedMap<Slot>;
    using Keys = FoldedMap<Key>;

    Slot& slot(Hive hive, const QString& key, const QString& name);

    std::array<Keys, 3> hives_;
};

}  // namespace velorama
