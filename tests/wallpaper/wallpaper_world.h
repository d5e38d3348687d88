#pragma once

#include "desktop/session.h"
#include "platform/background/background_means.h"

#include <QDBusVirtualObject>
#include <QProcess>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

namespace velorama::test {

/// Names that a shell, a script, an address or a settings text would take for something else. The
/// one with the line break comes last.
QStringList oddNames();

/// Writes the picture as the program does: beside its place, then renamed.
void writePicture(const QString& file, QColor colour);

/// Runs something that waits for a service of this very program: on a thread of its own, while
/// events run here.
bool meanwhile(const std::function<bool()>& work);

/// A session with a screen and a bus, and a picture in a folder with an odd name.
class WallpaperWorld : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    virtual desktop::ScreenOptions options() const { return {.width = 320, .height = 240}; }

    /// `patience`: milliseconds.
    BackgroundSession session(const QStringList& variables = {}, int patience = 20000) const;
    /// A program of the desktop, until the test's end.
    void start(const QString& program, const QStringList& arguments = {});
    bool waitForService(const QString& name) const;
    /// The place shows this colour, sooner or later.
    bool shows(QColor colour, QPoint at = QPoint(160, 200)) const;

    std::unique_ptr<desktop::DesktopSession> screen;
    QString file;
    QString busName;

private:
    std::vector<std::unique_ptr<QProcess>> programs_;
};

/// An object on the bus that notes what it is told and answers as the test says.
class NotingService : public QDBusVirtualObject {
public:
    using Answer = std::function<QVariantList(const QDBusMessage&)>;
    NotingService(const QString& address, const QString& name, Answer answer);
    ~NotingService() override;

    QString introspect(const QString&) const override { return QString(); }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override;

    std::vector<QDBusMessage> calls;

private:
    QString connection_;
    Answer answer_;
};

}  // namespace velorama::test
