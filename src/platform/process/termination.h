#pragma once

#include <functional>
#include <memory>

namespace velorama {

/// True from a request of the system to end until the `TerminationWatch` has taken it up. For a
/// loop that lets no events run and must not outlive the request.
bool isTerminationRequested();

/// Turns the system's requests to end (SIGTERM, SIGINT, SIGHUP) into a call on the thread that made
/// this object, from its event loop. A second request while the first is being carried out ends the
/// process at once. One object at a time.
class TerminationWatch {
public:
    explicit TerminationWatch(std::function<void()> onRequest);
    ~TerminationWatch();
    TerminationWatch(const TerminationWatch&) = delete;
    TerminationWatch& operator=(const TerminationWatch&) = delete;

private:
    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace velorama
