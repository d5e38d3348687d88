#include "platform/sound/output_watch.h"

#include <pulse/pulseaudio.h>

#include <string>
#include <utility>

#include <unistd.h>

namespace velorama {
namespace {

constexpr uint32_t none = PA_INVALID_INDEX;

/// Nobody waits for the answers: they come to the callback.
void letGo(pa_operation* operation) {
    if (operation) {
        pa_operation_unref(operation);
    }
}

bool isOfThisProcess(const pa_sink_input_info& stream) {
    const char* process = pa_proplist_gets(stream.proplist, PA_PROP_APPLICATION_PROCESS_ID);
    return process && std::to_string(getpid()) == process;
}

/// False where nothing is plugged into that port; of many the server cannot tell.
bool isPlugged(const pa_sink_info& sink, const std::string& port) {
    for (uint32_t i = 0; i < sink.n_ports; ++i) {
        if (port == sink.ports[i]->name) {
            return sink.ports[i]->available != PA_PORT_AVAILABLE_NO;
        }
    }
    return true;
}

}  // namespace

/// One connection, with a thread of its own: all callbacks come there, and what follows the stream
/// belongs to it.
class OutputWatch::Server {
public:
    explicit Server(std::function<void()> pulled)
        : pulled_(std::move(pulled)), loop_(pa_threaded_mainloop_new()) {
        if (!loop_) {
            return;
        }
        context_ = pa_context_new(pa_threaded_mainloop_get_api(loop_), "Velorama");
        if (!context_) {
            return;
        }
        pa_context_set_state_callback(context_, &Server::onState, this);
        if (pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) == 0) {
            started_ = pa_threaded_mainloop_start(loop_) == 0;
        }
    }

    ~Server() {
        if (started_) {
            pa_threaded_mainloop_stop(loop_);
        }
        if (context_) {
            pa_context_disconnect(context_);
            pa_context_unref(context_);
        }
        if (loop_) {
            pa_threaded_mainloop_free(loop_);
        }
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    bool isThere() const {
        if (!started_) {
            return false;
        }
        pa_threaded_mainloop_lock(loop_);
        const bool good = PA_CONTEXT_IS_GOOD(pa_context_get_state(context_)) != 0;
        pa_threaded_mainloop_unlock(loop_);
        return good;
    }

private:
    static Server& of(void* self) { return *static_cast<Server*>(self); }

    static void onState(pa_context* context, void* self) {
        if (pa_context_get_state(context) == PA_CONTEXT_READY) {
            of(self).listen();
        }
    }

    void listen() {
        pa_context_set_subscribe_callback(context_, &Server::onEvent, this);
        const auto kinds = static_cast<pa_subscription_mask_t>(PA_SUBSCRIPTION_MASK_SINK |
                                                               PA_SUBSCRIPTION_MASK_SINK_INPUT);
        letGo(pa_context_subscribe(context_, kinds, nullptr, nullptr));
        letGo(pa_context_get_sink_input_info_list(context_, &Server::onStream, this));
    }

    static void onEvent(pa_context*, pa_subscription_event_type_t event, uint32_t index,
                        void* self) {
        const auto about = event & PA_SUBSCRIPTION_EVENT_FACILITY_MASK;
        const bool removed =
            (event & PA_SUBSCRIPTION_EVENT_TYPE_MASK) == PA_SUBSCRIPTION_EVENT_REMOVE;
        if (about == PA_SUBSCRIPTION_EVENT_SINK_INPUT) {
            of(self).streamChanged(index, removed);
        } else if (about == PA_SUBSCRIPTION_EVENT_SINK && !removed && index == of(self).sink_) {
            of(self).lookAtSink();
        }
    }

    void streamChanged(uint32_t index, bool removed) {
        if (!removed) {
            letGo(pa_context_get_sink_input_info(context_, index, &Server::onStream, this));
        } else if (index == stream_) {
            stream_ = none;
            sink_ = none;
        }
    }

    static void onStream(pa_context*, const pa_sink_input_info* info, int, void* self) {
        // Between two outputs a stream may be on none.
        if (info && isOfThisProcess(*info) && info->sink != none) {
            of(self).follow(info->index, info->sink);
        }
    }

    /// The stream of the track before may still be let out: the newest counts.
    void follow(uint32_t stream, uint32_t sink) {
        const bool older = stream_ != none && stream < stream_;
        if (older || (stream == stream_ && sink == sink_)) {
            return;
        }
        const bool moved = stream == std::exchange(stream_, stream);
        const uint32_t left = std::exchange(sink_, sink);
        if (moved) {
            letGo(pa_context_get_sink_info_by_index(context_, left, &Server::onLeftSink, this));
        } else {
            port_.clear();
        }
        // Answered after that, so the port is still the old one there.
        lookAtSink();
    }

    /// What the stream has been moved away from: gone, unplugged, or only left.
    static void onLeftSink(pa_context*, const pa_sink_info* info, int end, void* self) {
        if (end < 0 || (info && of(self).plugged_ && !isPlugged(*info, of(self).port_))) {
            of(self).pulled_();
        }
        if (end <= 0) {
            of(self).port_.clear();
        }
    }

    void lookAtSink() {
        letGo(pa_context_get_sink_info_by_index(context_, sink_, &Server::onSink, this));
    }

    static void onSink(pa_context*, const pa_sink_info* info, int, void* self) {
        if (info && info->index == of(self).sink_) {
            of(self).takePort(*info);
        }
    }

    /// One that was never plugged, as some report of themselves, cannot be pulled.
    void takePort(const pa_sink_info& sink) {
        if (!port_.empty() && plugged_ && !isPlugged(sink, port_)) {
            pulled_();
        }
        port_ = sink.active_port ? sink.active_port->name : "";
        plugged_ = isPlugged(sink, port_);
    }

    const std::function<void()> pulled_;
    pa_threaded_mainloop* loop_;
    pa_context* context_ = nullptr;
    bool started_ = false;
    uint32_t stream_ = none;
    uint32_t sink_ = none;
    std::string port_;
    bool plugged_ = false;
};

OutputWatch::OutputWatch(std::function<void()> told) : told_(std::move(told)) {
    renew();
}

OutputWatch::~OutputWatch() = default;

void OutputWatch::renew() {
    if (server_ && server_->isThere()) {
        return;
    }
    server_.reset();
    server_ = std::make_unique<Server>(
        [this] { QMetaObject::invokeMethod(&here_, told_, Qt::QueuedConnection); });
}

}  // namespace velorama
