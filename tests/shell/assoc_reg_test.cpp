#include "shell/assoc_reg.h"
#include "platform/store/sqlite_registry_store.h"
#include "support/memory_registry_store.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <memory>

namespace velorama {
namespace {

const QString key = QStringLiteral("Software\\Details\\velorama");
const QString name = QStringLiteral("hwnd");

using MakeStore = std::unique_ptr<RegistryStore> (*)();

class AssocReg : public testing::TestWithParam<MakeStore> {
protected:
    void SetUp() override { RegReadFailed = false; }

    std::unique_ptr<RegistryStore> owner = GetParam()();
    RegistryStore& store = *owner;
};

TEST_P(AssocReg, NumbersAreWrittenAsNumbers) {
    RegDwordSet(store, Hive::CurrentUser, key, name, 0xFFFFFFFFU);
    EXPECT_EQ(store.value(Hive::CurrentUser, key, name),
              (RegistryValue{ValueType::Number, "4294967295"}));
    EXPECT_EQ(RegDwordGet(store, Hive::CurrentUser, key, name), 0xFFFFFFFFU);
    EXPECT_FALSE(RegReadFailed);
    RegDwordSet(store, Hive::CurrentUser, key, name, 0);
    EXPECT_EQ(RegDwordGet(store, Hive::CurrentUser, key, name), 0U);
    EXPECT_FALSE(RegReadFailed);
}

TEST_P(AssocReg, WhatIsNoNumberReadsAsNought) {
    EXPECT_EQ(RegDwordGet(store, Hive::CurrentUser, key, name), 0U);
    EXPECT_TRUE(RegReadFailed);
    const RegistryValue unreadable[] = {{ValueType::Text, "7"},
                                        {ValueType::Number, "many"},
                                        {ValueType::Number, "-1"},
                                        {ValueType::Number, "4294967296"},
                                        {ValueType::Number, ""}};
    for (const RegistryValue& value : unreadable) {
        RegReadFailed = false;
        store.setValue(Hive::CurrentUser, key, name, value);
        EXPECT_EQ(RegDwordGet(store, Hive::CurrentUser, key, name), 0U) << value.data.toStdString();
        EXPECT_TRUE(RegReadFailed) << value.data.toStdString();
    }
}

TEST_P(AssocReg, NothingClearsTheErrorFlag) {
    RegDwordGet(store, Hive::CurrentUser, key, name);
    RegDwordSet(store, Hive::CurrentUser, key, name, 3);
    EXPECT_EQ(RegDwordGet(store, Hive::CurrentUser, key, name), 3U);
    EXPECT_TRUE(RegReadFailed);
}

TEST_P(AssocReg, TextsEndAtTheirFirstNul) {
    RegStringSet(store, Hive::ClassesRoot, QStringLiteral(".vlr"), QString(),
                 QStringLiteral("VLRFile"));
    EXPECT_EQ(store.value(Hive::ClassesRoot, QStringLiteral(".vlr"), QString()),
              (RegistryValue{ValueType::Text, "VLRFile"}));
    EXPECT_EQ(RegStringGet(store, Hive::ClassesRoot, QStringLiteral(".vlr"), QString()),
              QStringLiteral("VLRFile"));
    store.setValue(Hive::ClassesRoot, QStringLiteral(".vlr"), QString(),
                   {ValueType::Text, QByteArray("Other\0File", 10)});
    EXPECT_EQ(RegStringGet(store, Hive::ClassesRoot, QStringLiteral(".vlr"), QString()),
              QStringLiteral("Other"));
}

TEST_P(AssocReg, OnlyPlainTextsAreTexts) {
    EXPECT_EQ(RegStringGet(store, Hive::CurrentUser, key, name), QString());
    store.setValue(Hive::CurrentUser, key, name, {ValueType::ExpandableText, "a"});
    EXPECT_EQ(RegStringGet(store, Hive::CurrentUser, key, name), QString());
    store.setValue(Hive::CurrentUser, key, name, {ValueType::Number, "5"});
    EXPECT_EQ(RegStringGet(store, Hive::CurrentUser, key, name), QString());
}

TEST_P(AssocReg, AnEmptyTextDeletes) {
    RegStringSet(store, Hive::CurrentUser, key, name, QStringLiteral("a"));
    EXPECT_TRUE(RegStringSet(store, Hive::CurrentUser, key, name, QString()));
    EXPECT_EQ(store.value(Hive::CurrentUser, key, name), std::nullopt);
    EXPECT_FALSE(RegStringSet(store, Hive::CurrentUser, key, name, QString()));
}

TEST_P(AssocReg, DeletesOneValue) {
    RegDwordSet(store, Hive::CurrentUser, key, name, 1);
    RegStringSet(store, Hive::CurrentUser, key, QStringLiteral(".vlr"), QStringLiteral("b"));
    RegValueDelete(store, Hive::CurrentUser, key, name);
    RegValueDelete(store, Hive::CurrentUser, key, name);
    EXPECT_EQ(store.value(Hive::CurrentUser, key, name), std::nullopt);
    EXPECT_EQ(RegStringGet(store, Hive::CurrentUser, key, QStringLiteral(".vlr")),
              QStringLiteral("b"));
}

INSTANTIATE_TEST_SUITE_P(Stores, AssocReg,
                         testing::Values(
                             []() -> std::unique_ptr<RegistryStore> {
                                 return std::make_unique<MemoryRegistryStore>();
                             },
                             []() -> std::unique_ptr<RegistryStore> {
                                 return std::make_unique<SqliteRegistryStore>(
                                     test::temporaryFolder() + QStringLiteral("/r.sqlite"));
                             }),
                         [](const auto& one) { return one.index == 0 ? "Memory" : "Sqlite"; });

TEST(AssocRegOnDisk, NumbersDeletionsAndTheRootsDefaultLast) {
    const QString file = test::temporaryFolder() + QStringLiteral("/r.sqlite");
    {
        SqliteRegistryStore store(file);
        RegDwordSet(store, Hive::CurrentUser, key, name, 41943047);
        RegStringSet(store, Hive::ClassesRoot, QString(), QString(),
                     QStringLiteral("Velorama File"));
        RegStringSet(store, Hive::CurrentUser, key, QStringLiteral("gone"), QStringLiteral("a"));
        store.flush();
        RegStringSet(store, Hive::CurrentUser, key, QStringLiteral("gone"), QString());
    }
    const SqliteRegistryStore store(file);
    EXPECT_EQ(RegDwordGet(store, Hive::CurrentUser, key, name), 41943047U);
    EXPECT_EQ(RegStringGet(store, Hive::ClassesRoot, QString(), QString()),
              QStringLiteral("Velorama File"));
    EXPECT_EQ(store.value(Hive::CurrentUser, key, QStringLiteral("gone")), std::nullopt);
}

}  // namespace
}  // namespace velorama
