#pragma once

#include <QStringList>

#include <chrono>
#include <functional>
#include <future>

namespace velorama {

/// The captions that a rebuild gives slides: the name of a file that is there, or else the path. A
/// disk that does not answer holds nobody up for long.
class SlideTexts {
public:
    /// Runs on any thread.
    using TextOf = std::function<QString(const QString& path)>;
    SlideTexts(std::chrono::milliseconds longest, TextOf textOf);

    /// Another thread looks, and no events run meanwhile. What it does not tell in time has the
    /// name of its file; so has all that is asked for before it has come to its end, and nobody
    /// waits for that.
    QStringList of(const QStringList& paths);

private:
    class Known;

    std::chrono::milliseconds longest_;
    TextOf textOf_;
    std::future<void> looks_;
};

}  // namespace velorama
