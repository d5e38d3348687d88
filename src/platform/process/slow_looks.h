#pragma once

#include <QObject>

#include <functional>
#include <memory>

namespace velorama {

/// Looks at what may let itself be waited for, as a disk that sleeps or a server that is gone does,
/// on threads that nobody waits for. The user interface never blocks, and an end of the program
/// waits for a moment only.
class SlowLooks : public QObject {
    Q_OBJECT
public:
    explicit SlowLooks(QObject* parent = nullptr);
    SlowLooks(const SlowLooks&) = delete;
    SlowLooks& operator=(const SlowLooks&) = delete;
    ~SlowLooks() override;

    /// Runs on this object's thread, with what has been found in it.
    using Answer = std::function<void()>;
    /// Runs on any thread and owns all that it works on.
    using Look = std::function<Answer()>;
    /// The look asked for last comes first. Its answer follows as an event, unless this object is
    /// gone by then. Where a thousand wait in vain the oldest is dropped, and what `ifDropped`
    /// does is its answer.
    void ask(Look look, Answer ifDropped = {});

private:
    struct Shared;
    static void work(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared_;
};

}  // namespace velorama
