#include "controls/lists/file_list.h"

#include "support/default_locale.h"
#include "support/test_world.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

namespace velorama {
namespace {

const QString pictures = QStringLiteral("*.bmp;*.jpg;*.gif");

QString folderWith(const QStringList& names) {
    QString folder = test::temporaryFolder();
    for (const QString& name : names) {
        QFile file(folder + QLatin1Char('/') + name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    }
    return folder;
}

QStringList namesOf(const FileList& list) {
    QStringList names;
    for (int index = 0; index < list.ListCount(); ++index) {
        names.append(list.List(index));
    }
    return names;
}

QStringList listed(const QString& folder, const QString& pattern) {
    FileList list;
    list.setPattern(pattern);
    list.setPath(folder);
    return namesOf(list);
}

TEST(FileList, SortsWithoutRegardToLetterCaseThenWithIt) {
    const QString folder =
        folderWith({QStringLiteral("b.jpg"), QStringLiteral("a.jpg"), QStringLiteral("A.jpg"),
                    QStringLiteral("C.jpg"), QStringLiteral("a10.jpg"), QStringLiteral("a2.jpg")});
    EXPECT_EQ(listed(folder, pictures).join(u' '),
              QStringLiteral("A.jpg a.jpg a10.jpg a2.jpg b.jpg C.jpg"));
}

TEST(FileList, SortsAsTheUsersLanguageDoes) {
    const test::DefaultLocale locale(QStringLiteral("de_DE"));
    const QString folder = folderWith({QStringLiteral("Bild 10.jpg"), QStringLiteral("bild 9.jpg"),
                                       QStringLiteral("Zug.jpg"), QStringLiteral("Äpfel.jpg"),
                                       QStringLiteral("Apfel.jpg"), QStringLiteral("Bild 2.jpg")});
    EXPECT_EQ(listed(folder, pictures).join(u'|'),
              QStringLiteral("Apfel.jpg|Äpfel.jpg|Bild 2.jpg|bild 9.jpg|Bild 10.jpg|Zug.jpg"));
}

TEST(FileList, ThePatternHasSeveralPartsAndIgnoresLetterCase) {
    const QString folder =
        folderWith({QStringLiteral("1.BMP"), QStringLiteral("2.Jpg"), QStringLiteral("3.gif"),
                    QStringLiteral("4.jpeg"), QStringLiteral("5.png"), QStringLiteral("jpg"),
                    QStringLiteral("6.jpg.txt")});
    EXPECT_EQ(listed(folder, pictures).join(u' '), QStringLiteral("1.BMP 2.Jpg 3.gif"));
    EXPECT_EQ(listed(folder, QStringLiteral("*.*")).size(), 7);
    EXPECT_EQ(listed(folder, QStringLiteral("?.png; *.txt ;")).join(u' '),
              QStringLiteral("5.png 6.jpg.txt"));
}

TEST(FileList, SetsItselfAnewWithEachPathAndPattern) {
    const QString folder = folderWith({QStringLiteral("a.jpg"), QStringLiteral("b.txt")});
    FileList list;
    EXPECT_EQ(list.ListCount(), 0);
    list.setPath(folder);
    EXPECT_EQ(list.ListCount(), 2);
    list.setPattern(pictures);
    EXPECT_EQ(namesOf(list), QStringList(QStringLiteral("a.jpg")));
    EXPECT_EQ(list.Path(), folder);
    EXPECT_EQ(list.List(-1), QString());
    EXPECT_EQ(list.List(1), QString());
}

TEST(FileList, HoldsOnlyFilesThatShow) {
    const QString folder = folderWith({QStringLiteral("a.jpg"), QStringLiteral(".hidden.jpg")});
    QDir(folder).mkdir(QStringLiteral("folder.jpg"));
    QFile::link(folder + QStringLiteral("/a.jpg"), folder + QStringLiteral("/link.jpg"));
    QFile::link(folder + QStringLiteral("/gone"), folder + QStringLiteral("/dangling.jpg"));
    QFile::link(folder + QStringLiteral("/folder.jpg"), folder + QStringLiteral("/linked.jpg"));
    EXPECT_EQ(listed(folder, pictures).join(u' '), QStringLiteral("a.jpg link.jpg"));
}

TEST(FileList, ReadsTheFolderOnceWhereThePatternStays) {
    const QString folder = folderWith({QStringLiteral("a.jpg")});
    FileList list;
    list.setPattern(pictures);
    list.setPath(folder);
    QFile late(folder + QStringLiteral("/b.jpg"));
    ASSERT_TRUE(late.open(QIODevice::WriteOnly));
    list.setPattern(pictures);
    EXPECT_EQ(list.ListCount(), 1);
    list.setPath(folder);
    EXPECT_EQ(list.ListCount(), 2);
}

TEST(FileList, CountsOthersInTheSameReading) {
    const QString folder =
        folderWith({QStringLiteral("a.jpg"), QStringLiteral("b.png"), QStringLiteral("c.PNG"),
                    QStringLiteral("d.txt"), QStringLiteral(".hidden.png")});
    QDir(folder).mkdir(QStringLiteral("folder.png"));
    FileList list;
    list.setPattern(pictures);
    QStringList asked;
    list.setOthers([&asked](const QString& name) {
        asked.append(name);
        return name.endsWith(QLatin1String("png"), Qt::CaseInsensitive);
    });
    EXPECT_EQ(list.OtherCount(), 0);
    list.setPath(folder);
    EXPECT_EQ(namesOf(list), QStringList(QStringLiteral("a.jpg")));
    EXPECT_EQ(list.OtherCount(), 2);
    asked.sort();
    EXPECT_EQ(asked.join(u' '), QStringLiteral("b.png c.PNG d.txt"));
    list.setPath(QStringLiteral("/no/such/folder"));
    EXPECT_EQ(list.OtherCount(), 0);
}

TEST(FileList, EachReadingAsksACopyOfTheTeller) {
    FileList list;
    list.setPattern(pictures);
    list.setOthers([seen = 0](const QString&) mutable { return ++seen == 1; });
    const QString folder = folderWith({QStringLiteral("a.png"), QStringLiteral("b.png")});
    for (int reading = 0; reading < 3; ++reading) {
        list.setPath(folder);
        EXPECT_EQ(list.OtherCount(), 1);
    }
}

TEST(FileList, AFolderThatCannotBeReadIsEmptyAndStaysThePath) {
    FileList list;
    list.setPath(folderWith({QStringLiteral("a.jpg")}));
    list.setPath(QStringLiteral("/no/such/folder"));
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.Path(), QStringLiteral("/no/such/folder"));
    list.setPath(QString());
    EXPECT_EQ(list.ListCount(), 0);
}

TEST(FileList, TakesNamesWithAnyCharacter) {
    const QStringList names = {QStringLiteral("a\nb.jpg"), QStringLiteral("a\"b'c.jpg"),
                               QString::fromUtf8("\xC3\x84pfel \xE6\xB5\xB7.jpg"),
                               QStringLiteral("a;b [1].jpg"), QStringLiteral("a\\b.jpg")};
    QStringList found = listed(folderWith(names), pictures);
    for (const QString& name : names) {
        EXPECT_EQ(found.removeAll(name), 1) << name.toStdString();
    }
    EXPECT_TRUE(found.isEmpty());
}

TEST(FileList, NamesThatAreNoTextDoNoHarm) {
    const QString folder = folderWith({QStringLiteral("a.jpg")});
    const QByteArray name = folder.toUtf8() + "/\xff\xfe.jpg";
    const int file = ::open(name.constData(), O_CREAT | O_WRONLY, 0600);
    ASSERT_GE(file, 0);
    ::close(file);
    EXPECT_TRUE(listed(folder, pictures).contains(QStringLiteral("a.jpg")));
    ::unlink(name.constData());
}

TEST(FileList, FindsAFolderInOtherLetterCase) {
    const QString folder = folderWith({});
    QDir(folder).mkdir(QStringLiteral("Sea"));
    QFile file(folder + QStringLiteral("/Sea/a.jpg"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(listed(folder + QStringLiteral("/SEA"), pictures).size(), 1);
}

}  // namespace
}  // namespace velorama
