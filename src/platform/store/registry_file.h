#pragma once

#include "platform/store/registry_table.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

struct sqlite3;

namespace velorama {

/// The SQLite file behind the settings store. It and its folder, which is the program's own, are
/// closed to other users as soon as they are touched. Calls block on the disk; one thread at a
/// time.
class RegistryFile {
public:
    enum class Result {
        Done,
        Failed,   // may go well another time: locked, full disk, no right to write
        Damaged,  // no database, or one whose table `registry` is not ours
    };

    /// What reads only leaves file and folder as they are, rights and journals too.
    enum class Access { Writing, Reading };

    explicit RegistryFile(const QString& path, Access access = Access::Writing);
    RegistryFile(const RegistryFile&) = delete;
    RegistryFile& operator=(const RegistryFile&) = delete;
    ~RegistryFile();

    /// True if the last call failed because another process held the file for the half second that
    /// one is waited for.
    bool isBusy() const { return busy_; }
    /// True if a file stands at the path.
    bool exists() const;
    /// True if other processes have written since the last `load`, if there was none yet, or if
    /// another file stands at the path now.
    bool isNews();
    /// Adds every row to `table`, the last of several for the same value wins. A damaged file gives
    /// the rows that could be read.
    Result load(RegistryTable& table);
    /// All in one transaction; fails for access to read. Makes the file and its folder if need be,
    /// for this user alone.
    Result write(const std::vector<AddressedValue>& values);
    using Change = std::function<std::vector<AddressedValue>(const RegistryTable& stored)>;
    /// Writes what `change` makes of the values that the file holds, all in one transaction: what
    /// other processes write comes before it or after it. A damaged file stays as it is.
    Result rewrite(const Change& change);
    /// Renames the file, and the journal that belongs to it, and keeps it.
    void moveAside();

private:
    using Identity = std::pair<std::uint64_t, std::uint64_t>;

    bool open(bool create);
    void makeFile() const;
    void closeAllToOthers() const;
    void close();
    bool isReplaced() const;
    Identity identity() const;
    std::int64_t dataVersion();
    int execute(const char* sql);
    bool hasTable();
    int readAll(RegistryTable& table);
    int begin();
    int writeAll(const std::vector<AddressedValue>& values);
    int writeOne(const AddressedValue& entry);
    /// Ends a transaction: takes back what has been written if a step of it failed.
    Result end(int code);
    Result resultOf(int code);

    QString path_;
    Access access_;
    sqlite3* database_ = nullptr;
    Identity opened_;
    std::int64_t loadedVersion_ = -1;
    bool busy_ = false;
};

}  // namespace velorama
