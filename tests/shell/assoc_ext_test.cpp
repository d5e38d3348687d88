#include "shell/assoc_ext.h"
#include "core/lib_txt.h"
#include "support/memory_registry_store.h"

#include <gtest/gtest.h>

#include <vector>

namespace velorama {
namespace {

const QString details = QStringLiteral("Software\\Details\\velorama");

class NotedFileTypes : public FileTypes {
public:
    void link(const FileType& type) override { linked.push_back(type); }
    void tidy(const FileType& type) override { tidied.push_back(type); }
    std::vector<FileType> linked;
    std::vector<FileType> tidied;
};

/// Counts the writes, and can be told to count deletions too.
class CountingStore : public MemoryRegistryStore {
public:
    bool setValue(Hive hive, const QString& key, const QString& name,
                  const RegistryValue& value) override {
        writes.append(key + u'|' + name);
        return MemoryRegistryStore::setValue(hive, key, name, value);
    }
    bool removeValue(Hive hive, const QString& key, const QString& name) override {
        deletions.append(key + u'|' + name);
        return MemoryRegistryStore::removeValue(hive, key, name);
    }
    QStringList writes;
    QStringList deletions;
};

class Association : public testing::Test {
protected:
    void SetUp() override { fillTextConstants(2026, QStringLiteral("http://x/")); }

    std::optional<RegistryValue> of(const QString& key) const {
        return store.value(Hive::ClassesRoot, key, QString());
    }
    std::optional<RegistryValue> detail(const QString& name) const {
        return store.value(Hive::CurrentUser, details, name);
    }
    static RegistryValue text(const char* data) { return {ValueType::Text, data}; }

