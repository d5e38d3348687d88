#include "platform/process/command_turn.h"

#include <utility>

namespace velorama {

// Outlives the turn itself while a command runs.
struct CommandTurn::State {
    QList<Command> waiting;
    bool isRunning = false;
};

CommandTurn::CommandTurn() : state_(std::make_shared<State>()) {}

CommandTurn::~CommandTurn() {
    state_->waiting.clear();
}

void CommandTurn::run(Command command) {
    const std::shared_ptr<State> state = state_;
    state->waiting.append(std::move(command));
    if (state->isRunning) {
        return;
    }
    state->isRunning = true;
    while (!state->waiting.isEmpty()) {
        const Command next = state->waiting.takeFirst();
        next();
    }
    state->isRunning = false;
}

void CommandTurn::runLast(Command command) {
    state_->waiting.clear();
    run(std::move(command));
}

bool CommandTurn::isRunning() const {
    return state_->isRunning;
}

bool CommandTurn::isAwaited() const {
    return state_->isRunning && !state_->waiting.isEmpty();
}

}  // namespace velorama
