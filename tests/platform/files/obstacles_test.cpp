#include "platform/files/obstacles.h"

#include "support/files.h"
#include "support/test_world.h"

#include <unistd.h>

namespace velorama {
namespace {

TEST(Obstacles, OfReadingAreTold) {
    const QString folder = test::temporaryFolder();
    const QString file = folder + QStringLiteral("/a");
    test::writeFile(file);
    EXPECT_EQ(readingObstacle(folder + QStringLiteral("/none")),
              QStringLiteral("no such file or folder"));
    EXPECT_EQ(readingObstacle(file + QStringLiteral("/below")),
              QStringLiteral("no such file or folder"));
    EXPECT_EQ(readingObstacle(QString()), QStringLiteral("no such file or folder"));
    EXPECT_EQ(readingObstacle(folder), QStringLiteral("it is no file"));
    EXPECT_EQ(readingObstacle(folder + u'/' + QString(300, u'x')),
              QStringLiteral("the name is too long"));
    EXPECT_EQ(readingObstacle(file), QStringLiteral("it cannot be read"));
}

TEST(Obstacles, OfWritingAreTold) {
    const QString folder = test::temporaryFolder();
    const QString file = folder + QStringLiteral("/a");
    EXPECT_EQ(writingObstacle(file), QStringLiteral("it cannot be written"));
    EXPECT_EQ(writingObstacle(folder + QStringLiteral("/none/a")),
              QStringLiteral("no such file or folder"));
    EXPECT_EQ(writingObstacle(folder), QStringLiteral("there is something else of that name"));
}

// access() asks for the user that the process belongs to, whatever rights a thread has laid down.
TEST(Obstacles, RightsAreTold) {
    if (::getuid() == 0) {
        GTEST_SKIP() << "root may do everything";
    }
    const QString folder = test::temporaryFolder();
    const QString file = folder + QStringLiteral("/a");
    test::writeFile(file);
    QFile::setPermissions(file, {});
    EXPECT_EQ(readingObstacle(file), QStringLiteral("permission denied"));
    EXPECT_EQ(writingObstacle(file), QStringLiteral("permission denied"));
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_EQ(writingObstacle(folder + QStringLiteral("/b")), QStringLiteral("permission denied"));
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

}  // namespace
}  // namespace velorama
