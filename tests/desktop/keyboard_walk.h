#pragma once

#include "desktop/accessible_tree.h"
#include "desktop/albums_page.h"
#include "desktop/pictures_page.h"

#include <gtest/gtest.h>

#include <map>

namespace velorama::desktop {

/// The program without a mouse: what the Tab key comes to, what a screen reader is told of it, and
/// whether it can be seen.
class KeyboardWalk : public testing::Test {
protected:
    using Told = AccessibleTree::Told;
    /// What does not show that it has the keyboard, or tells no role, by name, and why.
    using Reasons = std::map<std::string, const char*>;

    void SetUp() override;
    /// With an album of three slides open, their folder listed and some music.
    void open(const QStringList& environment = {});
    /// As a new user has it.
    void openEmpty();

    /// Goes round the window that has the keyboard with Tab, and back with Shift+Tab. At each stop
    /// one control says that it has the keyboard, has a name and a role, and can be seen to have
    /// it, but for those that have a reason. Whatever could have the keyboard is come by.
    void walkRound(const Reasons& unseen = {}, const Reasons& mute = {}) const;
    /// The one control that has the keyboard, once it is another than that of this id.
    Told focus(const QString& leaving = {}) const;
    /// Presses a key that leads from `last` to another control, which comes back. `last` could be
    /// seen to have the keyboard.
    Told step(const QString& key, const Told& last, const Reasons& unseen = {}) const;
    /// It has a name and a role.
    static void expectTold(const Told& told);
    static std::string nameOf(const Told& told);
    /// The pixels of a place and around it, once they have come to rest.
    QImage look(const QRect& place) const;
    /// The keyboard is on this row of a list, of so many.
    bool isAt(const QString& name, int place, int count) const;

    DesktopSession session;
    Store store{session};
    AccessibleTree tree{session};
    const QString folder = session.home() + QStringLiteral("/Pictures");
    std::optional<PicturesPage> page;

private:
    std::vector<Told> stops(const QString& key, const Reasons& unseen) const;
    void expectAllReached(const std::vector<Told>& reached) const;
};

}  // namespace velorama::desktop
