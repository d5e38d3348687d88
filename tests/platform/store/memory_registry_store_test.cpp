#include "support/memory_registry_store.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

const QString key = QStringLiteral("SOFTWARE\\Brightquay\\Velorama\\View");
const QString name = QStringLiteral("TABIDX");

RegistryValue text(const char* data) {
    return {ValueType::Text, data};
}

TEST(MemoryRegistryStore, IgnoresLetterCaseOfKeysAndNames) {
    MemoryRegistryStore store;
    EXPECT_TRUE(store.setValue(Hive::CurrentUser, key, name, text("2")));
    EXPECT_EQ(store.value(Hive::CurrentUser, key.toLower(), QStringLiteral("TabIdx")), text("2"));
    EXPECT_TRUE(store.setValue(Hive::CurrentUser, key.toUpper(), name.toLower(), text("3")));
    EXPECT_EQ(store.value(Hive::CurrentUser, key, name), text("3"));
    EXPECT_EQ(store.value(Hive::LocalMachine, key, name), std::nullopt);
}

TEST(MemoryRegistryStore, TakesSpareBackslashesAway) {
    MemoryRegistryStore store;
    store.setValue(Hive::CurrentUser, QStringLiteral("\\SOFTWARE\\\\A\\"), name, text("1"));
    EXPECT_EQ(store.value(Hive::CurrentUser, QStringLiteral("SOFTWARE\\A"), name), text("1"));
}

TEST(MemoryRegistryStore, ARemovedValueIsGone) {
    MemoryRegistryStore store;
    store.setValue(Hive::CurrentUser, key, name, text("1"));
    EXPECT_TRUE(store.removeValue(Hive::CurrentUser, key, name));
    EXPECT_EQ(store.value(Hive::CurrentUser, key, name), std::nullopt);
    EXPECT_FALSE(store.removeValue(Hive::CurrentUser, key, name));
}

TEST(MemoryRegistryStore, AHiveWithoutWriteRightsIsNotOpenedAtAll) {
    MemoryRegistryStore store;
    store.setValue(Hive::LocalMachine, key, name, text("1"));
    store.takeWriteRights(Hive::LocalMachine);
    EXPECT_FALSE(store.setValue(Hive::LocalMachine, key, name, text("2")));
    EXPECT_FALSE(store.removeValue(Hive::LocalMachine, key, name));
    EXPECT_EQ(store.value(Hive::LocalMachine, key, name), std::nullopt);
    EXPECT_TRUE(store.setValue(Hive::CurrentUser, key, name, text("2")));
    store.giveWriteRights(Hive::LocalMachine);
    EXPECT_EQ(store.value(Hive::LocalMachine, key, name), text("1"));
}

TEST(MemoryRegistryStore, KnowsNoOtherHives) {
    MemoryRegistryStore store;
    const auto users = static_cast<Hive>(0x80000003U);
    EXPECT_FALSE(store.setValue(users, key, name, text("1")));
    EXPECT_EQ(store.value(users, key, name), std::nullopt);
    EXPECT_FALSE(store.setValue(static_cast<Hive>(7), key, name, text("1")));
}

TEST(MemoryRegistryStore, EmptyTextIsAValue) {
    MemoryRegistryStore store;
    EXPECT_TRUE(store.setValue(Hive::CurrentUser, key, name, text("")));
    ASSERT_TRUE(store.value(Hive::CurrentUser, key, name));
    EXPECT_EQ(store.value(Hive::CurrentUser, key, name)->data, QByteArray());
}

}  // namespace
}  // namespace velorama
