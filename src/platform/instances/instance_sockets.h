#pragma once

#include <QLocalSocket>
#include <QString>

#include <functional>
#include <vector>

namespace velorama {

/// A window that a process of the program has made known, by its socket in the common folder.
struct InstanceWindow {
    quint32 number = 0;
    qint64 process = 0;
    QString socket;  // full path, empty for no window

    /// The file beside the socket that holds the window's title.
    static QString titleFile(const QString& socket);
    /// Empty if there is none to be read.
    QString title() const;
};

enum class SocketLife { Alive, Silent, Dead };

/// Connects; waits a tenth of a second at most.
SocketLife connectTo(QLocalSocket& socket, const QString& path);

/// The sockets of the other processes in a folder. An empty folder has none.
class InstanceSockets {
public:
    InstanceSockets(QString folder, qint64 ownProcess);

    QString folder() const { return folder_; }
    QString ownSocket(quint32 window) const;

    using Wanted = std::function<bool(const InstanceWindow& window)>;
    /// The oldest window that is wanted and whose process listens. Dead ones met on the way are
    /// taken away. Gives up after a quarter of a second.
    InstanceWindow firstAlive(const Wanted& wanted) const;
    /// Takes away what programs that ended without doing so have left behind.
    void removeDead() const;

private:
    std::vector<InstanceWindow> others() const;

    QString folder_;
    qint64 ownProcess_;
};

}  // namespace velorama
