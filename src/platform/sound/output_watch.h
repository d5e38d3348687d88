#pragma once

#include <QObject>

#include <functional>
#include <memory>

namespace velorama {

/// Hears from the sound server that the output which plays this process's music has been pulled
/// out, such as a headset: its plug, or the whole device. The server then plays on through another,
/// and the player itself is not told. A stream that the user moves is none of this.
///
/// Speaks PulseAudio, which PipeWire understands; with any other system nothing is heard. Used from
/// one thread.
class OutputWatch {
public:
    /// `told` is called from that thread's event loop, and not any more once this object is gone.
    explicit OutputWatch(std::function<void()> told);
    ~OutputWatch();
    OutputWatch(const OutputWatch&) = delete;
    OutputWatch& operator=(const OutputWatch&) = delete;

    /// Turns to the server again if it was not there, or has gone since. Does not wait for it.
    void renew();

private:
    class Server;

    QObject here_;
    std::function<void()> told_;
    std::unique_ptr<Server> server_;
};

}  // namespace velorama
