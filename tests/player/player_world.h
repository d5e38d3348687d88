#pragma once

#include "core/show_colours.h"
#include "player/frm_slideshow.h"
#include "support/memory_registry_store.h"
#include "support/recording_shell.h"

#include <QList>
#include <QPointer>
#include <QStringList>

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace velorama::test {

/// A store that counts the reads of slide paths and lets a test act in the midst of one. An endless
/// search for a picture can so be watched and, in the end, be given its picture.
class WatchedStore : public MemoryRegistryStore {
public:
    std::optional<RegistryValue> value(Hive hive, const QString& key,
                                       const QString& name) const override;
    mutable int slideReads = 0;
    /// Called before each read of a slide's path with the number of the read, from 1.
    std::function<void(int)> onSlideRead;
};

class RecordingHost : public ShowHost {
public:
    void setVisible(bool visible) override { visibilities.append(visible); }
    void AudioPlay() override { music.append(QStringLiteral("play")); }
    void AudioPause() override { music.append(QStringLiteral("pause")); }
    QString track() const override { return trackPath; }
    QString trackLength() const override { return length; }
    QString trackPosition() const override { return position; }
    Colour background() override { return showBackground(); }
    Colour gradient() override { return showGradient(); }

    QList<bool> visibilities;
    QStringList music;
    QString trackPath;
    QString length;
    QString position;
};

class CountingScreenSaver : public ScreenSaver {
public:
    void inhibit() override { ++inhibited; }
    void release() override { ++released; }
    int inhibited = 0;
    int released = 0;
};

/// Runs `action` once, at the yield number `yield` (from 1) of whatever procedure is called while
/// this lives. No time passes: the timer behind it is due at every yield.
class AtYield {
public:
    AtYield(int yield, std::function<void()> action);
    /// Runs `action` at every yield.
    explicit AtYield(std::function<void()> action);
    int yields() const { return yields_; }

private:
    QTimer timer_;
    int yields_ = 0;
};

class PlayerTest : public testing::Test {
protected:
    PlayerTest();
    ~PlayerTest() override;

    /// Saves a bitmap of one colour in the test's folder and gives its path.
    QString picture(const QString& name, const QColor& colour, QSize size = {60, 40});
    /// A file that exists and is no picture.
    QString unreadable(const QString& name);
    /// A path in the test's folder where nothing is.
    QString missing(const QString& name) const;
    /// Writes the list as the main window does.
    void setSlides(const QStringList& paths);
    /// As many slides a.bmp, b.bmp ... of different colours.
    QStringList makeSlides(int count);
    static QColor slideColour(int number);

    /// Opens a show over the list. Its timers are far too slow to fire.
    frmSLIDESHOW& open();
    /// Opens it and ends its first fade.
    frmSLIDESHOW& openFaded();
    static void fadeSteps(frmSLIDESHOW& show, int steps);
    /// Ends the show, if there is one still, and lets it delete itself.
    void endShow();

    static std::string caption(const frmSLIDESHOW& show) {
        return show.picCONTROLBAR.lblDESC.Caption().toStdString();
    }
    static std::string counter(const frmSLIDESHOW& show) {
        return show.picCONTROLBAR.lblNOCOUNT.Caption().toStdString();
    }
    static std::string status(const frmSLIDESHOW& show) {
        return show.picCONTROLBAR.lblSTATUS.Caption().toStdString();
    }

    WatchedStore store;
    RecordingShell shell;
    RecordingHost host;
    CountingScreenSaver screenSaver;
    QPointer<frmSLIDESHOW> form;
    QString folder;
};

constexpr const char* pausedText = "Slideshow Now Paused";

/// Colour in the middle of an image.
QRgb middle(const QImage& image);

}  // namespace velorama::test
