#include "core/cls_registry.h"

#include "core/lib_txt.h"
#include "support/memory_registry_store.h"
#include "support/recording_shell.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

class ClsRegistry : public testing::Test {
protected:
    void SetUp() override {
        fillTextConstants(2026, QStringLiteral("http://server.invalid/"));
        shell.documents = QStringLiteral("/home/ann/Documents/");
    }

    void put(const QByteArray& data, ValueType type = ValueType::Text) {
        store.setValue(Hive::CurrentUser, key, name, {type, data});
    }
    QString load() const {
        return registry.StringLoad(HKEY_CURRENT_USER, key, name, QStringLiteral("default"));
    }
    bool save(const QString& value) {
        return registry.StringSave(QStringLiteral("-2147483647"), key, name, value);
    }

    const QString key = QStringLiteral("SOFTWARE\\Brightquay\\Velorama\\mfrmPRGMAIN\\View");
    const QString name = QStringLiteral("Slideshow");
    MemoryRegistryStore store;
    test::RecordingShell shell;
    clsREGISTRY registry{store, shell};
};

TEST_F(ClsRegistry, AnAbsentKeyGivesTheDefaultAndIsNotMade) {
    EXPECT_EQ(load(), QStringLiteral("default"));
    EXPECT_EQ(store.value(Hive::CurrentUser, key, name), std::nullopt);
}

TEST_F(ClsRegistry, WhatIsSavedReadsBack) {
    EXPECT_TRUE(save(QStringLiteral("/pics/\u00E4.vlr")));
    EXPECT_EQ(load(), QStringLiteral("/pics/\u00E4.vlr"));
    EXPECT_EQ(store.value(Hive::CurrentUser, key, name),
              (RegistryValue{ValueType::Text, "/pics/\xC3\xA4.vlr"}));
}

TEST_F(ClsRegistry, SeveralAreSavedAsOneByOne) {
    const QString current = QStringLiteral("-2147483647");
    EXPECT_TRUE(registry.StringsSave(current, key,
                                     {{QStringLiteral("a"), QStringLiteral("ä")},
                                      {QStringLiteral("b"), QString()},
                                      {QStringLiteral("c"), QStringLiteral("3")}}));
    const auto read = [this](const char* value) {
        return registry.StringLoad(HKEY_CURRENT_USER, key, QString::fromLatin1(value),
                                   QStringLiteral("absent"));
    };
    EXPECT_EQ(read("a"), QStringLiteral("ä"));
    EXPECT_EQ(read("b").trimmed(), QString());
    EXPECT_EQ(read("c"), QStringLiteral("3"));
    EXPECT_EQ(read("d"), QStringLiteral("absent"));
    EXPECT_FALSE(registry.StringsSave(QStringLiteral("none"), key, {{name, name}}));
    EXPECT_EQ(load(), QStringLiteral("default"));
}

TEST_F(ClsRegistry, AByteOrderMarkIsALetterOfTheText) {
    const QString marked = QStringLiteral("\uFEFF\uFEFFa");
    EXPECT_TRUE(save(marked));
    EXPECT_EQ(load(), marked);
    put("\xEF\xBB\xBF");
    EXPECT_EQ(load(), QStringLiteral("\uFEFF"));
}

TEST_F(ClsRegistry, TwoHundredAndFiftyFourCharactersAreTheLimit) {
    save(QString(254, u'a'));
    EXPECT_EQ(load(), QString(254, u'a'));
    save(QString(255, u'a'));
    EXPECT_EQ(load(), QStringLiteral("default"));
    save(QString(5000, u'a'));
    EXPECT_EQ(load(), QStringLiteral("default"));
}

TEST_F(ClsRegistry, TheLimitCountsCharactersWhateverTheirBytes) {
    for (const char32_t letter : {U'\u00E4', U'\u0416', U'\u6771', U'\U0001F3D4'}) {
        const QString one = QString::fromUcs4(&letter, 1);
        save(one.repeated(254));
        EXPECT_EQ(load(), one.repeated(254)) << one.toStdString();
        save(one.repeated(254) + u'a');
        EXPECT_EQ(load(), QStringLiteral("default")) << one.toStdString();
    }
    save(QString(253, u'a') + QString::fromUtf8("\U0001F3D4"));
    EXPECT_EQ(load(), QString(253, u'a') + QString::fromUtf8("\U0001F3D4"));
}

TEST_F(ClsRegistry, BytesThatAreNoTextCountAsWhatTheyAreReadAs) {
    put(QByteArray(300, '\x80'));
    EXPECT_EQ(load(), QStringLiteral("default"));
}

TEST_F(ClsRegistry, AnEmptyTextComesBackAs255Blanks) {
    EXPECT_TRUE(save(QString()));
    EXPECT_EQ(load(), QString(255, u' '));
    EXPECT_TRUE(load().trimmed().isEmpty());
}

