#pragma once

#include "desktop/session.h"

#include <QDBusConnection>
#include <QRect>

namespace velorama::desktop {

/// What a screen reader is told of the programs of a desktop, by AT-SPI.
class AccessibleTree {
public:
    explicit AccessibleTree(const DesktopSession& session);
    AccessibleTree(const AccessibleTree&) = delete;
    AccessibleTree& operator=(const AccessibleTree&) = delete;
    ~AccessibleTree();

    /// True if AT-SPI is up. Assert it before a program starts.
    bool isUp() const { return up_; }
    /// What a program needs to take part, for `DesktopSession::start`.
    QStringList environment() const;

    /// The names of all that is shown, in the order of the tree.
    QStringList names() const;
    /// What is told besides of everything that has this name; empty texts are left out.
    QStringList descriptions(const QString& name) const;

    /// One object as it is told.
    struct Told {
        /// Another one for each object, as long as it lives.
        QString id;
        QString name;
        QString role;
        /// Place among its neighbours from 0, and how many these are.
        int place = -1;
        int count = 0;
        /// On the screen, pixels.
        QRect extent;
    };
    /// What has the keyboard, from the outermost object to the innermost.
    std::vector<Told> focused() const;
    /// What is shown and on in the window that has the keyboard, and could have the keyboard
    /// itself.
    std::vector<Told> focusable() const;

private:
    /// As AT-SPI numbers them.
    enum State { Active = 1, Focusable = 11, Focused = 12, Sensitive = 24, Showing = 25 };
    struct Object {
        QString service;
        QString path;
    };
    Told told(const Object& object) const;
    Object parentOf(const Object& object) const;
    /// A bit for each of `State`.
    quint64 statesOf(const Object& object) const;
    QVariant ask(const Object& object, const QString& interface, const QString& method,
                 const QVariantList& arguments = {}) const;
    QString property(const Object& object, const QString& name) const;
    std::vector<Object> children(const Object& object) const;
    void walk(const Object& object, const std::function<void(const Object&)>& visit) const;

    static QString addressOf(const DesktopSession& session);

    QDBusConnection bus_;
    QProcess launcher_;
    bool up_ = false;
};

}  // namespace velorama::desktop
