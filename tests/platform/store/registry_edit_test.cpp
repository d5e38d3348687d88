#include "platform/store/registry_edit.h"

#include "platform/store/registry_file.h"
#include "platform/store/sqlite_statement.h"
#include "support/test_world.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace velorama {
namespace {

const QString root = QStringLiteral("Software\\a");

AddressedValue at(const QString& key, const QString& name, const QByteArray& data) {
    return {Hive::CurrentUser, key, name, RegistryValue{ValueType::Text, data}};
}

RegistryEdit set(const QString& key, const QString& name, const QByteArray& data) {
    return {RegistryEdit::Kind::Value, at(key, name, data)};
}

RegistryEdit removed(const QString& key, const QString& name) {
    return {RegistryEdit::Kind::Value, {Hive::CurrentUser, key, name, std::nullopt}};
}

RegistryEdit removedKey(const QString& key, Hive hive = Hive::CurrentUser) {
    return {RegistryEdit::Kind::Key, {hive, key, {}, std::nullopt}};
}

QString text(const char* plain) {
    return QString::fromLatin1(plain);
}

/// "key|name=data", "key|name gone", one after the other.
std::string told(const std::vector<AddressedValue>& changes) {
    std::string all;
    for (const AddressedValue& one : changes) {
        all += (all.empty() ? "" : ", ") + one.key.toStdString() + '|' + one.name.toStdString() +
               (one.value ? '=' + one.value->data.toStdString() : " gone");
    }
    return all;
}

const std::vector<AddressedValue> stored = {
    at(root, text("1"), "x"),
    at(root + text("\\sub"), text("2"), "y"),
    at(root + text("\\sub\\deep"), text("3"), "z"),
    at(text("Software\\ab"), text("4"), "beside"),
    at(text("Software"), text("5"), "above"),
};

TEST(RegistryEdits, OnlyWhatDiffersIsWritten) {
    EXPECT_EQ(told(changesBy({set(root, text("1"), "x"), set(root, text("9"), "n")}, stored)),
              "Software\\a|9=n");
    EXPECT_EQ(told(changesBy({set(root, text("1"), "n")}, stored)), "Software\\a|1=n");
}

TEST(RegistryEdits, LetterCaseLeadsToTheValueThatIsThere) {
    EXPECT_EQ(told(changesBy({set(text("SOFTWARE\\A\\SUB"), text("2"), "n")}, stored)),
              "Software\\a\\sub|2=n");
    EXPECT_EQ(told(changesBy({removed(text("SOFTWARE\\A"), text("1"))}, stored)),
              "Software\\a|1 gone");
}

TEST(RegistryEdits, TheLastWord) {
    EXPECT_EQ(told(changesBy({set(root, text("1"), "n"), set(root, text("1"), "m")}, stored)),
              "Software\\a|1=m");
    EXPECT_EQ(told(changesBy({set(root, text("9"), "n"), removed(root, text("9"))}, stored)), "");
    EXPECT_EQ(told(changesBy({removed(root, text("9"))}, stored)), "");
}

TEST(RegistryEdits, AKeyGoesWithAllBelowItAndNothingBeside) {
    EXPECT_EQ(told(changesBy({removedKey(text("software\\A"))}, stored)),
              "Software\\a|1 gone, Software\\a\\sub|2 gone, Software\\a\\sub\\deep|3 gone");
    EXPECT_EQ(told(changesBy({removedKey(text("software\\A"), Hive::LocalMachine)}, stored)), "");
}

// Gone first: the file takes the changes in their order.
TEST(RegistryEdits, AKeyThatIsMadeAnewHoldsWhatFollows) {
    EXPECT_EQ(told(changesBy(
                  {removedKey(root + text("\\sub")), set(root + text("\\sub"), text("2"), "new")},
                  stored)),
              "Software\\a\\sub|2 gone, Software\\a\\sub\\deep|3 gone, Software\\a\\sub|2=new");
}

/// How the file holds the data of its one row.
std::string kindOfData(const QString& path) {
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open(path.toUtf8().constData(), &database), SQLITE_OK);
    std::string kind;
    {
        Statement query(database, "SELECT typeof(data) FROM registry");
        EXPECT_EQ(query.step(), SQLITE_ROW);
        kind = query.bytes(0).toStdString();
    }
    sqlite3_close(database);
    return kind;
}

class RewrittenFile : public testing::Test {
protected:
    std::string held() {
        RegistryTable table;
        EXPECT_EQ(RegistryFile(path).load(table), RegistryFile::Result::Done);
        std::set<std::string> lines;
        for (const AddressedValue& one : table.all()) {
            lines.insert(told({one}));
        }
        std::string all;
        for (const std::string& line : lines) {
            all += (all.empty() ? "" : ", ") + line;
        }
        return all;
    }

    QString path = test::temporaryFolder() + text("/velorama/registry.sqlite");
};

TEST_F(RewrittenFile, GetsWhatTheChangeMakesOfItsValues) {
    ASSERT_EQ(RegistryFile(path).write(stored), RegistryFile::Result::Done);
    const auto result = RegistryFile(path).rewrite([](const RegistryTable& now) {
        return changesBy({removedKey(root), set(root, text("1"), "again")}, now.all());
    });
    EXPECT_EQ(result, RegistryFile::Result::Done);
    EXPECT_EQ(held(), "Software\\ab|4=beside, Software\\a|1=again, Software|5=above");
}

TEST_F(RewrittenFile, IsMadeWhereThereIsNone) {
    const auto result = RegistryFile(path).rewrite([](const RegistryTable& now) {
        EXPECT_TRUE(now.all().empty());
        return changesBy({set(root, text("1"), "x")}, {});
    });
    EXPECT_EQ(result, RegistryFile::Result::Done);
    EXPECT_EQ(held(), "Software\\a|1=x");
    EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions());
}

TEST_F(RewrittenFile, StaysAsItIsWhereItIsDamaged) {
    ASSERT_EQ(RegistryFile(path).write(stored), RegistryFile::Result::Done);
    const QByteArray broken(5000, 'x');
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(broken), broken.size());
    file.close();
    const auto result = RegistryFile(path).rewrite(
        [](const RegistryTable&) { return std::vector<AddressedValue>{stored}; });
    EXPECT_EQ(result, RegistryFile::Result::Damaged);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), broken);
}

TEST_F(RewrittenFile, KeepsBytesOfOtherTypes) {
    const QByteArray bytes("\0\xFF\0\x80", 4);
    const AddressedValue value = {Hive::CurrentUser, root, text("raw"),
                                  RegistryValue{ValueType::Bytes, bytes}};
    ASSERT_EQ(RegistryFile(path).write({value}), RegistryFile::Result::Done);
    RegistryTable table;
    ASSERT_EQ(RegistryFile(path).load(table), RegistryFile::Result::Done);
    const RegistryValue* held = table.find(Hive::CurrentUser, root, text("raw"));
    ASSERT_NE(held, nullptr);
    EXPECT_EQ(*held, *value.value);
    // Other tools would take them for a text otherwise.
    EXPECT_EQ(kindOfData(path), "blob");
}

}  // namespace
}  // namespace velorama