TEST_F(ClsRegistry, ExpandableTextIsTextAndANumberIsNot) {
    put("%HOME%/a", ValueType::ExpandableText);
    EXPECT_EQ(load(), QStringLiteral("%HOME%/a"));
    put("4", ValueType::Number);
    EXPECT_EQ(load(), QStringLiteral("default"));
    put("4", static_cast<ValueType>(3));
    EXPECT_EQ(load(), QStringLiteral("default"));
}

TEST_F(ClsRegistry, AHiveWithoutWriteRightsGivesTheDefault) {
    put("there");
    store.takeWriteRights(Hive::CurrentUser);
    EXPECT_EQ(load(), QStringLiteral("default"));
    EXPECT_FALSE(save(QStringLiteral("new")));
    store.giveWriteRights(Hive::CurrentUser);
    EXPECT_EQ(load(), QStringLiteral("there"));
}

TEST_F(ClsRegistry, TheHiveOfAWriteIsSignedDecimalText) {
    EXPECT_TRUE(registry.StringSave(QStringLiteral("-2147483646"), key, name, QStringLiteral("m")));
    EXPECT_EQ(registry.StringLoad(HKEY_LOCAL_MACHINE, key, name, QString()), QStringLiteral("m"));
    EXPECT_EQ(load(), QStringLiteral("default"));
    for (const char* hive : {"", "HKCU", "2147483649", "0", "-1"}) {
        EXPECT_FALSE(registry.StringSave(QString::fromUtf8(hive), key, name, QString())) << hive;
    }
}

TEST_F(ClsRegistry, BothSpellingsOfASegmentLeadToOneKey) {
    EXPECT_EQ(keyPath(QStringLiteral("mfrmPRGMAIN\\View")), key);
    EXPECT_EQ(keyPath(QStringLiteral("\\mfrmPRGMAIN\\View")), key);
}

TEST_F(ClsRegistry, TheVersionHasTwoPlaces) {
    const QString older = QStringLiteral("SOFTWARE\\MICROSOFT\\WINDOWS\\CURRENTVERSION");
    const QString newer = QStringLiteral("SOFTWARE\\MICROSOFT\\WINDOWS NT\\CURRENTVERSION");
    EXPECT_EQ(registry.WindowsVersion(), QString());
    store.setValue(Hive::LocalMachine, older, QStringLiteral("VersionNumber"),
                   {ValueType::Text, "4.10.2222"});
    EXPECT_EQ(registry.WindowsVersion(), QStringLiteral("4.10.2222"));
    store.setValue(Hive::LocalMachine, newer, QStringLiteral("CurrentVersion"),
                   {ValueType::Text, "5.1"});
    EXPECT_EQ(registry.WindowsVersion(), QStringLiteral("5.1"));
    store.takeWriteRights(Hive::LocalMachine);
    EXPECT_EQ(registry.WindowsVersion(), QString());
}

TEST_F(ClsRegistry, SpecialFoldersComeFromTheShell) {
    EXPECT_EQ(registry.SpecialFLDRMyDocuments(), QStringLiteral("/home/ann/Documents/"));
    EXPECT_EQ(registry.SpecialFLDRWindows(5), QStringLiteral("/home/ann/Documents/"));
    EXPECT_EQ(registry.SpecialFLDRWindows(4711), QString());
}

TEST_F(ClsRegistry, ALinkIsOpenedWithItsProtocolWhereItHasNone) {
    const auto opened = [this](const char* protocol, const char* link) {
        shell.opened.clear();
        registry.InternetLinkRun(QStringLiteral("0"), QString::fromUtf8(protocol),
                                 QString::fromUtf8(link));
        return shell.opened;
    };
    EXPECT_EQ(opened("http://", ""), QStringList());
    EXPECT_EQ(opened("http://", "www.a.invalid"), QStringList(QStringLiteral("www.a.invalid")));
    EXPECT_EQ(opened("", "/home/ann/index.html"),
              QStringList(QStringLiteral("file:///home/ann/index.html")));
    EXPECT_EQ(opened("", "HTTP://A.invalid/X"), QStringList(QStringLiteral("HTTP://A.invalid/X")));
    EXPECT_EQ(opened("file://", "MailTo:ann@a.invalid"),
              QStringList(QStringLiteral("MailTo:ann@a.invalid")));
    EXPECT_EQ(opened("file://", "news:x"), QStringList(QStringLiteral("news:x")));
    EXPECT_EQ(opened("file://", "ftp:x"), QStringList(QStringLiteral("ftp:x")));
    EXPECT_EQ(opened("file://", "https:x"), QStringList(QStringLiteral("https:x")));
    EXPECT_EQ(opened("gopher://", "x"), QStringList(QStringLiteral("gopher://x")));
}

}  // namespace
}  // namespace velorama
