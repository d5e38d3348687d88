// The window without a mouse: what the Tab key comes to, what a screen reader is told of it, and
// whether it can be seen.

#include "desktop/accessible_tree.h"
#include "desktop/albums_page.h"
#include "desktop/pictures_page.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

using Told = AccessibleTree::Told;

void save(const QString& path) {
    QImage picture(60, 40, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    EXPECT_TRUE(picture.save(path)) << path.toStdString();
}

class KeyboardWalk : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        ASSERT_TRUE(tree.isUp()) << "at-spi2-core is not installed";
        ASSERT_TRUE(QDir().mkpath(folder));
        QStringList slides;
        for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) {
            slides.append(folder + u'/' + QLatin1String(name));
            save(slides.last());
        }
        const QString album = session.home() + QStringLiteral("/show.vlr");
        ASSERT_TRUE(putBytes(album, albumText(QStringLiteral("3"), slides)));
        setAlbums(store, {album});
        setFilesLocation(store, folder);
        page.emplace(session, session.start({album}, tree.environment()));
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(page->waitForThumbnails(3));
    }

    /// A current row says that it has the focus though its list has not: the toolkit does that.
    static bool isRow(const Told& told) {
        return told.role == QLatin1String("tree item") || told.role == QLatin1String("list item") ||
               told.role == QLatin1String("table cell");
    }
    /// The controls that have the keyboard, once one has.
    std::vector<Told> focused() const {
        std::vector<Told> all;
        waitFor([&] {
            all = tree.focused();
            std::erase_if(all, isRow);
            return !all.empty();
        });
        return all;
    }
    static std::string nameOf(const Told& told) {
        return told.role.toStdString() + " \"" + told.name.toStdString() + "\" at " +
               std::to_string(told.extent.x()) + "," + std::to_string(told.extent.y());
    }
    static void expectTold(const std::vector<Told>& focus) {
        static const QSet<QString> mute = {
            QStringLiteral("panel"),        QStringLiteral("filler"),
            QStringLiteral("unknown"),      QStringLiteral("invalid"),
            QStringLiteral("layered pane"), QStringLiteral("redundant object")};
        ASSERT_FALSE(focus.empty());
        EXPECT_FALSE(focus.front().name.trimmed().isEmpty()) << nameOf(focus.front());
        EXPECT_FALSE(mute.contains(focus.front().role)) << nameOf(focus.front());
    }
    /// The pixels of a place, once they have come to rest.
    QImage look(const QRect& place) const {
        QImage before;
        QImage now = session.screenshot().copy(place);
        waitFor([&] {
            before = now;
            now = session.screenshot().copy(place);
            return now == before;
        });
        return now;
    }
    /// Goes round with the Tab key: each stop is told and seen. How many there were.
    int walkRound() const {
        QSet<QString> seen;
        constexpr int most = 60;
        Told last;
        QImage lastLook;
        // Before the first key the style does not show where the keyboard is.
        session.key(QStringLiteral("Tab"));
        while (seen.size() < most) {
            const std::vector<Told> focus = focused();
            expectTold(focus);
            const Told now = focus.empty() ? Told{} : focus.front();
            const QString place = QString::fromStdString(nameOf(now));
            if (!last.name.isEmpty()) {
                EXPECT_NE(look(last.extent), lastLook) << "unseen: " << nameOf(last);
            }
            if (seen.contains(place)) {
                break;
            }
            seen.insert(place);
            last = now;
            lastLook = look(now.extent);
            session.key(QStringLiteral("Tab"));
        }
        return static_cast<int>(seen.size());
    }
    std::optional<Told> listed(const QString& name) const {
        for (const Told& told : tree.focused()) {
            if (told.name == name) {
                return told;
            }
        }
        return std::nullopt;
    }
    /// The keyboard is on this row of a list, of so many.
    bool isAt(const QString& name, int place, int count) const {
        return waitFor([&] {
            const std::optional<Told> row = listed(name);
            return row && row->place == place && row->count == count;
        });
    }

    DesktopSession session;
    Store store{session};
    AccessibleTree tree{session};
    const QString folder = session.home() + QStringLiteral("/Pictures");
    std::optional<PicturesPage> page;
};

TEST_F(KeyboardWalk, EveryStopOfTheSettingsIsToldAndSeen) {
    page->menu(QStringLiteral("s"), QStringLiteral("t"));
    ASSERT_NE(page->waitForDialog(QStringLiteral("Slideshow Settings")), 0U);
    EXPECT_GE(walkRound(), 7);
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());
    EXPECT_EQ(page->close(), 0);
}

TEST_F(KeyboardWalk, ListsTellPlaceAndCount) {
    ASSERT_TRUE(page->turnTo(FoldersPage));
    session.key(QStringLiteral("F6"));
    session.key(QStringLiteral("Home"));
    EXPECT_TRUE(isAt(QStringLiteral("a.jpg"), 0, 3));
    session.key(QStringLiteral("Right"));
    EXPECT_TRUE(isAt(QStringLiteral("b.jpg"), 1, 3));
    session.key(QStringLiteral("F6"));
    session.key(QStringLiteral("F6"));
    session.key(QStringLiteral("End"));
    EXPECT_TRUE(isAt(QStringLiteral("c.jpg"), 2, 3));
    EXPECT_EQ(page->close(), 0);
}

}  // namespace
}  // namespace velorama::desktop
