#include "imaging/decode/decoding.h"

#include <cstdint>
#include <cstdlib>

namespace {

/// A file of which each look gives a few bytes only, as one that is read in blocks.
class SmallPieces : public velorama::ByteSource {
public:
    explicit SmallPieces(QByteArrayView bytes) : bytes_(bytes) {}

    qint64 size() const override { return bytes_.size(); }
    QByteArrayView from(qint64 at) override {
        constexpr qint64 atLeast = 256;
        return at < size() ? bytes_.sliced(at, qMin(atLeast, size() - at)) : QByteArrayView();
    }

private:
    QByteArrayView bytes_;
};

}  // namespace

// The head of a picture, read at once and in pieces: both must tell the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes(data, qsizetype(size));
    velorama::MemoryBytes whole(bytes);
    SmallPieces pieces(bytes);
    if (velorama::pictureSize(whole) != velorama::pictureSize(pieces)) {
        std::abort();
    }
    return 0;
}
