#include "core/documents.h"

#include "support/files.h"
#include "support/full_disk.h"
#include "support/test_world.h"

namespace velorama {
namespace {

using test::contentOf;
using test::writeFile;

QStringList everythingIn(const QString& folder) {
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

class DocumentSave : public testing::Test {
protected:
    QString folder = test::temporaryFolder();
    QString path = folder + QStringLiteral("/a.vlr");
};

TEST_F(DocumentSave, aClosingLineEndComesOnTop) {
    DocumentSaveText(QStringLiteral("2\r\n/p/a.jpg\r\n/p/b.jpg\r\n"), path);
    EXPECT_EQ(contentOf(path), QByteArray("2\r\n/p/a.jpg\r\n/p/b.jpg\r\n\r\n"));
}

TEST_F(DocumentSave, emptyContentIsOneLineEnd) {
    DocumentSaveText(QString(), path);
    EXPECT_EQ(contentOf(path), QByteArray("\r\n"));
}

TEST_F(DocumentSave, tellsWhetherItIsWritten) {
    EXPECT_TRUE(DocumentSaveText(QStringLiteral("a"), path));
    EXPECT_FALSE(DocumentSaveText(QStringLiteral("a"), QString()));
    EXPECT_FALSE(DocumentSaveText(QStringLiteral("a"), folder));
    EXPECT_FALSE(DocumentSaveText(QStringLiteral("a"), folder + QStringLiteral("/none/a.vlr")));
}

TEST_F(DocumentSave, nothingElseIsChangedOnTheWay) {
    DocumentSaveText(QStringLiteral("a\nb\rc\td\"e\" "), path);
    EXPECT_EQ(contentOf(path), QByteArray("a\nb\rc\td\"e\" \r\n"));
}

TEST_F(DocumentSave, textIsUtf8WithoutAMark) {
    DocumentSaveText(QString::fromUtf8("/p/Z\u00fcrich \u6771\u4eac \U0001F3D4.jpg"), path);
    EXPECT_EQ(contentOf(path), QByteArray("/p/Z\xc3\xbcrich \xe6\x9d\xb1\xe4\xba\xac "
                                          "\xf0\x9f\x8f\x94.jpg\r\n"));
}

TEST_F(DocumentSave, aFullDiskKeepsTheOldFile) {
    writeFile(path, "old");
    for (const int room : {0, 1, 1000, 40000}) {
        const test::FullDisk full(static_cast<rlim_t>(room));
        DocumentSaveText(QString(50000, u'x'), path);
        DocumentSaveText(QString(room, u'x'), path);  // the line end finds no room
    }
    EXPECT_EQ(contentOf(path), QByteArray("old"));
    EXPECT_EQ(everythingIn(folder), QStringList(QStringLiteral("a.vlr")));
}

TEST_F(DocumentSave, anOldFileIsReplacedWhole) {
    writeFile(path, QByteArray(100000, 'x'));
    DocumentSaveText(QStringLiteral("0"), path);
    EXPECT_EQ(contentOf(path), QByteArray("0\r\n"));
}

TEST_F(DocumentSave, nothingIsLeftBesideTheFile) {
    for (int i = 0; i < 3; ++i) {
        DocumentSaveText(QString::number(i), path);
    }
    EXPECT_EQ(everythingIn(folder), QStringList("a.vlr"));
    EXPECT_EQ(contentOf(path), QByteArray("2\r\n"));
}

TEST_F(DocumentSave, aMissingFolderIsNotMade) {
    DocumentSaveText(QStringLiteral("0"), folder + QStringLiteral("/none/a.vlr"));
    EXPECT_TRUE(everythingIn(folder).isEmpty());
}

// Permissions do not bind the user that the tests often run as; a file where the folder should be
// refuses everybody.
TEST_F(DocumentSave, aFileInTheFoldersPlaceStaysAsItIs) {
    writeFile(path, "old");
    DocumentSaveText(QStringLiteral("0"), path + QStringLiteral("/b.vlr"));
    EXPECT_EQ(contentOf(path), QByteArray("old"));
    EXPECT_EQ(everythingIn(folder), QStringList("a.vlr"));
}

TEST_F(DocumentSave, aFolderInTheFilesPlaceStaysAsItIs) {
    ASSERT_TRUE(QDir().mkpath(path));
    writeFile(path + QStringLiteral("/kept.jpg"), "kept");
    DocumentSaveText(QStringLiteral("0"), path);
    EXPECT_EQ(everythingIn(folder), QStringList("a.vlr"));
    EXPECT_EQ(contentOf(path + QStringLiteral("/kept.jpg")), QByteArray("kept"));
}

TEST_F(DocumentSave, aSymbolicLinkStaysOneAndItsFileIsReplaced) {
    const QString real = test::temporaryFolder() + QStringLiteral("/real.vlr");
    writeFile(real, "old");
    ASSERT_TRUE(QFile::link(real, path));
    DocumentSaveText(QStringLiteral("0"), path);
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_EQ(contentOf(real), QByteArray("0\r\n"));
    EXPECT_EQ(contentOf(path), QByteArray("0\r\n"));
}

TEST_F(DocumentSave, theFilesPermissionsStay) {
    writeFile(path, "old");
    const QFile::Permissions shared = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                      QFile::WriteGroup | QFile::ReadOther;
    ASSERT_TRUE(QFile::setPermissions(path, shared));
    const QFile::Permissions before = QFile::permissions(path);
    DocumentSaveText(QStringLiteral("0"), path);
    EXPECT_EQ(QFile::permissions(path), before);
}

TEST_F(DocumentSave, letterCaseAndSlashesFindTheFolder) {
    ASSERT_TRUE(QDir(folder).mkdir(QStringLiteral("Trips")));
    DocumentSaveText(QStringLiteral("0"), folder + QStringLiteral("/tRIPS/a.vlr"));
    EXPECT_EQ(everythingIn(folder), QStringList("Trips"));
    EXPECT_EQ(contentOf(folder + QStringLiteral("/Trips/a.vlr")), QByteArray("0\r\n"));
}

TEST_F(DocumentSave, aFileOfAnotherNameIsNotReplaced) {
    const QString other = folder + QStringLiteral("/A.vlr");
    writeFile(other, "old");
    DocumentSaveText(QStringLiteral("0"), path);
    EXPECT_EQ(contentOf(other), QByteArray("old"));
    EXPECT_EQ(contentOf(path), QByteArray("0\r\n"));
    const QString typed = folder + QStringLiteral("/trips\\a.vlr");
    ASSERT_TRUE(QDir(folder).mkdir(QStringLiteral("trips")));
    writeFile(folder + QStringLiteral("/trips/a.vlr"), "old");
    DocumentSaveText(QStringLiteral("1"), typed);
    EXPECT_EQ(contentOf(folder + QStringLiteral("/trips/a.vlr")), QByteArray("old"));
    EXPECT_EQ(contentOf(typed), QByteArray("1\r\n"));
}

TEST_F(DocumentSave, pathsThatThisMachineCannotHaveMakeNoFile) {
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder));
    DocumentSaveText(QStringLiteral("0"), QString());
    DocumentSaveText(QStringLiteral("0"), QStringLiteral("C:\\Pictures\\a.vlr"));
    DocumentSaveText(QStringLiteral("0"), folder + QStringLiteral("/a") + QChar(0));
    DocumentSaveText(QStringLiteral("0"), folder + u'/' + QString(5000, u'x'));
    EXPECT_TRUE(everythingIn(folder).isEmpty());
    QDir::setCurrent(before);
}

TEST_F(DocumentSave, namesMayBeAsLongAsTheFileSystemLets) {
    const QString name = QString(251, u'n') + QStringLiteral(".vlr");
    for (const Lasting lasting : {Lasting::Yes, Lasting::No}) {
        const QString last = lasting == Lasting::Yes ? QStringLiteral("1") : QStringLiteral("2");
        DocumentSaveText(last, folder + u'/' + name, lasting);
        EXPECT_EQ(contentOf(folder + u'/' + name), last.toUtf8() + "\r\n");
    }
    DocumentSaveText(QStringLiteral("3"), folder + u'/' + name + u'n');
    EXPECT_EQ(everythingIn(folder), QStringList(name));
}

TEST_F(DocumentSave, tenMegabytesGoOutInOne) {
    const QString content(10LL * 1024 * 1024, u'x');
    DocumentSaveText(content, path);
    EXPECT_EQ(contentOf(path), content.toUtf8() + "\r\n");
}

}  // namespace
}  // namespace velorama
