#include "browse/touched_picture.h"

#include "browse/browse_world.h"

namespace velorama {
namespace {

class TouchedPictureTest : public test::WithServices {
protected:
    TouchedPictureTest() {
        lvwFOUND.Add(1, QString(), QStringLiteral("a.bmp"), 0);
        lvwSLIDEBAR.Add(1, QStringLiteral("/p/s.bmp"), QStringLiteral("caption"), 0);
    }
    static void touch(const char* list) { ActiveList = QLatin1String(list); }
    std::string path() const { return touched.path(touched.list().item(1)).toStdString(); }
    std::string joined() const { return touched.joinedPath(touched.list().item(1)).toStdString(); }

    ListView lvwSLIDEBAR;
    ListView lvwFOUND;
    FileList flbFOUND;
    const TouchedPicture touched{lvwSLIDEBAR, lvwFOUND, flbFOUND};
};

TEST_F(TouchedPictureTest, OfTheFoundListIsBelowItsFolder) {
    const QString folder = test::temporaryFolder();
    flbFOUND.setPath(folder);
    touch("FOUND");
    EXPECT_EQ(path(), folder.toStdString() + "/a.bmp");
    EXPECT_EQ(joined(), folder.toStdString() + "/a.bmp");
}

TEST_F(TouchedPictureTest, FollowsASlashUnlessJoined) {
    flbFOUND.setPath(QStringLiteral("C:\\Pictures"));
    touch("FOUND");
    EXPECT_EQ(path(), "C:\\Pictures/a.bmp");
    EXPECT_EQ(joined(), "C:\\Pictures\\a.bmp");
}

TEST_F(TouchedPictureTest, OfTheSlidesIsTheirKey) {
    touch("SELECTED");
    EXPECT_EQ(path(), "/p/s.bmp");
    EXPECT_EQ(joined(), "/p/s.bmp");
}

TEST_F(TouchedPictureTest, OfNoItemIsNone) {
    for (const char* list : {"FOUND", "SELECTED"}) {
        touch(list);
        EXPECT_EQ(touched.path(nullptr), QString()) << list;
        EXPECT_EQ(touched.joinedPath(nullptr), QString()) << list;
    }
}

TEST_F(TouchedPictureTest, WithoutSlidesIsOfTheFoundList) {
    touch("SELECTED");
    EXPECT_TRUE(touched.choose());
    EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
    lvwSLIDEBAR.Clear();
    EXPECT_TRUE(touched.choose());
    EXPECT_EQ(ActiveList, QStringLiteral("FOUND"));
    lvwFOUND.Clear();
    EXPECT_FALSE(touched.choose());
}

}  // namespace
}  // namespace velorama
