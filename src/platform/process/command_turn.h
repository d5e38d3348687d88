#pragma once

#include <QList>

#include <functional>
#include <memory>

namespace velorama {

/// Keeps a command that yields from running inside itself: pressed again while it runs, it waits
/// and is carried out when the running one has ended. Commands that share a turn wait for each
/// other. The object may be destroyed by a running command; what waits is then dropped.
class CommandTurn {
public:
    using Command = std::function<void()>;

    CommandTurn();
    ~CommandTurn();
    CommandTurn(const CommandTurn&) = delete;
    CommandTurn& operator=(const CommandTurn&) = delete;

    /// Carries `command` out, now or behind those that wait, in their order.
    void run(Command command);
    /// The same, in the place of all that wait: for commands whose last press alone counts.
    void runLast(Command command);

    bool isRunning() const;
    /// Another command is waiting for the one that runs.
    bool isAwaited() const;

private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace velorama
