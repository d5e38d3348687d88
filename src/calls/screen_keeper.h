#pragma once

#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWidget>

namespace velorama {

/// Keeps a window over the whole of its screen when screens come, go and change. One that is lost
/// is known by its name when it comes back; meanwhile the window stands on the first screen.
class ScreenKeeper : public QObject {
public:
    /// `name` of the screen that is wanted; empty for whichever is the first. The window must
    /// outlive this object.
    ScreenKeeper(QWidget& window, const QString& name);

    /// The screen to stand on now. Null where there is none at all.
    QScreen* wanted() const;

private:
    void watch(QScreen* screen);
    void put();

    QWidget& window_;
    QString name_;
    /// Window managers move windows about at the same time.
    QTimer settling_{this};
};

}  // namespace velorama
