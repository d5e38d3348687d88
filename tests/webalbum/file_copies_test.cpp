#include "webalbum/file_copies.h"

#include "support/test_world.h"
#include "webalbum/album_world.h"

#include <QFileInfo>

namespace velorama::test {
namespace {

class FileCopies : public AlbumWorld {
protected:
    void copy(const QString& source) {
        copies.push_back({source, target + u'/' + QString::number(copies.size() + 1)});
    }
    QString file(const char* bytes) {
        QString path = folder + u'/' + QString::number(copies.size() + 1);
        writeFile(path, bytes);
        return path;
    }
    /// The target of the copy that failed, and all that was told to be done.
    std::string run() {
        told.clear();
        const auto failed = copyFiles(copies, QString(), stop.get_token(),
                                      [this](int done) { told.push_back(done); });
        return failed ? QFileInfo(failed->target).fileName().toStdString() : "";
    }

    const QString folder = temporaryFolder();
    const QString target = temporaryFolder();
    std::vector<FileCopy> copies;
    std::stop_source stop;
    std::vector<int> told;
};

TEST_F(FileCopies, OfNothingAreDoneAtOnce) {
    EXPECT_EQ(run(), "");
    EXPECT_EQ(told, std::vector<int>{0});
}

TEST_F(FileCopies, AllAreMadeAndTheirNumberIsToldAtTheEnd) {
    for (const char* bytes : {"a", "bc", "def"}) {
        copy(file(bytes));
    }
    EXPECT_EQ(run(), "");
    EXPECT_EQ(readFile(target + QStringLiteral("/1")), QByteArray("a"));
    EXPECT_EQ(readFile(target + QStringLiteral("/2")), QByteArray("bc"));
    EXPECT_EQ(readFile(target + QStringLiteral("/3")), QByteArray("def"));
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.back(), 3);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
}

TEST_F(FileCopies, TheFirstThatFailsIsTold) {
    copy(file("a"));
    copy(folder + QStringLiteral("/gone"));
    copy(folder + QStringLiteral("/gone too"));
    EXPECT_EQ(run(), "2");
    EXPECT_TRUE(QFileInfo::exists(target + QStringLiteral("/1")));
}

TEST_F(FileCopies, NoneIsBegunAfterAStop) {
    copy(file("a"));
    stop.request_stop();
    EXPECT_EQ(run(), "");
    EXPECT_FALSE(QFileInfo::exists(target + QStringLiteral("/1")));
}

}  // namespace
}  // namespace velorama::test
