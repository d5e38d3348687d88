#include "desktop/keyboard_walk.h"

#include <QDir>
#include <QSet>

#include <algorithm>
#include <iterator>

namespace velorama::desktop {
namespace {

using Told = AccessibleTree::Told;

// Parts of a control say that they have the keyboard beside it, and a current row says so though
// its list has not: the toolkit does that.
bool isPart(const Told& told) {
    static const QSet<QString> parts = {QStringLiteral("tree item"), QStringLiteral("list item"),
                                        QStringLiteral("table cell"), QStringLiteral("page tab"),
                                        QStringLiteral("table column header")};
    return parts.contains(told.role);
}

/// The pane that a text scrolls in has the keyboard as its frame has, and so has the row of a
/// dialog's buttons as one of them has.
bool isShared(const Told& told, const std::vector<Told>& all) {
    const bool isPane = told.role == QLatin1String("filler");
    const bool isRow = told.role == QLatin1String("panel");
    return (isPane || isRow) && told.name.isEmpty() &&
           std::any_of(all.begin(), all.end(), [&](const Told& other) {
               return other.id != told.id && (isPane ? other.extent.contains(told.extent)
                                                     : told.extent.contains(other.extent));
           });
}

bool isMute(const Told& told) {
    static const QSet<QString> roles = {
        QStringLiteral("panel"),        QStringLiteral("filler"),
        QStringLiteral("unknown"),      QStringLiteral("invalid"),
        QStringLiteral("layered pane"), QStringLiteral("redundant object")};
    return told.role.isEmpty() || roles.contains(told.role);
}

QString putPicture(const QString& path) {
    QImage picture(60, 40, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    EXPECT_TRUE(picture.save(path)) << path.toStdString();
    return path;
}

QStringList idsOf(const std::vector<Told>& all) {
    QStringList ids;
    for (const Told& told : all) {
        ids.append(told.id);
    }
    return ids;
}

}  // namespace

void KeyboardWalk::SetUp() {
    ASSERT_TRUE(session.isUp());
    ASSERT_TRUE(tree.isUp()) << "at-spi2-core is not installed";
}

void KeyboardWalk::open(const QStringList& environment) {
    ASSERT_TRUE(QDir().mkpath(folder));
    QStringList slides;
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) {
        slides.append(putPicture(folder + u'/' + QLatin1String(name)));
    }
    const QString album = session.home() + QStringLiteral("/show.vlr");
    ASSERT_TRUE(putBytes(album, albumText(QStringLiteral("3"), slides)));
    setAlbums(store, {album});
    setFilesLocation(store, folder);
    page.emplace(session, session.start({album}, tree.environment() + environment));
    ASSERT_NE(page->window(), 0U);
    ASSERT_TRUE(page->waitForThumbnails(3));
}

void KeyboardWalk::openEmpty() {
    ASSERT_TRUE(QDir().mkpath(folder));
    setFilesLocation(store, folder);
    page.emplace(session, session.start({}, tree.environment()));
    ASSERT_NE(page->window(), 0U);
}

std::string KeyboardWalk::nameOf(const Told& told) {
    return told.role.toStdString() + " \"" + told.name.toStdString() + "\" at " +
           std::to_string(told.extent.x()) + "," + std::to_string(told.extent.y());
}

KeyboardWalk::Told KeyboardWalk::focus(const QString& leaving) const {
    std::vector<Told> all;
    const bool isOne = waitFor([&] {
        const std::vector<Told> before = tree.focused();
        all.clear();
        std::copy_if(before.begin(), before.end(), std::back_inserter(all),
                     [&](const Told& told) { return !isPart(told) && !isShared(told, before); });
        return all.size() == 1 && all.front().id != leaving;
    });
    EXPECT_TRUE(isOne) << all.size() << " have the keyboard";
    for (const Told& told : all) {
        EXPECT_TRUE(isOne) << nameOf(told);
    }
    return isOne ? all.front() : Told{};
}

QImage KeyboardWalk::look(const QRect& place) const {
    const QRect area = place.adjusted(-3, -3, 3, 3);
    QImage before;
    QImage now = session.screenshot().copy(area);
    waitFor([&] {
        before = now;
        now = session.screenshot().copy(area);
        return now == before;
    });
    return now;
}

KeyboardWalk::Told KeyboardWalk::step(const QString& key, const Told& last,
                                      const Reasons& unseen) const {
    const QImage lastLook = look(last.extent);
    session.key(key);
    Told next = focus(last.id);
    EXPECT_TRUE(look(last.extent) != lastLook || unseen.count(last.name.toStdString()) != 0)
        << "unseen: " << nameOf(last);
    return next;
}

/// Until the first one comes again, which stands at the end too.
std::vector<KeyboardWalk::Told> KeyboardWalk::stops(const QString& key,
                                                    const Reasons& unseen) const {
    constexpr std::size_t most = 60;
    std::vector<Told> all = {focus()};
    while (all.size() < most && !all.back().id.isEmpty()) {
        const Told last = all.back();
        all.push_back(step(key, last, unseen));
        if (all.back().id == all.front().id) {
            return all;
        }
    }
    ADD_FAILURE() << key.toStdString() << " never came round, but to " << nameOf(all.back());
    return all;
}

void KeyboardWalk::expectTold(const Told& told) {
    EXPECT_FALSE(told.name.trimmed().isEmpty()) << nameOf(told);
    EXPECT_FALSE(isMute(told)) << nameOf(told);
}

void KeyboardWalk::expectAllReached(const std::vector<Told>& reached) const {
    const QStringList ids = idsOf(reached);
    for (const Told& told : tree.focusable()) {
        // A text or picture that the mouse can mark is no control.
        const bool isText =
            told.role == QLatin1String("label") || told.role == QLatin1String("graphic");
        EXPECT_TRUE(isPart(told) || isMute(told) || isText || ids.contains(told.id))
            << "not reached: " << nameOf(told);
    }
}

void KeyboardWalk::walkRound(const Reasons& unseen, const Reasons& mute) const {
    // Before the first key the style does not show where the keyboard is.
    const QString before = focus().id;
    session.key(QStringLiteral("Tab"));
    focus(before);
    const std::vector<Told> there = stops(QStringLiteral("Tab"), unseen);
    for (const Told& told : there) {
        if (mute.count(told.name.toStdString()) == 0) {
            expectTold(told);
        }
    }
    expectAllReached(there);
    std::vector<Told> back = stops(QStringLiteral("shift+Tab"), unseen);
    std::reverse(back.begin(), back.end());
    EXPECT_EQ(idsOf(back).join(u' ').toStdString(), idsOf(there).join(u' ').toStdString());
}

bool KeyboardWalk::isAt(const QString& name, int place, int count) const {
    return waitFor([&] {
        const std::vector<Told> all = tree.focused();
        return std::any_of(all.begin(), all.end(), [&](const Told& told) {
            return told.name == name && told.place == place && told.count == count;
        });
    });
}

}  // namespace velorama::desktop
