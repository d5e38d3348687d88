#include "platform/sound/late_player.h"

#include <QLibrary>

#include <utility>

namespace velorama {
namespace {

/// Nothing succeeds before a track is open, and none opens without a path: an empty music list asks
/// for that each second.
bool opensTrack(const QString& command) {
    const QString plain = command.simplified();
    return plain.startsWith(QLatin1String("open"), Qt::CaseInsensitive) &&
           !plain.startsWith(QLatin1String("open \"\""), Qt::CaseInsensitive);
}

class LatePlayer : public MediaCommands {
public:
    explicit LatePlayer(const QString& library) : library_(library) {
        // Threads that wait for a sound server outlive the device.
        library_.setLoadHints(QLibrary::PreventUnloadHint);
    }

    bool send(const QString& command, QString* answer) override {
        if (!device_ && opensTrack(command)) {
            load();
        }
        return device_ ? device_->send(command, answer) : MediaCommands::send(command, answer);
    }

    void whenPulled(std::function<void()> told) override {
        told_ = std::move(told);
        if (device_) {
            device_->whenPulled(told_);
        }
    }

private:
    void load() {
        if (const auto make = reinterpret_cast<SoundEntry>(library_.resolve(soundEntry))) {
            device_.reset(make());
            device_->whenPulled(told_);
        }
    }

    QLibrary library_;
    std::unique_ptr<MediaCommands> device_;
    std::function<void()> told_;
};

}  // namespace

std::unique_ptr<MediaCommands> makeLatePlayer(const QString& library) {
    return std::make_unique<LatePlayer>(library);
}

}  // namespace velorama
