#include "platform/files/exact_names.h"

#include "platform/files/paths.h"
#include "support/test_world.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace velorama {
namespace {

class ExactNamesOf : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(QDir(root).mkpath(QStringLiteral("album/images")));
        ASSERT_TRUE(QDir(root).mkpath(QStringLiteral("albums")));
        for (const char* name : {"/album/sea.jpg", "/albums/sea.jpg"}) {
            QFile file(root + QLatin1String(name));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }
    QString at(const char* path) const { return root + QLatin1String(path); }

    QString root = test::temporaryFolder();
};

TEST_F(ExactNamesOf, AFolderFindNoOtherCaseThere) {
    EXPECT_EQ(hostFile(at("/album/SEA.jpg")), at("/album/sea.jpg"));
    {
        const ExactNames exact(at("/album"));
        EXPECT_EQ(hostFile(at("/album/SEA.jpg")), at("/album/SEA.jpg"));
        EXPECT_EQ(hostPlace(at("/album/SEA.jpg")), at("/album/SEA.jpg"));
        EXPECT_EQ(hostPlace(at("/album/Images/a.gif")), at("/album/Images/a.gif"));
        EXPECT_EQ(hostFile(at("/album/sea.jpg")), at("/album/sea.jpg"));
        EXPECT_EQ(hostPlace(at("/album")), at("/album"));
        EXPECT_EQ(hostPlace(at("/album/Images/")), at("/album/Images/"));
    }
    EXPECT_EQ(hostFile(at("/album/SEA.jpg")), at("/album/sea.jpg"));
}

TEST_F(ExactNamesOf, AFolderLeaveAllOthersAlone) {
    const ExactNames exact(at("/album"));
    EXPECT_EQ(hostFile(at("/albums/SEA.jpg")), at("/albums/sea.jpg"));
    EXPECT_EQ(hostFile(at("/Album/SEA.jpg")), at("/album/sea.jpg"));
}

TEST_F(ExactNamesOf, ManyFoldersLastAsLongAsEachLives) {
    const ExactNames outer(at("/album"));
    {
        const ExactNames inner(at("/albums"));
        EXPECT_TRUE(ExactNames::hold(at("/album/x")));
        EXPECT_TRUE(ExactNames::hold(at("/albums/x")));
    }
    EXPECT_TRUE(ExactNames::hold(at("/album/x")));
    EXPECT_FALSE(ExactNames::hold(at("/albums/x")));
}

TEST_F(ExactNamesOf, NoFolderAreNone) {
    const ExactNames exact{QString()};
    EXPECT_FALSE(ExactNames::hold(at("/album/x")));
    EXPECT_FALSE(ExactNames::hold(QString()));
}

TEST_F(ExactNamesOf, AFolderStillRefuseWhatNoFileCanBe) {
    const ExactNames exact(at("/album"));
    EXPECT_EQ(hostPlace(at("/album/a") + QChar(u'\0')), QString());
}

}  // namespace
}  // namespace velorama
