#pragma once

#include "desktop/albums_page.h"
#include "desktop/photographs.h"
#include "desktop/pictures_page.h"

#include <gtest/gtest.h>

namespace velorama::desktop {

/// A desktop with three photographs in the folder that the program shows when it has no other.
class Albums : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        for (const char* name : {"a", "b", "c"}) {
            slides.append(session.dataFolder() + QStringLiteral("/velorama/Photograph ") +
                          QLatin1String(name) + QStringLiteral(".jpg"));
            ASSERT_TRUE(putPhotograph(slides.size() == 2 ? kOther : kOrdinary, slides.back()))
                << "plasma-workspace-wallpapers is not installed";
        }
    }

    void open(const QStringList& arguments = {}) {
        page.emplace(session, session.start(arguments));
        ASSERT_NE(page->window(), 0U);
    }
    // With an album of all three photographs open.
    void openAlbum() {
        ASSERT_TRUE(putBytes(album, albumText(QStringLiteral("3|Our note"), slides)));
        open({album});
        ASSERT_TRUE(page->waitForTitle(QStringLiteral("Velorama - ") + album));
        // The first folder's listing ends the start, and selects the first slide.
        ASSERT_TRUE(waitFor([&] { return filesLocation(store).has_value(); }));
    }
    // The title that an album has that was opened or saved by hand.
    QString titled(const QString& path) const { return path + QStringLiteral(" - Velorama"); }
    bool becomes(const QString& file, const QByteArray& bytes) const {
        return waitFor([&] { return bytesOf(file) == bytes; });
    }
    bool waitForModified(bool wanted) const {
        return waitFor([&] { return page->isModified() == wanted; });
    }
    QStringList moved() const { return {slides.at(1), slides.at(0), slides.at(2)}; }
    QString saved() const { return QStringLiteral("3|Our note "); }

    DesktopSession session;
    Store store{session};
    QStringList slides;
    QString album = session.home() + QStringLiteral("/My trip, day 1.vlr");
    std::optional<AlbumsPage> page;
};

}  // namespace velorama::desktop