    CountingStore store;
    NotedFileTypes fileTypes;
    FileAssociation association{
        store, fileTypes, {QStringLiteral("C:\\Progs"), QStringLiteral("velorama")}};
    const RegistryValue one = {ValueType::Number, "1"};
};

TEST_F(Association, FirstRunWritesEveryKeyToTheLetter) {
    EXPECT_TRUE(association.AssociationMake());
    EXPECT_EQ(of(QStringLiteral("VLRFile")), text("Velorama File"));
    EXPECT_EQ(of(QStringLiteral("VLRFile\\shell\\open\\command")),
              text("C:\\Progs\\velorama.exe %1"));
    EXPECT_EQ(of(QStringLiteral("VLRFile\\DefaultIcon")), text("C:\\Progs\\velorama.exe,2"));
    EXPECT_EQ(of(QString()), text("Velorama File"));
    EXPECT_EQ(of(QStringLiteral(".vlr")), text("VLRFile"));
    EXPECT_EQ(detail(QStringLiteral("Stored")), one);
}

TEST_F(Association, WritesInItsOrderTheMarkFirst) {
    association.AssociationMake();
    EXPECT_EQ(store.writes,
              QStringList({details + QStringLiteral("|Stored"), QStringLiteral("VLRFile|"),
                           QStringLiteral("VLRFile\\shell\\open\\command|"),
                           QStringLiteral("VLRFile\\DefaultIcon|"), QStringLiteral("|"),
                           QStringLiteral(".vlr|")}));
}

TEST_F(Association, PathsOfThisSystemCarryNoEnding) {
    FileAssociation here(store, fileTypes,
                         {QStringLiteral("/usr/bin"), QStringLiteral("velorama")});
    here.AssociationMake();
    EXPECT_EQ(of(QStringLiteral("VLRFile\\shell\\open\\command")), text("/usr/bin/velorama %1"));
    EXPECT_EQ(of(QStringLiteral("VLRFile\\DefaultIcon")), text("/usr/bin/velorama,2"));
}

TEST_F(Association, SecondRunWritesNothing) {
    association.AssociationCheck();
    store.writes.clear();
    store.deletions.clear();
    // Another program has taken the extension since.
    store.MemoryRegistryStore::setValue(Hive::ClassesRoot, QStringLiteral(".vlr"), QString(),
                                        text("OtherFile"));
    EXPECT_FALSE(association.AssociationMake());
    association.AssociationCheck();
    EXPECT_EQ(store.writes, QStringList());
    EXPECT_EQ(store.deletions, QStringList());
    EXPECT_EQ(of(QStringLiteral(".vlr")), text("OtherFile"));
    EXPECT_EQ(fileTypes.linked.size(), 1U);
}

TEST_F(Association, LaterRunsLookWhetherTheDesktopsEntryIsStillOfUse) {
    association.AssociationCheck();
    EXPECT_TRUE(fileTypes.tidied.empty());
    association.AssociationCheck();
    ASSERT_EQ(fileTypes.tidied.size(), 1U);
    EXPECT_EQ(fileTypes.tidied.front().id, QStringLiteral("velorama"));
    EXPECT_EQ(fileTypes.tidied.front().mimeType, QStringLiteral("application/x-velorama-album"));
    EXPECT_EQ(fileTypes.linked.size(), 1U);
}

TEST_F(Association, StoredCountsOnlyAsTheNumberOne) {
    for (const RegistryValue& value :
         {RegistryValue{ValueType::Number, "2"}, RegistryValue{ValueType::Text, "1"}}) {
        store.setValue(Hive::CurrentUser, details, QStringLiteral("Stored"), value);
        EXPECT_TRUE(association.FirstRunMark()) << value.data.toStdString();
        EXPECT_EQ(detail(QStringLiteral("Stored")), one);
    }
}

TEST_F(Association, NoFormerValueLeavesNoRecord) {
    store.MemoryRegistryStore::setValue(Hive::CurrentUser, details, QStringLiteral(".vlr"),
                                        text("stale"));
    EXPECT_TRUE(association.FirstRunMark());
    EXPECT_EQ(detail(QStringLiteral(".vlr")), std::nullopt);
    EXPECT_EQ(detail(QStringLiteral("Stored")), one);
    EXPECT_EQ(of(QStringLiteral(".vlr")), std::nullopt);
}

TEST_F(Association, FormerValueIsKeptAsARecord) {
    store.MemoryRegistryStore::setValue(Hive::ClassesRoot, QStringLiteral(".vlr"), QString(),
                                        text("OtherFile"));
    EXPECT_TRUE(association.AssociationMake());
    EXPECT_EQ(detail(QStringLiteral(".vlr")), text("OtherFile"));
    EXPECT_EQ(of(QStringLiteral(".vlr")), text("VLRFile"));
}

TEST_F(Association, WithoutTheRightToWriteClassesTheMarkStandsAlone) {
    store.takeWriteRights(Hive::ClassesRoot);
    EXPECT_TRUE(association.AssociationMake());
    EXPECT_EQ(detail(QStringLiteral("Stored")), one);
    EXPECT_TRUE(fileTypes.linked.empty());
    store.giveWriteRights(Hive::ClassesRoot);
    EXPECT_EQ(of(QStringLiteral("VLRFile")), std::nullopt);
    EXPECT_FALSE(association.AssociationMake());
    EXPECT_EQ(of(QStringLiteral(".vlr")), std::nullopt);
}

TEST_F(Association, AFurtherVerbIsNotBuilt) {
    association.FileTypeCreate(QStringLiteral("C:\\a.exe"), QStringLiteral("Thing"), 2,
                               QStringLiteral("VLRFile"), QStringLiteral("&Edit"));
    EXPECT_EQ(store.writes, QStringList());
}

TEST_F(Association, TheDesktopIsTold) {
    association.AssociationMake();
    ASSERT_EQ(fileTypes.linked.size(), 1U);
    const FileType& type = fileTypes.linked.front();
    EXPECT_EQ(type.id, QStringLiteral("velorama"));
    EXPECT_EQ(type.mimeType, QStringLiteral("application/x-velorama-album"));
    EXPECT_EQ(type.extension, QStringLiteral(".vlr"));
    EXPECT_EQ(type.description, QStringLiteral("Velorama File"));
    EXPECT_EQ(type.program, QStringLiteral("C:\\Progs\\velorama.exe"));
    EXPECT_EQ(type.programName, QStringLiteral("Velorama"));
    EXPECT_TRUE(type.icon.startsWith("<svg"));
    EXPECT_TRUE(type.programIcon.startsWith("<svg"));
    EXPECT_NE(type.icon, type.programIcon);
}

}  // namespace
}  // namespace velorama
