#pragma once

#include "desktop/main_window.h"

#include <QByteArray>
#include <QImage>
#include <QMap>
#include <QSize>

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace velorama::test {

/// A photograph on disk, as the slides of a test have them.
struct Photograph {
    QString path;
    QString name;
    QSize size;
};

/// The page WebAlbum of a running program, used by hand.
class AlbumPage : public desktop::MainWindow {
public:
    /// Opens the page; `isReady()` if it came up and its button can be pressed.
    AlbumPage(desktop::DesktopSession& session, desktop::Program& program);

    bool isReady() const { return ready_; }
    /// Types a title in place of the one that stands there.
    void typeTitle(const QString& title) const;
    void clickBuild(int times = 1) const;
    /// Clicks the button and closes the window, without a pause.
    void clickBuildAndClose() const;
    void clickView() const;
    bool isViewOn() const;
    /// Waits for a message box of this caption and closes it with its button. False if it never
    /// came, or stayed.
    bool closeMessage(const QString& caption) const;
    /// A whole build of a title, to its last message.
    bool build(const QString& title) const;

private:
    QPoint buildButton() const;
    QPoint viewButton() const;

    bool ready_ = false;
};

/// A desktop with photographs, and the program on it with these as slides.
class AlbumDesktop : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(session.isUp()); }

    /// Puts so many photographs on the disk, of several shapes: photographs of Debian's wallpapers
    /// and the program's own samples, made small.
    void takePhotographs(int count);
    /// Many pictures that cost next to nothing to look at.
    void takeSpecks(int count);
    /// The program with those as slides, at the page WebAlbum.
    void start(const QStringList& environment = {});
    QString albumFolder(const QString& title) const;
    QString sources() const { return session.home() + QStringLiteral("/Photographs"); }

    desktop::DesktopSession session;
    desktop::Store store{session};
    std::vector<Photograph> photographs;
    std::optional<AlbumPage> page;

private:
    void takePhotograph(const QString& name, const QImage& image);
};

/// Every file below a folder by its path there, hidden ones too.
QMap<QString, QByteArray> filesBelow(const QString& folder);
QByteArray bytesOf(const QString& file);
/// The pages of an album that are no whole page, and files that no album has.
QStringList unfinishedFiles(const QString& album);

}  // namespace velorama::test
