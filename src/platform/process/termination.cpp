#include "platform/process/termination.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>

#include <sys/socket.h>
#include <unistd.h>

namespace velorama {
namespace {

constexpr std::array<int, 3> requests = {SIGTERM, SIGINT, SIGHUP};

// A signal handler may do little more than write a byte.
int writeEnd = -1;
volatile std::sig_atomic_t isRequested = 0;

void onSignal(int) {
    const int before = errno;
    isRequested = 1;
    const char byte = 1;
    const ssize_t written = ::write(writeEnd, &byte, 1);
    static_cast<void>(written);
    errno = before;
}

void handleAll(void (*handler)(int)) {
    for (const int request : requests) {
        struct sigaction action {};
        action.sa_handler = handler;
        action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
        ::sigaction(request, &action, nullptr);
    }
}

}  // namespace

bool isTerminationRequested() {
    return isRequested != 0;
}

class TerminationWatch::Private {
public:
    explicit Private(std::function<void()> onRequest) : onRequest_(std::move(onRequest)) {
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends_.data()) !=
            0) {
            return;
        }
        writeEnd = ends_[1];
        notifier_ = std::make_unique<QSocketNotifier>(ends_[0], QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { take(); });
        handleAll(onSignal);
    }

    ~Private() {
        handleAll(SIG_DFL);
        isRequested = 0;
        writeEnd = -1;
        notifier_.reset();
        for (const int end : ends_) {
            if (end >= 0) {
                ::close(end);
            }
        }
    }

    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

private:
    void take() {
        char byte = 0;
        if (::read(ends_[0], &byte, 1) != 1) {
            return;
        }
        isRequested = 0;
        ++running_;
        onRequest_();
        // Carried out and still here: the user has refused, and the next one is a first again.
        if (--running_ == 0) {
            handleAll(onSignal);
        }
    }

    std::function<void()> onRequest_;
    int running_ = 0;
    std::array<int, 2> ends_ = {-1, -1};
    std::unique_ptr<QSocketNotifier> notifier_;
};

TerminationWatch::TerminationWatch(std::function<void()> onRequest)
    : d(std::make_unique<Private>(std::move(onRequest))) {}

TerminationWatch::~TerminationWatch() = default;

}  // namespace velorama
