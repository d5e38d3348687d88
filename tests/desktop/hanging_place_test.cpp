// Pictures and albums on a place of the disk that does not answer, as a server that is gone.

#include "desktop/album_world.h"

#include <QFile>

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

/// Opens or looks at anything below it wait as long as it hangs.
class HangingPlace {
public:
    explicit HangingPlace(const QString& path)
        : path_(path), flag_(path + QStringLiteral(".hangs")) {
        EXPECT_TRUE(putBytes(flag_, "yes"));
    }
    ~HangingPlace() { QFile::remove(flag_); }
    HangingPlace(const HangingPlace&) = delete;
    HangingPlace& operator=(const HangingPlace&) = delete;

    void answer() const { EXPECT_TRUE(QFile::remove(flag_)); }
    QStringList environment() const {
        return {QStringLiteral("LD_PRELOAD=" VELORAMA_HANGING_LIBRARY),
                QStringLiteral("VELORAMA_HANGING_PLACE=") + path_};
    }

private:
    QString path_;
    QString flag_;
};

class HangingPlaces : public Albums {
protected:
    void open(const HangingPlace& place, const QStringList& arguments = {}) {
        page.emplace(session, session.start(arguments, place.environment()));
        ASSERT_NE(page->window(), 0U);
    }
};

TEST_F(HangingPlaces, TheProgramEndsWhileAPictureOfTheFolderHangs) {
    const HangingPlace place(slides.at(1));
    open(place);
    EXPECT_TRUE(page->turnTo(FoldersPage));
    EXPECT_EQ(page->close(), 0);
}

}  // namespace
}  // namespace velorama::desktop
