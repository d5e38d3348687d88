#pragma once

#include <QFile>

#include <sndfile.h>

#include <memory>

namespace velorama {

/// A WAV file whose writer never came back to fill in its sizes, as of a stream or a recording cut
/// off, shown to libsndfile so that it takes all that follows for sound.
class UnfinishedWave {
public:
    /// Null if the file does not open, or if its sizes say that it is whole.
    static std::unique_ptr<UnfinishedWave> open(const QString& path);

    /// Null if it holds no sound file. This must outlive what is opened.
    SNDFILE* openSound(SF_INFO& info);

private:
    explicit UnfinishedWave(const QString& path) : file_(path) {}
    bool readHead();
    sf_count_t seek(sf_count_t offset, int whence);
    sf_count_t read(char* bytes, sf_count_t count);

    QFile file_;
    QByteArray head_;  // instead of the file's first bytes
};

}  // namespace velorama
