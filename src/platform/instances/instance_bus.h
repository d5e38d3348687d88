#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace velorama {

/// Where the windows of this program's processes find each other and hand each other texts. Only
/// processes of the same user take part. Every wait is bounded, a quarter of a second at the worst,
/// and a window whose program does not answer is passed over. What the null body does: nothing.
class InstanceBus {
public:
    using Receiver = std::function<void(const QString& text)>;

    InstanceBus() = default;
    InstanceBus(const InstanceBus&) = delete;
    InstanceBus& operator=(const InstanceBus&) = delete;
    virtual ~InstanceBus() = default;

    /// From now on until the end of the bus, others find this window by its title and `receiver`
    /// gets their texts, on this thread. One window a bus. False if there is no way.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): who overrides it keeps the function.
    virtual bool bind(quint32 /*window*/, const QString& /*title*/, Receiver) { return false; }
    virtual void setTitle(const QString& /*title*/) {}

    /// The oldest window of another process whose title fits the pattern; 0 if there is none.
    virtual quint32 find(const QString& /*pattern*/) { return 0; }
    /// Hands a text to another process's window: to the one that was found last if it has this
    /// number, since windows of several processes may have the same, otherwise to the oldest of
    /// that number. False if there is no such window or it takes nothing.
    virtual bool send(const QString& /*text*/, quint32 /*window*/) { return false; }
    /// True if another process of the program has a window here.
    virtual bool othersRun() const { return false; }
};

/// A pattern that ends in " *" fits every title that begins with what stands before the asterisk;
/// any other fits the same title only.
bool fitsTitle(const QString& title, const QString& pattern);

/// Over local sockets in `folder`, which is this user's alone: one for each window, named by the
/// number of the window and of the process, and a file with the title beside it.
std::unique_ptr<InstanceBus> makeInstanceBus(const QString& folder, qint64 process);
/// The same in `instanceFolder()`, for this process.
std::unique_ptr<InstanceBus> makeInstanceBus();

/// `$XDG_RUNTIME_DIR/velorama`, or where there is no such place `velorama-<user>` in the folder for
/// temporary files. Makes it. Empty if there is none that is this user's alone.
QString instanceFolder();

}  // namespace velorama
