#include "core/stored_list.h"

#include "core/globals.h"
#include "core/lib_txt.h"
#include "support/memory_registry_store.h"
#include "support/noting_store.h"
#include "support/recording_shell.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

class StoredListTest : public testing::Test {
protected:
    StoredListTest() { makeServices(store, shell); }
    ~StoredListTest() override { releaseServices(); }

    QString stored(const QString& segment, const QString& name) const {
        return loadSetting(segment, name, QStringLiteral("absent"));
    }
    std::string loaded(const QStringList& now = {}) const {
        return list.load(now).join(u'|').toStdString();
    }

    test::NotingStore store;
    test::RecordingShell shell;
    const StoredList list{QStringLiteral("\\frm"), QStringLiteral("lst"), 1};
};

TEST_F(StoredListTest, IsACountAndAPathEach) {
    list.save({QStringLiteral("/a"), QStringLiteral("/b")});
    EXPECT_EQ(stored(QStringLiteral("\\frm\\Items Total"), QStringLiteral("lstList Total")),
              QStringLiteral("2"));
    EXPECT_EQ(stored(QStringLiteral("\\frm\\Details"), QStringLiteral("lst1")),
              QStringLiteral("/a"));
    EXPECT_EQ(stored(QStringLiteral("\\frm\\Details"), QStringLiteral("lst2")),
              QStringLiteral("/b"));
    EXPECT_EQ(store.notes.filter(QStringLiteral("write")).join(u',').toStdString(),
              "write lstList Total,write lst1,write lst2");
    EXPECT_EQ(loaded(), "/a|/b");
}

TEST_F(StoredListTest, BeginsAtZeroUnlessTold) {
    const StoredList plain{.key = QStringLiteral("\\frm"), .name = QStringLiteral("lst")};
    plain.save({QStringLiteral("/a")});
    EXPECT_EQ(stored(QStringLiteral("\\frm\\Details"), QStringLiteral("lst0")),
              QStringLiteral("/a"));
    EXPECT_EQ(plain.load({}).join(u'|').toStdString(), "/a");
}

TEST_F(StoredListTest, PathsLoseTheBlanksAroundThemAndEmptyOnesGo) {
    list.save({QStringLiteral("  /a b "), QString(), QStringLiteral("   "), QStringLiteral("/c")});
    EXPECT_EQ(loaded(), "/a b|/c");
}

TEST_F(StoredListTest, WhatIsNotThereIsPassedOver) {
    list.save({QStringLiteral("/a"), QStringLiteral("/b"), QStringLiteral("/c")});
    store.removeValue(Hive::CurrentUser, keyPath(QStringLiteral("\\frm\\Details")),
                      QStringLiteral("lst2"));
    EXPECT_EQ(loaded(), "/a|/c");
}

TEST_F(StoredListTest, IsReadAsFarAsItsCount) {
    list.save({QStringLiteral("/a"), QStringLiteral("/b")});
    list.save({QStringLiteral("/c")});
    EXPECT_EQ(stored(QStringLiteral("\\frm\\Details"), QStringLiteral("lst2")),
              QStringLiteral("/b"));
    EXPECT_EQ(loaded(), "/c");
}

TEST_F(StoredListTest, ADamagedCountIsNone) {
    list.save({QStringLiteral("/a")});
    for (const char* count : {"", "x", "-1", "0"}) {
        saveSetting(QStringLiteral("\\frm\\Items Total"), QStringLiteral("lstList Total"),
                    QString::fromLatin1(count));
        EXPECT_EQ(loaded(), "") << count;
    }
}

TEST_F(StoredListTest, AHugeCountIsReadUpToAMillion) {
    saveSetting(QStringLiteral("\\frm\\Items Total"), QStringLiteral("lstList Total"),
                QStringLiteral("2000000000"));
    saveSetting(QStringLiteral("\\frm\\Details"), QStringLiteral("lst1000000"),
                QStringLiteral("/last"));
    saveSetting(QStringLiteral("\\frm\\Details"), QStringLiteral("lst1000001"),
                QStringLiteral("/beyond"));
    EXPECT_EQ(loaded(), "/last");
}

TEST_F(StoredListTest, PathsTooLongForTheSettingsComeFromTheList) {
    const QString longest(255, u'x');
    const QString fits(254, u'y');
    list.save({longest, QStringLiteral("/b"), fits});
    EXPECT_EQ(loaded(), "/b|" + fits.toStdString());
    EXPECT_EQ(loaded({longest, QStringLiteral("/other"), QStringLiteral("/other")}),
              longest.toStdString() + "|/b|" + fits.toStdString());
    // Only where the settings have none at that place.
    EXPECT_EQ(loaded({QStringLiteral("/other"), longest}), "/b|" + fits.toStdString());
    list.save({QStringLiteral("/a"), longest});
    EXPECT_EQ(loaded({QStringLiteral("/a"), longest}), "/a|" + longest.toStdString());
}

}  // namespace
}  // namespace velorama
